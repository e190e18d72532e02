#include "check/names/recordscanner.h"

#include "config/filenames.h"

#include <QRegularExpression>
#include <QSet>
#include <QTextCodec>
#include <QXmlStreamReader>

namespace Check {

namespace {

bool isSpace(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\t') || c == QLatin1Char('\n') ||
           c == QLatin1Char('\r');
}

/// The attribute that holds the object's path in the records of a section; empty for an element
/// that is no record.
QString nameAttribute(const QString &section, const QString &element)
{
    if (section == VLT::NODE_SIMU_FILE && element == VLT::NODE_FILE)
        return VLT::ATTR_ENTITY;
    const bool isRecord = (section == VLT::NODE_NET_RATE && element == VLT::NODE_NET) ||
                          (section == VLT::NODE_GLOBAL_ENABLE && element == VLT::NODE_CLOCK) ||
                          (section == VLT::NODE_PORT_OUT_ENABLE && element == VLT::NODE_PORT) ||
                          (section == VLT::NODE_BSRAM_ENABLE && element == VLT::NODE_BSRAM) ||
                          (section == VLT::NODE_LOCAL_ENABLE && element == VLT::NODE_INSTANCE);
    return isRecord ? VLT::ATTR_NAME : QString();
}

/// Walks over the markup and keeps what the records need of it.
class Walk
{
public:
    explicit Walk(const QString &text)
        : m_text(text)
    {
    }

    struct Record
    {
        QString section;
        int begin;
        int end;
        int nameBegin = -1;
        int nameEnd = -1;
    };

    QVector<Record> run()
    {
        while ((m_at = m_text.indexOf(QLatin1Char('<'), m_at)) >= 0) {
            if (startsWith("<!--"))
                skipTo("-->");
            else if (startsWith("<![CDATA["))
                skipTo("]]>");
            else if (startsWith("<?"))
                skipTo("?>");
            else if (startsWith("<!"))
                skipDeclaration();
            else if (startsWith("</"))
                endElement();
            else
                startElement();
        }
        return m_records;
    }

private:
    QChar at(int i) const { return i < m_text.size() ? m_text.at(i) : QChar(); }
    bool startsWith(const char *start) const
    {
        const QLatin1String text(start);
        return m_text.midRef(m_at, text.size()) == text;
    }

    void skipTo(const char *end)
    {
        const QLatin1String text(end);
        const int found = m_text.indexOf(text, m_at + 2);
        m_at = found < 0 ? m_text.size() : found + text.size();
    }

    /// A document type, with whatever is between its brackets.
    void skipDeclaration()
    {
        int depth = 0;
        while (m_at < m_text.size()) {
            const QChar c = at(m_at);
            if (startsWith("<!--")) {
                skipTo("-->");
                continue;
            }
            if (startsWith("<?")) {
                skipTo("?>");
                continue;
            }
            if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
                const int end = m_text.indexOf(c, m_at + 1);
                m_at = end < 0 ? m_text.size() : end;
            }
            depth += c == QLatin1Char('<') ? 1 : c == QLatin1Char('>') ? -1 : 0;
            ++m_at;
            if (depth == 0)
                return;
        }
    }

    void endElement()
    {
        skipTo(">");
        if (!m_path.isEmpty())
            m_path.removeLast();
        finishRecord();
    }

    void finishRecord()
    {
        if (m_open >= 0 && m_path.size() == 2) {
            m_records[m_open].end = m_at;
            m_open = -1;
        }
        if (m_path.size() == 1 && !m_section.isEmpty()) {
            m_seen.insert(m_section);
            m_section.clear();
        }
    }

    void startElement()
    {
        const int begin = m_at++;
        const QString name = takeName();
        if (m_path.size() == 1 && !m_seen.contains(name))
            m_section = name;
        const bool isChild = m_path.size() == 2 && !m_section.isEmpty();
        const QString wanted = isChild ? nameAttribute(m_section, name) : QString();
        Record record{name, begin, begin};
        while (m_at < m_text.size() && at(m_at) != QLatin1Char('>')) {
            if (isSpace(at(m_at)) || at(m_at) == QLatin1Char('/')) {
                ++m_at;
                continue;
            }
            const QString attribute = takeName();
            while (m_at < m_text.size() && at(m_at) != QLatin1Char('"') &&
                   at(m_at) != QLatin1Char('\''))
                ++m_at;
            const int value = m_at + 1;
            const int end = m_text.indexOf(at(m_at), value);
            m_at = end < 0 ? m_text.size() : end + 1;
            if (!wanted.isEmpty() && attribute == wanted) {
                record.nameBegin = value;
                record.nameEnd = m_at - 1;
            }
        }
        const bool isEmpty = at(m_at - 1) == QLatin1Char('/');
        ++m_at;
        if (!wanted.isEmpty()) {
            m_open = m_records.size();
            m_records.append(record);
        }
        m_path.append(name);
        if (isEmpty) {
            m_path.removeLast();
            finishRecord();
        }
    }

    QString takeName()
    {
        const int begin = m_at;
        while (m_at < m_text.size() && !isSpace(at(m_at)) && at(m_at) != QLatin1Char('=') &&
               at(m_at) != QLatin1Char('/') && at(m_at) != QLatin1Char('>'))
            ++m_at;
        return m_text.mid(begin, m_at - begin);
    }

    const QString &m_text;
    int m_at = 0;
    QStringList m_path;
    QString m_section; // the open element below the root, unless one of its name came before
    QSet<QString> m_seen;
    int m_open = -1; // record that is open
    QVector<Record> m_records;
};

} // namespace

RecordScanner::RecordScanner(const QByteArray &bytes)
    : m_bytes(bytes)
{
    findEncoding();
    if (!m_codec)
        return;
    if (m_width == 1) {
        m_text = QString::fromLatin1(bytes); // markup is ASCII in all that is supported
    } else {
        QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
        m_text = m_codec->toUnicode(bytes.constData() + m_offset, bytes.size() - m_offset, &state);
    }
}

void RecordScanner::findEncoding()
{
    const auto starts = [this](char first, char second) {
        return m_bytes.size() >= 2 && m_bytes[0] == first && m_bytes[1] == second;
    };
    const bool marked = starts('\xff', '\xfe') || starts('\xfe', '\xff');
    const bool little = starts('\xff', '\xfe') || starts('<', '\0');
    if (marked || little || starts('\0', '<')) {
        m_width = 2;
        m_offset = marked ? 2 : 0;
        m_codec = QTextCodec::codecForName(little ? "UTF-16LE" : "UTF-16BE");
        return;
    }
    QXmlStreamReader reader(m_bytes);
    QByteArray name = "UTF-8";
    if (reader.readNext() == QXmlStreamReader::StartDocument &&
        !reader.documentEncoding().isEmpty())
        name = reader.documentEncoding().toLatin1();
    QTextCodec *codec = QTextCodec::codecForName(name);
    // Others are stateful, or use the bytes of the markup for other characters.
    static const QRegularExpression sane(
        QStringLiteral("^(utf-8|us-ascii|iso-8859-.*|latin.*|windows-125.|cp125.|koi8-.|tis-620|"
                       "iso 8859-.*|ibm8..|system)$"),
        QRegularExpression::CaseInsensitiveOption);
    if (codec && sane.match(QString::fromLatin1(codec->name())).hasMatch())
        m_codec = codec;
}

QVector<ScannedRecord> RecordScanner::records() const
{
    QVector<ScannedRecord> records;
    const QVector<Walk::Record> found = Walk(m_text).run();
    for (const Walk::Record &record : found) {
        ScannedRecord scanned{record.section, bytesOf(record.begin, record.end), {}};
        scanned.hasName = record.nameBegin >= 0;
        if (scanned.hasName)
            scanned.name = bytesOf(record.nameBegin, record.nameEnd);
        records.append(scanned);
    }
    return records;
}

QString RecordScanner::text(const Span &span) const
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString raw =
        m_codec->toUnicode(m_bytes.constData() + span.begin, span.end - span.begin, &state);
    QString text;
    for (int i = 0; i < raw.size(); ++i) {
        if (raw.at(i) != QLatin1Char('&')) {
            const QChar c = raw.at(i);
            // Line breaks and tabs in an attribute count as blanks, "\r\n" as one.
            if (c == QLatin1Char('\r') && i + 1 < raw.size() && raw.at(i + 1) == QLatin1Char('\n'))
                continue;
            text += isSpace(c) ? QLatin1Char(' ') : c;
            continue;
        }
        const int end = raw.indexOf(QLatin1Char(';'), i);
        const QString name = raw.mid(i + 1, end - i - 1);
        if (name.startsWith(QLatin1Char('#'))) {
            const bool isHex = name.startsWith(QLatin1String("#x"));
            const uint code = isHex ? name.midRef(2).toUInt(nullptr, 16) : name.midRef(1).toUInt();
            text += QString::fromUcs4(&code, 1);
        } else {
            text += name == QLatin1String("lt")     ? QLatin1Char('<')
                    : name == QLatin1String("gt")   ? QLatin1Char('>')
                    : name == QLatin1String("quot") ? QLatin1Char('"')
                    : name == QLatin1String("apos") ? QLatin1Char('\'')
                                                    : QLatin1Char('&');
        }
        i = end;
    }
    return text;
}

QVector<Span> RecordScanner::characters(const Span &span) const
{
    const bool isUtf8 = m_codec->name() == "UTF-8";
    const int limit = (span.end - m_offset) / m_width;
    const auto goesOn = [&](int i) {
        return m_width == 2 ? m_text.at(i).isLowSurrogate()
                            : isUtf8 && (m_text.at(i).unicode() & 0xc0) == 0x80;
    };
    QVector<Span> characters;
    for (int i = (span.begin - m_offset) / m_width; i < limit;) {
        const int begin = i++;
        if (m_text.at(begin) == QLatin1Char('&')) {
            while (i < limit && m_text.at(i - 1) != QLatin1Char(';'))
                ++i;
        }
        while (i < limit && goesOn(i))
            ++i;
        characters.append(bytesOf(begin, i));
    }
    return characters;
}

QByteArray RecordScanner::spelled(const QString &text) const
{
    QString escaped;
    const QVector<uint> codes = text.toUcs4();
    for (const uint code : codes) {
        const QString c = QString::fromUcs4(&code, 1);
        if (code == '<')
            escaped += QLatin1String("&lt;");
        else if (code == '>')
            escaped += QLatin1String("&gt;");
        else if (code == '&')
            escaped += QLatin1String("&amp;");
        else if (code == '"')
            escaped += QLatin1String("&quot;");
        else if (code < ' ' || code == '\'' || m_codec->toUnicode(m_codec->fromUnicode(c)) != c)
            escaped += QStringLiteral("&#%1;").arg(code);
        else
            escaped += c;
    }
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    return m_codec->fromUnicode(escaped.constData(), escaped.size(), &state);
}

Span RecordScanner::withLine(const Span &element) const
{
    int begin = (element.begin - m_offset) / m_width;
    int end = (element.end - m_offset) / m_width;
    const auto isBlank = [this](int i) {
        return m_text.at(i) == QLatin1Char(' ') || m_text.at(i) == QLatin1Char('\t');
    };
    const auto isBreak = [this](int i) {
        return m_text.at(i) == QLatin1Char('\n') || m_text.at(i) == QLatin1Char('\r');
    };
    while (begin > 0 && isBlank(begin - 1))
        --begin;
    while (end < m_text.size() && isBlank(end))
        ++end;
    if (begin == 0 || !isBreak(begin - 1) || end >= m_text.size() || !isBreak(end))
        return element;
    const bool isPair = m_text.at(end) == QLatin1Char('\r') && end + 1 < m_text.size() &&
                        m_text.at(end + 1) == QLatin1Char('\n');
    return bytesOf(begin, end + (isPair ? 2 : 1));
}

} // namespace Check
