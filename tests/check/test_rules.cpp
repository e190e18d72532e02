#include "check/rules/rules.h"

#include "document/vltview.h"
#include "frame/vltsettingplugin.h"
#include "frame/vltviewmanager.h"
#include "host/nlsdata/readnetlist.h"
#include "support/testhost.h"

#include "nlsdata/netlist.h"

#include <QtTest>

using namespace Check;

class TestRules : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_plugin.initialize()); }
    void cleanupTestCase() { m_plugin.shutDown(); }

    void everyRule_data();
    void everyRule();
    void everyRuleHasARow();
    void openingDoesWhatIsSaid_data();
    void openingDoesWhatIsSaid();
    void unreadableInputs();
    void disabledRules();

private:
    VLT::VLTSettingPlugin m_plugin;
    QSet<QString> m_tried;
};

namespace {

const QByteArray docType = "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n";

QByteArray fileOf(const QByteArray &elements)
{
    return docType + "<Config>\n<Version>1.0</Version>\n" + elements + "</Config>";
}

/// "rule@line section#ordinal" of every finding.
QStringList shortForms(const QVector<Finding> &findings)
{
    QStringList result;
    for (const Finding &finding : findings)
        result << QStringLiteral("%1@%2 %3#%4")
                      .arg(QLatin1String(finding.rule->id), QString::number(finding.line),
                           finding.section, QString::number(finding.ordinal));
    return result;
}

QVector<Finding> check(const TestHost &host, const QByteArray &bytes, const QString &device = {},
                       const QSet<QString> &disabled = {})
{
    DesignInput design;
    design.device = device;
    NlsData::ReadOptions options;
    options.allNames = true;
    design.netlist = NlsData::readNetlist(host.netlistPath(), nullptr, options);
    design.names = std::make_shared<DesignNames>(*design.netlist);
    const QString path = host.write(QStringLiteral("power.vlr"), bytes);
    return checkConfiguration(readConfigurationInput(path), design, disabled);
}

} // namespace

void TestRules::everyRule_data()
{
    QTest::addColumn<QByteArray>("wrong");
    QTest::addColumn<QString>("finding");
    QTest::addColumn<QByteArray>("right");
    QTest::addColumn<QString>("device");
    const auto row = [](const char *name, const QByteArray &wrong, const char *finding,
                        const QByteArray &right, const char *device = "") {
        QTest::newRow(name) << wrong << QString::fromLatin1(finding) << right
                            << QString::fromLatin1(device);
    };
    const auto ports = [](const QByteArray &records) {
        return "<PortOutEnable>" + records + "</PortOutEnable>";
    };
    const auto dffs = [](const QByteArray &records) {
        return "<LocalEnable>" + records + "</LocalEnable>";
    };
    const auto rams = [](const QByteArray &record) {
        return "<GlobalBsram clock_enable=\"1\" read_probability=\"1\" write_probability=\"1\">" +
               record + "</GlobalBsram>";
    };
    const auto rates = [](const QByteArray &records) {
        return "<NetRate type=\"toggle\">" + records + "</NetRate>";
    };
    const auto files = [](const QByteArray &record) {
        return "<SimuFile>\n" + record + "</SimuFile>";
    };
    const QByteArray clocks = "<GlobalEnable value=\"1\">\n<Clock name=\"%\"/></GlobalEnable>";

    row("element", "<Own/>", "unknown-element@4 Own#0", "<Process>Worst</Process>");
    row("attribute", dffs("\n<Instance name=\"q_reg0\" own=\"1\"/>"),
        "unknown-element@5 Instance#0", dffs("\n<Instance name=\"q_reg0\" value=\"1\"/>"));
    row("repeated element", "<Process>Worst</Process>\n<Process>Typical</Process>",
        "unknown-element@5 Process#0", "<Process>Worst</Process>");
    row("number", "<AmbientTemp>warm</AmbientTemp>", "not-a-number@4 AmbientTemp#0",
        "<AmbientTemp>1e1</AmbientTemp>");
    row("range", "<AmbientTemp>161</AmbientTemp>", "out-of-range@4 AmbientTemp#0",
        "<AmbientTemp>160</AmbientTemp>");
    row("choice", "<TempGrade>Military</TempGrade>", "out-of-range@4 TempGrade#0",
        "<TempGrade>automotive</TempGrade>");
    row("clock section", "<GlobalEnable/>", "clock-value-missing@4 GlobalEnable#0",
        "<GlobalEnable value=\"0\"/>");
    row("supply range", "<VCC>1.101</VCC>", "supply-range@4 VCC#0", "<VCC>1.1</VCC>",
        "QF2-10-BG256");
    row("tied supply", "<VCC>1.2</VCC>\n<VCCX>1.25</VCCX>", "supply-range@5 VCCX#0",
        "<VCC>1.25</VCC>\n<VCCX>1.25</VCCX>", "QF2-16-LQ144");
    row("supply absent", "<VCCX>2.5</VCCX>", "supply-absent@4 VCCX#0", "<VCC_LDO>1.2</VCC_LDO>",
        "QF2-12-LQ144");
    row("device", "", "device-unknown@0 #0", "", "none");
    row("junction", "<JunctionTemp>50</JunctionTemp>\n<BoardTemp>1</BoardTemp>",
        "ignored@5 BoardTemp#0", "<JunctionTemp>50</JunctionTemp>");
    row("theta JA", "<CustomThetaJA>5</CustomThetaJA>\n<HeatSink>None</HeatSink>",
        "ignored@5 HeatSink#0", "<CustomThetaJA>NA</CustomThetaJA>\n<HeatSink>None</HeatSink>");
    row("heat sink", "<HeatSink>Low Profile</HeatSink>\n<CustomThetaSA>5</CustomThetaSA>",
        "ignored@5 CustomThetaSA#0",
        "<HeatSink>Custom</HeatSink>\n<CustomThetaSA>5</CustomThetaSA>");
    row("name", dffs("\n<Instance name=\"q_reg7\"/>"), "name-missing@5 Instance#1",
        dffs("\n<Instance name=\"core/state_reg\"/>"));
    row("kind", dffs("\n<Instance name=\"clk\"/>"), "wrong-kind@5 Instance#1",
        dffs("\n<Instance name=\"q_reg1\"/>"));
    row("generated names",
        rates("\n<Net name=\"clk\" value=\"1\"/>\n<Net name=\"a/$n$1\" value=\"1\"/>"),
        "name-missing@6 Net#2", rates("\n<Net name=\"clk\" value=\"1\"/>"));
    row("clock", QByteArray(clocks).replace('%', "fast"), "clock-unknown@5 Clock#1",
        QByteArray(clocks).replace('%', "clk"));
    row("duplicate", dffs("\n<Instance name=\"q_reg0\"/>\n<Instance name=\"q_reg0\" value=\"1\"/>"),
        "duplicate@6 Instance#2", dffs("<Instance name=\"q_reg0\"/><Instance name=\"q_reg1\"/>"));
    row("port type", ports("\n<Port name=\"clk\" type=\"1\"/>"), "port-type@5 Port#1",
        ports("\n<Port name=\"clk\" type=\"3\"/>"));
    row("memory kind", rams("\n<BSRam name=\"store\" type=\"3\"/>"), "bsram-type@5 BSRam#1",
        rams("\n<BSRam name=\"store\" port_b_read=\"1\" type=\"2\"/>"));
    row("memory value", rams("\n<BSRam name=\"store\" port_a_read=\"1\" type=\"2\"/>"),
        "bsram-type@5 BSRam#1", rams("\n<BSRam name=\"store\" port_a_read=\"-1\" type=\"2\"/>"));
    row("empty rate", rates("\n<Net name=\"clk\" value=\"\"/>"), "rate-empty@5 Net#1",
        rates("<Net name=\"clk\" value=\"0\"/>"));
    row("rate limit", rates("\n<Net name=\"clk\" value=\"200.01\"/>"), "rate-limit@5 Net#1",
        rates("<Net name=\"clk\" value=\"200\"/>"));
    row("file", files("<File type=\"vcd\" name=\"/none.vcd\" entity=\"\"/>"),
        "file-missing@5 File#1", "");
    row("relative file", files("<File type=\"vcd\" name=\"power.vlr\" entity=\"\"/>"),
        "file-relative@5 File#1", "");
    row("instance", files("<File type=\"vcd\" name=\"power.vlr\" entity=\"shell\"/>"),
        "entity-missing@5 File#1", "");
}

void TestRules::everyRule()
{
    QFETCH(QByteArray, wrong);
    QFETCH(QString, finding);
    QFETCH(QByteArray, right);
    QFETCH(QString, device);
    const TestHost host;
    const QVector<Finding> findings = check(host, fileOf(wrong), device);
    const QStringList forms = shortForms(findings);
    QVERIFY2(forms.contains(finding), qPrintable(forms.join(QStringLiteral(", "))));
    for (const Finding &each : findings)
        m_tried.insert(QLatin1String(each.rule->id));
    const QString rule = finding.section(QLatin1Char('@'), 0, 0);
    const QStringList clean = shortForms(
        check(host, fileOf(right), device == QLatin1String("none") ? QString() : device));
    QVERIFY2(clean.filter(rule).isEmpty(), qPrintable(clean.join(QStringLiteral(", "))));
}

/// After the rows above.
void TestRules::everyRuleHasARow()
{
    const QByteArrayList elsewhere = {
        "not-a-config", "not-readable", "name-moved", // in test_names; in test_activityrules:
        "coverage-low", "file-kind",    "file-older",   "file-truncated", "overlap",
        "scope-misfit", "span-empty",   "span-outside", "static",         "x-time"};
    for (const Rule &rule : allRules()) {
        if (!elsewhere.contains(rule.id))
            QVERIFY2(m_tried.contains(QLatin1String(rule.id)), rule.id);
    }
}

void TestRules::openingDoesWhatIsSaid_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QString>("said");     // in the finding's message
    QTest::addColumn<QByteArray>("saved"); // in the file that the editor saves
    const auto row = [](const char *device, const char *elements, const char *said,
                        const char *saved) {
        QTest::addRow("%s", elements) << QString::fromLatin1(device) << QByteArray(elements)
                                      << QString::fromLatin1(said) << QByteArray(saved);
    };
    const char *full = "QF2-10-BG256";
    row(full, "<AmbientTemp>warm</AmbientTemp>", "uses 0", "<AmbientTemp>0<");
    row(full, "<AmbientTemp>1000</AmbientTemp>", "uses 160", "<AmbientTemp>160<");
    row(full, "<CustomThetaJA>0</CustomThetaJA>", "uses 0.001", "<CustomThetaJA>0.001<");
    row(full, "<TempGrade>Military</TempGrade>", "uses Commercial", "<TempGrade>Commercial<");
    row(full, "<GlobalEnable/>", "reads 0", "<GlobalEnable value=\"0\"");
    row(full, "<GlobalEnable value=\"101\"/>", "uses 100", "<GlobalEnable value=\"100\"");
    row(full, "<LocalEnable><Instance name=\"q_reg0\" value=\"x\"/></LocalEnable>", "uses 0",
        "name=\"q_reg0\" value=\"0\"");
    row(full, "<LocalEnable><Instance name=\"q_reg0\" value=\"101\"/></LocalEnable>",
        "keeps it as it is", "name=\"q_reg0\" value=\"101\"");
    row(full, "<LocalEnable><Instance name=\"q_reg0\" value=\"-2\"/></LocalEnable>", "not set",
        "name=\"q_reg0\"/>");
    row(full, "<NetRate type=\"toggle\"><Net name=\"clk\" value=\"x\"/></NetRate>",
        "keeps it as it is", "name=\"clk\" value=\"x\"");
    row(full, "<VCC>2.5</VCC>", "replaces it by 1", "<VCC>1<");
    row("QF2-16-LQ144", "<VCC>1.2</VCC><VCCX>1.25</VCCX>", "replaces it by 1.2", "<VCCX>1.2<");
    row("QF2-18-LQ144", "<VCCX>1.3</VCCX><VCC_LDO>1.2</VCC_LDO>", "replaces it by 1.3",
        "<VCC_LDO>1.3<");
}

/// The editor, on the same file.
void TestRules::openingDoesWhatIsSaid()
{
    QFETCH(QString, device);
    QFETCH(QByteArray, elements);
    QFETCH(QString, said);
    QFETCH(QByteArray, saved);
    const TestHost host(device);
    const QVector<Finding> findings = check(host, fileOf(elements), device);
    QStringList messages;
    for (const Finding &finding : findings)
        messages << finding.message;
    QVERIFY2(!messages.filter(said).isEmpty(), qPrintable(messages.join(QLatin1Char('\n'))));

    VLT::VLTViewManager::openView(host.device(), host.path(QStringLiteral("power.vlr")));
    VLT::VLTView *view = VLT::VLTViewManager::vltViews().value(0);
    QVERIFY(view);
    view->setModified(true);
    QVERIFY(view->save());
    const QByteArray bytes = host.read(QStringLiteral("power.vlr"));
    QVERIFY2(bytes.contains(saved), bytes);
}

void TestRules::unreadableInputs()
{
    const TestHost host;
    const auto forms = [&host](const char *bytes) { return shortForms(check(host, bytes)); };
    QCOMPARE(forms("<Config/>"), QStringList{QStringLiteral("not-a-config@0 #0")});
    QVERIFY(forms("<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n<Config>\n<a>\n")
                .value(0)
                .startsWith(QLatin1String("not-a-config@")));
    const auto read = [&host](const char *name) {
        return shortForms(checkConfiguration(
            readConfigurationInput(host.path(QString::fromLatin1(name))), DesignInput()));
    };
    QCOMPARE(read("none.vlr"), QStringList{QStringLiteral("not-readable@0 #0")});
    QCOMPARE(read("."), QStringList{QStringLiteral("not-readable@0 #0")});
}

void TestRules::disabledRules()
{
    const TestHost host;
    const QByteArray bytes = fileOf("<Own/><AmbientTemp>x</AmbientTemp>");
    QCOMPARE(check(host, bytes).size(), 2);
    QCOMPARE(shortForms(check(host, bytes, {}, {QStringLiteral("unknown-element")})),
             QStringList{QStringLiteral("not-a-number@4 AmbientTemp#0")});
}

QTEST_MAIN(TestRules)

#include "test_rules.moc"
