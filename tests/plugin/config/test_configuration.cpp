#include "config/configurationfile.h"

#include <QFile>
#include <QtTest>

using namespace VLT;

namespace {

const QByteArray head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n";

QByteArray everySection()
{
    QFile file(QStringLiteral(EVERY_SECTION));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A remark in one line: what, line, element, attribute, text, used.
QString toLine(const FileRemark &remark)
{
    static const char *kinds[] = {"element", "attribute", "repeated", "missing",
                                  "number",  "range",     "choice"};
    return QStringLiteral("%1 %2 %3 %4 %5 %6")
        .arg(QString::fromLatin1(kinds[remark.kind]), QString::number(remark.line), remark.element,
             remark.attribute, remark.text, remark.used)
        .simplified();
}

} // namespace

class TestConfiguration : public QObject
{
    Q_OBJECT

private slots:
    void readsEverySection();
    void savedFileRoundTrips();
    void reportsWhatOpeningChanges_data();
    void reportsWhatOpeningChanges();
    void reportsLineAndCauseOfErrors_data();
    void reportsLineAndCauseOfErrors();
    void namesUnwritableText_data();
    void namesUnwritableText();
};

void TestConfiguration::readsEverySection()
{
    ReadReport report;
    const Configuration c = readConfiguration(everySection(), &report);
    QVERIFY(report.isRead());
    QVERIFY(report.remarks.isEmpty());
    QCOMPARE(c.conditions.tempGrade.value_or(QString()), QStringLiteral("Industrial"));
    QVERIFY(!c.conditions.junctionTemp && !c.conditions.thetaSA);
    QCOMPARE(c.conditions.thetaJB->value, 12.5);
    QCOMPARE(fields(c.rates.records.first()),
             fields(VLT_Rate{QStringLiteral("core/n<1>"), QStringLiteral("12.5")}));
    QVERIFY(c.defaultRates.remaining->unit == RateUnit::Signal);
    QVERIFY(c.files.records.first().isVcd && *c.files.filterGlitch);
    QCOMPARE(c.clocks.records.first().quad4, 0.0F);
    QCOMPARE(c.clocks.records.first().quad2, -1.0F);
    QCOMPARE(c.ports.records.first().type, 1);
    QCOMPARE(c.bsrams.defaults.readProbability, 75.25);
    QCOMPARE(c.dffs.records.last().value, -1.0F);
    QCOMPARE(report.lines.dffs, (QVector<int>{37, 38}));
    QCOMPARE(report.lines.rates, QVector<int>{17});
    QCOMPARE(report.lines.elements.value(QStringLiteral("VCCX")), 9);
    QCOMPARE(report.lines.elements.value(QStringLiteral("FilterGlitch")), 25);
}

void TestConfiguration::savedFileRoundTrips()
{
    ReadReport report;
    QByteArray bytes;
    QString offender;
    const Configuration saved = readConfiguration(everySection(), &report);
    QVERIFY(writeConfiguration(saved, &bytes, &offender));
    QCOMPARE(bytes, everySection());

    // What is absent stays so, and a theta that is not given does not become a number.
    const QByteArray sparse = head + "<Config>\n    <Version>1.0</Version>\n"
                                     "    <CustomThetaJA>NA</CustomThetaJA>\n"
                                     "    <LocalEnable/>\n</Config>";
    const Configuration read = readConfiguration(sparse, &report);
    QVERIFY(read != saved);
    QVERIFY(!read.conditions.thetaJA->given && !read.clocks.present && read.dffs.present);
    QVERIFY(writeConfiguration(read, &bytes, &offender));
    QCOMPARE(bytes, sparse);
    QVERIFY(readConfiguration(bytes, &report) == read);
}

void TestConfiguration::reportsWhatOpeningChanges_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("remarks");
    const auto add = [](const char *name, const QByteArray &content, const char *remarks) {
        QTest::newRow(name) << content << QString::fromLatin1(remarks);
    };
    add("unknown element", "<Vcc>1</Vcc>", "element 4 Vcc");
    add("unknown attribute", "<LocalEnable><Instance name='a' Value='2'/></LocalEnable>",
        "attribute 4 Instance Value 2");
    add("second section", "<LocalEnable/>\n<LocalEnable><New/></LocalEnable>",
        "repeated 5 LocalEnable");
    add("default missing", "<GlobalEnable/>", "missing 4 GlobalEnable value 0");
    add("field without a number", "<CustomThetaSA>x</CustomThetaSA>",
        "number 4 CustomThetaSA x 0.001");
    add("not given", "<CustomThetaSA>NA</CustomThetaSA>", "");
    add("not finite", "<AmbientTemp>inf</AmbientTemp>", "number 4 AmbientTemp inf 0");
    add("field beyond its limit", "<GlobalEnable value='101'/>",
        "range 4 GlobalEnable value 101 100");
    add("limit of the grade", "<TempGrade>industrial</TempGrade><JunctionTemp>110</JunctionTemp>",
        "range 4 JunctionTemp 110 100");
    add("limit without a grade", "<JunctionTemp>140</JunctionTemp>", "");
    add("cell without a number", "<LocalEnable><Instance name='a' value='12,5'/></LocalEnable>",
        "number 4 Instance value 12,5 0");
    add("cell beyond its limit", "<LocalEnable><Instance name='a' value='1e3'/></LocalEnable>",
        "range 4 Instance value 1e3 1e3");
    add("cell that counts as not set", "<LocalEnable><Instance name='a' value='-3'/></LocalEnable>",
        "range 4 Instance value -3");
    add("rate that is no number", "<NetRate type='toggle'><Net name='a' value='x'/></NetRate>",
        "number 4 Net value x x");
    add("type", "<PortOutEnable><Port name='a' type='4'/><Port name='b'/></PortOutEnable>",
        "range 4 Port type 4 4|missing 4 Port type 0");
    add("choice", "<AirFlow>150</AirFlow><HeatSink>none</HeatSink><Process>worst</Process>",
        "choice 4 AirFlow 150 0|choice 4 HeatSink none");
}

void TestConfiguration::reportsWhatOpeningChanges()
{
    QFETCH(QByteArray, content);
    ReadReport report;
    readConfiguration(head + "<Config>\n" + content + "\n</Config>", &report);
    QVERIFY(report.isRead());
    QStringList lines;
    for (const FileRemark &remark : qAsConst(report.remarks))
        lines.append(toLine(remark));
    QTEST(lines.join(QLatin1Char('|')), "remarks");
}

void TestConfiguration::reportsLineAndCauseOfErrors_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("line");
    QTest::addColumn<QString>("cause");
    QTest::newRow("cut short") << head + "<Config>\n<VCC>" << 4 << QStringLiteral("document");
    QTest::newRow("other type") << QByteArray("<!DOCTYPE html>\n<Config/>") << 0
                                << QStringLiteral("TAVRO_POWER_ANALYSIS_CONFIG");
    QTest::newRow("too deep") << head + QByteArray("<a>").repeated(300) +
                                     QByteArray("</a>").repeated(300)
                              << 0 << QStringLiteral("nested");
    QTest::newRow("only for the look-through")
        << head + "<Config>\n<GlobalEnable \xc2\xa0value='1'/></Config>" << 4 << QString();
}

void TestConfiguration::reportsLineAndCauseOfErrors()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, cause);
    ReadReport report;
    QVERIFY(readConfiguration(bytes, &report) == Configuration());
    QVERIFY(!report.isRead());
    QTEST(report.errorLine, "line");
    QVERIFY2(report.error.contains(cause) && !report.error.isEmpty(), qPrintable(report.error));
}

void TestConfiguration::namesUnwritableText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("named");
    const QString half = QStringLiteral("c") + QChar(0xd800);
    QTest::newRow("control character")
        << QStringLiteral("top/\x01<a>") << QStringLiteral("top/<a>");
    QTest::newRow("noncharacter") << QStringLiteral("b\uFFFE&") << QStringLiteral("b&");
    QTest::newRow("half a surrogate pair") << half << half;
    QTest::newRow("nothing else") << QStringLiteral("\x02") << QString();
}

void TestConfiguration::namesUnwritableText()
{
    QFETCH(QString, text);
    Configuration c;
    c.dffs.records = {{QStringLiteral("good\t"), 1}, {text, 1}, {QStringLiteral("\x03"), 1}};
    for (int place = 0; place < 2; ++place) { // the second time earlier in the file
        QByteArray bytes;
        QString offender;
        QVERIFY(!writeConfiguration(c, &bytes, &offender));
        QTEST(offender, "named");
        c.dffs.records[1].name = QStringLiteral("\x04z");
        c.files.records = {{QStringLiteral("a.vcd"), text, true, {}, {}, {}}};
    }
    QVERIFY(!unwritableText(Configuration()));
}

QTEST_APPLESS_MAIN(TestConfiguration)

#include "test_configuration.moc"
