#include "recorddata.h"

#include "designdata.h"

#include "config/filenames.h"

#include <QFile>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>

using namespace VLT;

namespace {

QString text(const char *name)
{
    return QString::fromLatin1(name);
}

/// Begins a file; the caller writes the sections and ends the two elements that are open.
void begin(QXmlStreamWriter &writer)
{
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeDTD(DOCTYPE);
    writer.writeStartElement(NODE_CONFIG);
    writer.writeTextElement(NODE_VERSION, VERSION);
}

using Attributes = std::initializer_list<QPair<QString, QString>>;

void element(QXmlStreamWriter &writer, const QString &name, Attributes attributes)
{
    writer.writeStartElement(name);
    for (const auto &[attribute, value] : attributes)
        writer.writeAttribute(attribute, value);
    writer.writeEndElement();
}

QString name(const char *kind, int i)
{
    return QStringLiteral("u_core%1/u_stage%2/%3_%4")
        .arg(QString::number(i % 24), QString::number(i % 7), text(kind), QString::number(i));
}

} // namespace

QByteArray flipFlopFile(const QStringList &names)
{
    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    begin(writer);
    writer.writeStartElement(NODE_LOCAL_ENABLE);
    for (const QString &name : names)
        element(writer, NODE_INSTANCE, {{ATTR_NAME, name}});
    writer.writeEndElement();
    writer.writeEndElement();
    return bytes;
}

QByteArray mixedFile(int count, const QString &activity)
{
    const int each = count / 6;
    const QString fifty = QStringLiteral("50");
    const QString value = QStringLiteral("12.5");
    const auto rows = [each](auto &&row) {
        for (int i = 0; i < each; ++i)
            row(i);
    };

    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    begin(writer);

    writer.writeStartElement(NODE_NET_RATE);
    writer.writeAttribute(ATTR_TYPE, QStringLiteral("toggle"));
    rows([&](int i) {
        element(writer, NODE_NET, {{ATTR_NAME, name("net", i)}, {ATTR_VALUE, value}});
    });
    writer.writeEndElement();

    writer.writeStartElement(NODE_SIMU_FILE);
    rows([&](int i) {
        element(writer, NODE_FILE,
                {{ATTR_TYPE, QStringLiteral("vcd")},
                 {ATTR_NAME, activity},
                 {ATTR_ENTITY, name("unit", i)},
                 {ATTR_START_TIME, QString::number(i)},
                 {ATTR_END_TIME, QString::number(i + 100)},
                 {ATTR_TIME_UNIT, QStringLiteral("ns")}});
    });
    writer.writeTextElement(NODE_FILTER_GLITCH, QStringLiteral("FALSE"));
    writer.writeEndElement();

    writer.writeStartElement(NODE_GLOBAL_ENABLE);
    writer.writeAttribute(ATTR_VALUE, fifty);
    rows([&](int i) {
        element(writer, NODE_CLOCK,
                {{ATTR_NAME, QStringLiteral("clk_%1").arg(i)},
                 {ATTR_VALUE, value},
                 {ATTR_QUAD1, fifty},
                 {ATTR_QUAD3, value}});
    });
    writer.writeEndElement();

    writer.writeStartElement(NODE_PORT_OUT_ENABLE);
    rows([&](int i) {
        element(writer, NODE_PORT,
                {{ATTR_NAME, QStringLiteral("bus[%1]").arg(i)},
                 {ATTR_OUT_ENABLE, fifty},
                 {ATTR_CAPACITY, value},
                 {ATTR_TYPE, QString::number(i % 3)}});
    });
    writer.writeEndElement();

    writer.writeStartElement(NODE_BSRAM_ENABLE);
    for (const QString &attribute :
         {ATTR_CLOCK_ENABLE, ATTR_READ_PROBABILITY, ATTR_WRITE_PROBABILITY})
        writer.writeAttribute(attribute, fifty);
    rows([&](int i) {
        element(writer, NODE_BSRAM,
                {{ATTR_NAME, name("ram", i)},
                 {ATTR_A_CLK_ENABLE, value},
                 {ATTR_B_CLK_ENABLE, fifty},
                 {ATTR_A_WRITE, value},
                 {ATTR_B_READ, fifty},
                 {ATTR_TYPE, QStringLiteral("2")}});
    });
    writer.writeEndElement();

    writer.writeStartElement(NODE_LOCAL_ENABLE);
    rows([&](int i) {
        element(writer, NODE_INSTANCE, {{ATTR_NAME, name("reg", i)}, {ATTR_VALUE, value}});
    });
    writer.writeEndElement();

    writer.writeEndElement();
    return bytes;
}

QByteArray designFile(int count, int cells)
{
    const QString value = QStringLiteral("12.5");
    // Instances 20 and 21 of 24 were called otherwise, and every twelfth cell had another number.
    const auto before = [](QString name, int i) {
        if (i / 32 % 24 == 20 || i / 32 % 24 == 21)
            return name.replace(QLatin1String("u_core"), QLatin1String("u_cpu"));
        return i % 12 == 0 ? name + QLatin1String("_gone") : name;
    };

    QByteArray bytes;
    QXmlStreamWriter writer(&bytes);
    begin(writer);
    writer.writeStartElement(NODE_NET_RATE);
    writer.writeAttribute(ATTR_TYPE, QStringLiteral("toggle"));
    for (int record = 0; record < count * 2 / 5; ++record) {
        const int i = int(qint64(record) * cells * 5 / (count * 2));
        const QString name = before(netName(i), i) + QStringLiteral("[%1]").arg(i % 32);
        element(writer, NODE_NET, {{ATTR_NAME, name}, {ATTR_VALUE, value}});
    }
    writer.writeEndElement();
    writer.writeStartElement(NODE_PORT_OUT_ENABLE);
    for (int i = 0; i < 32; ++i)
        element(writer, NODE_PORT,
                {{ATTR_NAME, QStringLiteral("result[%1]").arg(i)}, {ATTR_CAPACITY, value}});
    writer.writeEndElement();
    writer.writeStartElement(NODE_LOCAL_ENABLE);
    for (int record = 0; record < count * 3 / 5; ++record) {
        const int i = record / 2 * 5 + 3 + record % 2; // the flip-flops
        element(writer, NODE_INSTANCE, {{ATTR_NAME, before(cellName(i), i)}, {ATTR_VALUE, value}});
    }
    writer.writeEndElement();
    writer.writeEndElement();
    return bytes;
}

TokenCopy::TokenCopy(const QByteArray &document)
{
    QXmlStreamReader reader(document);
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType type = reader.readNext();
        if (type == QXmlStreamReader::StartElement) {
            Token token{Token::Start, reader.name().toString(), {}};
            const QXmlStreamAttributes attributes = reader.attributes();
            for (const QXmlStreamAttribute &attribute : attributes)
                token.attributes.append(
                    {attribute.name().toString(), attribute.value().toString()});
            m_tokens.append(token);
        } else if (type == QXmlStreamReader::Characters && !reader.isWhitespace()) {
            m_tokens.append({Token::Text, reader.text().toString(), {}});
        } else if (type == QXmlStreamReader::EndElement) {
            m_tokens.append({Token::End, {}, {}});
        }
    }
}

bool TokenCopy::writeTo(const QString &path) const
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text))
        return false;
    QXmlStreamWriter writer(&file);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeDTD(DOCTYPE);
    for (const Token &token : m_tokens) {
        switch (token.kind) {
        case Token::Start:
            writer.writeStartElement(token.text);
            for (const auto &[name, value] : token.attributes)
                writer.writeAttribute(name, value);
            break;
        case Token::Text:
            writer.writeCharacters(token.text);
            break;
        case Token::End:
            writer.writeEndElement();
            break;
        }
    }
    file.close();
    return file.error() == QFile::NoError;
}
