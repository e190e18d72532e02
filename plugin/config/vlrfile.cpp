#include "config/vlrfile.h"

#include "config/filenames.h"

#include <QIODevice>
#include <QTextCodec>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace VLT {

namespace {

constexpr int MAX_DEPTH = 256;

/// Adds what is written to it to the end of `bytes`, which is not owned. A writer hands its text
/// over in small pieces, and a QBuffer takes longer to find its place for one than to store it.
class Appender : public QIODevice
{
public:
    explicit Appender(QByteArray *bytes)
        : m_bytes(bytes)
    {
        open(QIODevice::WriteOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *, qint64) override { return -1; }

    qint64 writeData(const char *data, qint64 size) override
    {
        m_bytes->append(data, static_cast<int>(size));
        return size;
    }

private:
    QByteArray *m_bytes;
};

/// Finds the text that made a writer fail. The writer passes every text on in one piece, after it
/// has dropped forbidden characters and raised its error flag.
class OffenderFinder : public QIODevice
{
public:
    OffenderFinder()
        : m_writer(this)
    {
        open(QIODevice::WriteOnly);
        // UTF-16 lets half a surrogate pair through, which would stop an UTF-8 writer.
        m_writer.setCodec("UTF-16LE");
    }

    QXmlStreamWriter *writer() { return &m_writer; }
    QString offender() const { return m_offender; }

protected:
    qint64 readData(char *, qint64) override { return -1; }

    qint64 writeData(const char *data, qint64 size) override
    {
        if (!m_found) {
            const QString piece = QString::fromUtf16(reinterpret_cast<const char16_t *>(data),
                                                     static_cast<int>(size / 2));
            m_found = m_writer.hasError() || !piece.isValidUtf16();
            if (m_found && !piece.startsWith(QLatin1Char('"')) &&
                !piece.startsWith(QLatin1Char('<')))
                m_offender = unescaped(piece);
        }
        return size;
    }

private:
    static QString unescaped(QString text)
    {
        return text.replace(QLatin1String("&lt;"), QLatin1String("<"))
            .replace(QLatin1String("&gt;"), QLatin1String(">"))
            .replace(QLatin1String("&quot;"), QLatin1String("\""))
            .replace(QLatin1String("&amp;"), QLatin1String("&"));
    }

    QXmlStreamWriter m_writer;
    QString m_offender;
    bool m_found = false;
};

/// The document is not ended: the file has no line break after the root element.
void writeEnvelope(QXmlStreamWriter *writer,
                   const std::function<void(QXmlStreamWriter *)> &writeContent)
{
    writer->setAutoFormatting(true);
    writer->writeStartDocument();
    writer->writeDTD(DOCTYPE);
    writer->writeStartElement(NODE_CONFIG);
    writeContent(writer);
    writer->writeEndElement();
}

} // namespace

VlrContent inspectFile(const QByteArray &bytes)
{
    QXmlStreamReader reader(bytes);
    reader.setNamespaceProcessing(false);
    // References inside of the declarations are expanded before those can be looked at.
    reader.setEntityExpansionLimit(0);
    QString docType;
    bool hasRoot = false;
    bool probed = false;
    int depth = 0;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::DTD:
            // A few kilobytes of references to entities can expand to gigabytes.
            if (!reader.entityDeclarations().isEmpty())
                return VlrContent::Invalid;
            docType = reader.dtdName().toString();
            break;
        case QXmlStreamReader::StartElement:
            hasRoot = hasRoot || !probed;
            if (++depth > MAX_DEPTH)
                return VlrContent::Invalid;
            break;
        case QXmlStreamReader::EndElement:
            --depth;
            break;
        default:
            break;
        }
        // A file that ends before its root element may still have something unfinished in it. It
        // has not when a root element can follow.
        if (reader.error() == QXmlStreamReader::PrematureEndOfDocumentError && !hasRoot &&
            !probed) {
            probed = true;
            reader.addData(QByteArrayLiteral("<Config/>"));
        }
    }
    if (reader.hasError() || docType != DOCTYPE_NAME)
        return VlrContent::Invalid;
    return hasRoot ? VlrContent::Document : VlrContent::NoRoot;
}

bool composeFile(const std::function<void(QXmlStreamWriter *)> &writeSections, QByteArray *bytes,
                 QString *offender)
{
    const auto writeContent = [&writeSections](QXmlStreamWriter *writer) {
        writer->writeTextElement(NODE_VERSION, VERSION);
        writeSections(writer);
    };
    bytes->clear();
    Appender device(bytes);
    QXmlStreamWriter writer(&device);
    writeEnvelope(&writer, writeContent);
    if (!writer.hasError())
        return true;
    OffenderFinder finder;
    writeEnvelope(finder.writer(), writeContent);
    *offender = finder.offender();
    return false;
}

QByteArray emptyFile()
{
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    writeEnvelope(&writer, [](QXmlStreamWriter *) {});
    return bytes;
}

} // namespace VLT
