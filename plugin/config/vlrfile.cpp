#include "config/vlrfile.h"

#include "config/filenames.h"

#include <QDomDocument>
#include <QIODevice>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

namespace VLT {

namespace {

constexpr int MAX_DEPTH = 256;

/// Appends to `bytes`, which is not owned. A writer writes in small pieces, and QBuffer takes
/// longer to position for each than to store it.
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

/// Does not end the document, because the file has no line break after the root element.
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
    // References inside the declarations are expanded before the declarations can be inspected.
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
        // A file that ends before its root element may be truncated inside a comment, for example.
        // It is not if a root element can follow.
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

VlrContent parseFile(const QByteArray &bytes, QDomDocument *document, QString *error, int *line)
{
    const VlrContent content = inspectFile(bytes);
    // On an error the parser leaves a partial tree, which the next save would write.
    if (content == VlrContent::Document && !document->setContent(bytes, error, line))
        return VlrContent::Invalid;
    return content;
}

bool composeFile(const std::function<void(QXmlStreamWriter *)> &writeSections, QByteArray *bytes)
{
    bytes->clear();
    Appender device(bytes);
    QXmlStreamWriter writer(&device);
    writeEnvelope(&writer, [&writeSections](QXmlStreamWriter *content) {
        content->writeTextElement(NODE_VERSION, VERSION);
        writeSections(content);
    });
    return !writer.hasError();
}

QByteArray emptyFile()
{
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    writeEnvelope(&writer, [](QXmlStreamWriter *) {});
    return bytes;
}

} // namespace VLT
