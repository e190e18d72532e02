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
    bool readFile();
    bool readHeader(string_view keyword);
    bool readInstance(quint32 parent, int depth);
    bool readNets(quint32 scope);
    bool readNet(quint32 scope);
    bool readCounts(SaifCounts *counts);
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

bool SaifReader::readFile()
{
    if (token() != Open || token() != Word)
        return false;
    for (;;) {
        const Token next = token();
        if (next == End)
            return false;
        if (next == Close)
            return true;
        if (next != Open)
            continue;
        if (token() != Word)
            return false;
        const std::string keyword(m_word);
        if (keyword == "INSTANCE" || keyword == "VIRTUAL_INSTANCE") {
            if (!readInstance(0, 1))
                return false;
        } else if (!readHeader(keyword)) {
            return false;
        }
    }
}

bool SaifReader::readHeader(string_view keyword)
{
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
    for (;; next = token()) {
        if (next == End)
            return false;
        if (next == Close)
            return true;
        if (next != Open)
            continue;
        if (token() != Word)
            return false;
        bool isRead = false;
        if (m_word == "INSTANCE" || m_word == "VIRTUAL_INSTANCE")
            isRead = readInstance(scope, depth + 1);
        else if (m_word == "NET" || m_word == "PORT")
            isRead = readNets(scope);
        else
            isRead = skip();
        if (!isRead)
            return false;
    }
}

bool SaifReader::readNets(quint32 scope)
{
    for (;;) {
        switch (token()) {
        case End:
            return false;
        case Close:
            return true;
        case Open:
            if (!readNet(scope))
                return false;
            break;
        default:
            break;
        }
    }
}

bool SaifReader::readNet(quint32 scope)
{
    if (token() != Word)
        return skip();
    if (m_word == "COND" || m_word == "IOPATH" || m_word == "LEAKAGE")
        return skip();
    plainName(m_word);
    SaifCounts counts;
    if (!(m_counts ? readCounts(&counts) : skip()))
        return false;
    declare(scope, counts);
    return true;
}

bool SaifReader::readCounts(SaifCounts *counts)
{
    for (;;) {
        const Token next = token();
        if (next == End)
            return false;
        if (next == Close)
            return true;
        if (next != Open)
            continue;
        if (token() != Word)
            return false;
        const char kind[2] = {m_word.size() == 2 ? m_word[0] : '\0',
                              m_word.size() == 2 ? m_word[1] : '\0'};
        const Token value = token();
        if (value == End)
            return false;
        if (value == Close)
            continue;
        if (value == Word && kind[0] == 'T') {
            switch (kind[1]) {
            case '0':
                counts->low = toDouble(m_word);
                break;
            case '1':
                counts->high = toDouble(m_word);
                break;
            case 'C':
                counts->toggles = toCount(m_word);
                break;
            case 'X':
            case 'Z':
            case 'B':
                counts->unknown += toDouble(m_word);
                break;
            default:
                break;
            }
        } else if (value == Word && kind[0] == 'I' && kind[1] == 'G') {
            counts->glitches = toCount(m_word);
        } else if (value == Open && !skip()) {
            return false;
        }
        if (!skip())
            return false;
    }
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
