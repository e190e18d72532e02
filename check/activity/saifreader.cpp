#include "check/activity/activityreaders.h"

#include <charconv>
#include <string>

namespace Check {

namespace {

using std::string_view;

double toDouble(string_view text)
{
    double value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

quint64 toCount(string_view text)
{
    quint64 value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

class SaifReader : private BlockInput
{
public:
    SaifReader(QIODevice *device, bool counts, ActivityFile *file)
        : BlockInput(device)
        , m_counts(counts)
        , m_file(*file)
        , m_declarations(file->declarations)
    {
    }

    void read()
    {
        if (readFile())
            return;
        m_file.cutAt = endOffset();
    }

private:
    enum Token { End, Open, Close, Word, Text };

    Token token();
    bool comment();
    bool skip();
    template<typename Read>
    bool forEachInside(Token next, const Read &read);
    bool readFile();
    bool readHeader();
    bool readInstance(quint32 parent, int depth);
    bool readNet(quint32 scope);
    bool readCount(SaifCounts *counts);
    void declare(quint32 scope, const SaifCounts &counts);
    bool plainName(string_view word);

    [[noreturn]] void fail(const char *cause) const
    {
        throw ActivityError{QLatin1String(cause), tokenOffset()};
    }

    const bool m_counts;
    ActivityFile &m_file;
    Declarations &m_declarations;
    string_view m_word; ///< of the last token; valid until the next one
    std::string m_name;
    char m_divider = '.';
    quint32 m_signals = 0;
};

bool SaifReader::comment()
{
    // m_at is at "/", of "//" or "/*".
    const bool isLine = m_at[1] == '/';
    const char *p = m_at + 2;
    char before = 0;
    for (;; ++p) {
        if (p == m_end) {
            if (!refill(p))
                return false;
            p = m_at;
        }
        if (isLine ? *p == '\n' : (before == '*' && *p == '/'))
            break;
        before = *p;
    }
    m_at = p + 1;
    return true;
}

SaifReader::Token SaifReader::token()
{
    for (;;) {
        while (m_at < m_end && uchar(*m_at) <= ' ')
            ++m_at;
        if (m_end - m_at < 2 && !refill(m_at) && m_at == m_end)
            return End;
        if (uchar(*m_at) <= ' ')
            continue;
        const bool isComment =
            *m_at == '/' && m_end - m_at > 1 && (m_at[1] == '*' || m_at[1] == '/');
        if (!isComment)
            break;
        if (!comment())
            return End;
    }
    m_token = m_at;
    if (*m_at == '(' || *m_at == ')')
        return *m_at++ == '(' ? Open : Close;
    const bool isText = *m_at == '"';
    const char *begin = m_at;
    const char *p = begin + isText;
    const auto isInside = [&](char c) {
        return isText ? c != '"' : uchar(c) > ' ' && c != '(' && c != ')' && c != '"';
    };
    for (;;) {
        while (p < m_end && isInside(*p))
            p += *p == '\\' && p + 1 < m_end ? 2 : 1;
        if (p < m_end)
            break;
        // Once more from its beginning, which may be at another place then: an escape may be cut.
        const bool isMore = refill(begin);
        begin = m_at;
        if (!isMore) {
            if (isText)
                return End;
            p = m_end;
            break;
        }
        p = begin + isText;
    }
    checkLength(begin, p - begin);
    m_token = begin;
    m_word = string_view(begin + isText, size_t(p - begin - isText));
    m_at = p + isText;
    return isText ? Text : Word;
}

/// Passes over what is left of the innermost open parenthesis. False at the end of the file.
bool SaifReader::skip()
{
    int depth = 1;
    const auto open = [&] {
        if (++depth > 4 * Declarations::MAXIMUM_DEPTH)
            fail("parentheses nest deeper than 1024");
    };
    char before = ' '; // what the next character follows
    for (;;) {
        if (m_at == m_end && !refill(m_at))
            return false;
        const char c = *m_at;
        const bool isWordBegin = uchar(before) <= ' ' || before == '(' || before == ')';
        before = c;
        if (c == '"' || (c == '/' && isWordBegin)) { // a text, or perhaps a comment
            const Token next = token();
            if (next == End)
                return false;
            if (next == Open)
                open();
            else if (next == Close && --depth == 0)
                return true;
            before = ' ';
            continue;
        }
        ++m_at;
        if (c == '(') {
            open();
        } else if (c == ')') {
            if (--depth == 0)
                return true;
        } else if (c == '\\') {
            if (m_at == m_end && !refill(m_at))
                return false;
            ++m_at;
        }
    }
}

/// Calls `read` for every parenthesis inside the open one that begins with a word, which is m_word
/// then, until it returns false. `next` is the first token. False at the end of the file, too.
template<typename Read>
bool SaifReader::forEachInside(Token next, const Read &read)
{
    for (;; next = token()) {
        if (next == Close)
            return true;
        if (next == Open) {
            next = token();
            const bool isPassed = next == Word   ? read()
                                  : next == Text ? skip()
                                  : next == Open ? skip() && skip()
                                                 : next == Close;
            if (!isPassed)
                return false;
        } else if (next == End) {
            return false;
        }
    }
}

bool SaifReader::readFile()
{
    if (token() != Open || token() != Word)
        return false;
    return forEachInside(token(), [this] {
        const bool isInstance = m_word == "INSTANCE" || m_word == "VIRTUAL_INSTANCE";
        return isInstance ? readInstance(0, 1) : readHeader();
    });
}

bool SaifReader::readHeader()
{
    const std::string keyword(m_word);
    if (keyword != "DIRECTION" && keyword != "DIVIDER" && keyword != "TIMESCALE" &&
        keyword != "DURATION")
        return skip();
    QString text;
    for (;;) {
        const Token next = token();
        if (next == End)
            return false;
        if (next == Close)
            break;
        if (next == Open)
            fail("a header entry has parts");
        text += QString::fromUtf8(m_word.data(), int(m_word.size()));
    }
    if (keyword == "DIRECTION") {
        if (text.compare(QLatin1String("forward"), Qt::CaseInsensitive) == 0)
            fail("it is forward SAIF, which holds no counts");
    } else if (keyword == "DIVIDER") {
        m_divider = text.isEmpty() ? '.' : text.at(0).toLatin1();
    } else if (keyword == "TIMESCALE") {
        m_file.timescale = parseTimescale(text);
    } else {
        m_file.last = text.toDouble(&m_file.hasSpan);
    }
    return true;
}

/// Takes escapes off `word` into m_name; a divider becomes "/". False when nothing is left.
bool SaifReader::plainName(string_view word)
{
    m_name.clear();
    for (size_t i = 0; i < word.size(); ++i) {
        if (word[i] == '\\' && i + 1 < word.size())
            m_name += word[++i];
        else
            m_name += word[i] == m_divider ? '/' : word[i];
    }
    return !m_name.empty();
}

bool SaifReader::readInstance(quint32 parent, int depth)
{
    if (depth > Declarations::MAXIMUM_DEPTH)
        fail("instances nest deeper than 256");
    // With its type in front or without: the last word is its name.
    Token next = token();
    std::string name;
    for (; next == Word || next == Text; next = token())
        name = m_word;
    plainName(name);
    const quint32 scope = m_name.empty() ? parent : m_declarations.scope(parent, m_name);
    return forEachInside(next, [&] {
        if (m_word == "INSTANCE" || m_word == "VIRTUAL_INSTANCE")
            return readInstance(scope, depth + 1);
        const bool areNets = m_word == "NET" || m_word == "PORT";
        return areNets ? forEachInside(token(), [&] { return readNet(scope); }) : skip();
    });
}

bool SaifReader::readNet(quint32 scope)
{
    if (m_word == "COND" || m_word == "IOPATH" || m_word == "LEAKAGE")
        return skip();
    plainName(m_word);
    SaifCounts counts;
    const bool isRead =
        m_counts ? forEachInside(token(), [&] { return readCount(&counts); }) : skip();
    if (isRead)
        declare(scope, counts);
    return isRead;
}

/// One entry such as "(T0 500)".
bool SaifReader::readCount(SaifCounts *counts)
{
    const std::string kind(m_word);
    const Token value = token();
    if (value == End || value == Close)
        return value == Close;
    if (value == Open)
        return skip() && skip();
    if (value == Word) {
        if (kind == "T0")
            counts->low = toDouble(m_word);
        else if (kind == "T1")
            counts->high = toDouble(m_word);
        else if (kind == "TC")
            counts->toggles = toCount(m_word);
        else if (kind == "IG")
            counts->glitches = toCount(m_word);
        else if (kind == "TX" || kind == "TZ" || kind == "TB")
            counts->unknown += toDouble(m_word);
    }
    return skip();
}

void SaifReader::declare(quint32 scope, const SaifCounts &counts)
{
    const Reference reference = parseReference(m_name, {}, 1);
    if (!m_declarations.addVariable(scope, reference, 1, m_signals))
        fail("it declares more than 50 million bits");
    ++m_signals;
    if (m_counts)
        m_file.counts.push_back(counts);
}

} // namespace

void readSaif(QIODevice *device, bool counts, ActivityFile *file)
{
    SaifReader(device, counts, file).read();
}

} // namespace Check
