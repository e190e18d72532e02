#include "config/vlrfile.h"

#include <QTextCodec>
#include <QXmlStreamWriter>
#include <QtTest>

#include <sys/resource.h>

using VLT::VlrContent;

Q_DECLARE_METATYPE(VLT::VlrContent)

class TestVlrFile : public QObject
{
    Q_OBJECT

private slots:
    void recognizesContent_data();
    void recognizesContent();
    void entitiesAreNotExpanded_data();
    void entitiesAreNotExpanded();
    void writesEnvelope();
};

void TestVlrFile::recognizesContent_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<VlrContent>("content");
    const QByteArray type = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                            "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>";
    const auto nested = [&type](int depth) {
        return type + QByteArray("<a>").repeated(depth) + QByteArray("</a>").repeated(depth);
    };
    const auto add = [](const char *name, const QByteArray &bytes, VlrContent content) {
        QTest::newRow(name) << bytes << content;
    };
    add("new file", type + "\n<Config/>", VlrContent::Document);
    add("other root and version", type + "<Root><Version>7</Version></Root>", VlrContent::Document);
    add("undeclared prefix", type + "<x:Config/>", VlrContent::Document);
    add("deepest", nested(256), VlrContent::Document);
    add("too deep", nested(257), VlrContent::Invalid);
    add("a million levels", nested(1000000), VlrContent::Invalid);
    add("a hundred megabytes", type + "<Config>" + QByteArray(100 << 20, ' ') + "</Config>",
        VlrContent::Document);
    add("an attribute of a megabyte", type + "<Config a='" + QByteArray(1 << 20, 'x') + "'/>",
        VlrContent::Document);
    add("a NUL", type + QByteArray("<Config a='\0'/>", 15), VlrContent::Invalid);
    add("UTF-16 with Windows line ends",
        QTextCodec::codecForName("UTF-16")->fromUnicode(
            QStringLiteral("<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\r\n<Config>\r\n</Config>\r\n")),
        VlrContent::Document);
    add("declarations alone", type, VlrContent::NoRoot);
    add("then blanks, comment, instruction", type + "\n<!-- c --> <?p q?>\n", VlrContent::NoRoot);
    add("comment cut short", type + "<!-- c", VlrContent::Invalid);
    add("instruction cut short", type + "<?p", VlrContent::Invalid);
    add("root cut short", type + "<Conf", VlrContent::Invalid);
    add("contents cut short", type + "<Config><Version>1.0</Version>", VlrContent::Invalid);
    add("text", type + "text", VlrContent::Invalid);
    add("second root", type + "<Config/><Config/>", VlrContent::Invalid);
    add("other case", "<!DOCTYPE tavro_power_analysis_config><Config/>", VlrContent::Invalid);
    add("no document type", "<Config/>", VlrContent::Invalid);
    add("nothing", "", VlrContent::Invalid);
    const auto declared = [](const QByteArray &declarations, const QByteArray &rest) {
        return "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG [" + declarations + "]>" + rest;
    };
    add("declared element", declared("<!ELEMENT Config ANY>", "<Config a='&lt;&#65;'/>"),
        VlrContent::Document);
    add("entity", declared("<!ENTITY e 'x'>", "<Config/>"), VlrContent::Invalid);
    add("parameter entity", declared("<!ENTITY % e ''>", ""), VlrContent::Invalid);
    add("external entity", declared("<!ENTITY e SYSTEM 'e'>", "<Config/>"), VlrContent::Invalid);
    add("not XML", QByteArray("\x7f\x45\x4c\x46\0\0", 6), VlrContent::Invalid);
}

void TestVlrFile::recognizesContent()
{
    QFETCH(QByteArray, bytes);
    QTEST(VLT::inspectFile(bytes), "content");
}

void TestVlrFile::entitiesAreNotExpanded_data()
{
    QTest::addColumn<QByteArray>("declarations");
    QTest::addColumn<QByteArray>("content");
    const QByteArray text = "<!ENTITY e '" + QByteArray(4000, 'x') + "'>";
    const QByteArray uses = QByteArray("&e;").repeated(20000);
    QTest::newRow("content") << text << uses;
    QTest::newRow("default value")
        << text + "<!ATTLIST Config a CDATA '" + uses + "'>" << QByteArray();
}

void TestVlrFile::entitiesAreNotExpanded()
{
    QFETCH(QByteArray, declarations);
    QFETCH(QByteArray, content);
    const auto peak = [] {
        rusage usage = {};
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss / 1024; // MiB
    };
    const QByteArray bytes = "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG [" + declarations +
                             "]><Config>" + content + "</Config>";
    const long before = peak();
    QCOMPARE(VLT::inspectFile(bytes), VlrContent::Invalid);
    QVERIFY2(peak() - before < 50, qPrintable(QString::number(peak() - before)));
}

void TestVlrFile::writesEnvelope()
{
    const auto section = [](QXmlStreamWriter *writer) {
        writer->writeStartElement(QStringLiteral("NetRate"));
        writer->writeEmptyElement(QStringLiteral("Net"));
        writer->writeAttribute(QStringLiteral("name"), QStringLiteral("a<\"\u2103&\n"));
        writer->writeEndElement();
    };
    QByteArray bytes;
    QVERIFY(VLT::composeFile(section, &bytes));
    QCOMPARE(bytes, QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                               "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n"
                               "<Config>\n"
                               "    <Version>1.0</Version>\n"
                               "    <NetRate>\n"
                               "        <Net name=\"a&lt;&quot;\u2103&amp;&#10;\"/>\n"
                               "    </NetRate>\n"
                               "</Config>"));
    QCOMPARE(VLT::inspectFile(bytes), VlrContent::Document);
}

QTEST_APPLESS_MAIN(TestVlrFile)

#include "test_vlrfile.moc"
