#include "activitydesign.h"

#include "check/activity/scopereview.h"
#include "check/names/nameplan.h"
#include "check/rules/rules.h"

#include <QDateTime>
#include <QTemporaryDir>
#include <QtTest>

using namespace Check;

namespace {

QByteArray vcd(const QByteArray &scopes, const QByteArray &values)
{
    return "$timescale 1ns $end\n$scope module tb $end\n" + scopes +
           "$upscope $end\n$enddefinitions $end\n" + values;
}

const QByteArray core = "$var wire 1 ! one $end $var wire 4 # two [3:0] $end\n";
const QByteArray lone = "$scope module dut $end $var wire 1 ) lone $end $upscope $end\n";
const QByteArray values = "#0\n0!\nb0000 #\n0)\n#50\n1!\nb1111 #\n1)\n#100\n";

} // namespace

class TestActivityRules : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void rules_data();
    void rules();
    void olderFile();
    void knownScopes_data();
    void knownScopes();
    void bindsToWhatFits_data();
    void bindsToWhatFits();

private:
    /// "rule" of every finding, sorted.
    QString check(const QByteArray &sections, const ActivityOptions &options)
    {
        const QByteArray bytes =
            "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n<Config>" + sections + "</Config>";
        QStringList rules;
        const auto findings = checkConfiguration(
            configurationInput(m_folder.filePath(QStringLiteral("p.vlr")), bytes), m_design, {},
            options);
        for (const Finding &finding : findings)
            rules << QLatin1String(finding.rule->id) + (finding.proposal.isEmpty()
                                                            ? QString()
                                                            : QLatin1Char('>') + finding.proposal);
        return rules.join(QLatin1Char(' '));
    }

    static void write(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    }
    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static QByteArray boundTo(const QString &dump, const QByteArray &instance)
    {
        return "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\r\n<Config ><!-- kept --><SimuFile>\n"
               "<File  type=\"vcd\" name=\"" +
               dump.toUtf8() + "\"\tentity='" + instance + "' />\n</SimuFile></Config>";
    }

    QTemporaryDir m_folder;
    std::unique_ptr<ActivityDesign> m_netlist;
    DesignInput m_design;
};

void TestActivityRules::initTestCase()
{
    NetlistJson json;
    auto &top = json.module("top").top();
    const auto flipFlop = [](NetlistJson::Module *module, const char *name,
                             const NetlistJson::Bits &bits) {
        for (const NetlistJson::Bit &bit : bits)
            module->cell(name + bit.text, "SB_DFF",
                         {{"D", "input", {"0"}}, {"Q", "output", {bit}}});
        module->net(name, bits);
    };
    flipFlop(&top, "lone", {2});
    auto &inner = json.module("core");
    flipFlop(&inner, "one", {2});
    flipFlop(&inner, "two", {3, 4, 5, 6});
    auto &other = json.module("other");
    flipFlop(&other, "three", {2});
    top.cell("u_core", "core").cell("u_other", "other");
    m_netlist = std::make_unique<ActivityDesign>(json);
    m_design.netlist = m_netlist->netlist;
    m_design.names = m_netlist->names;
    m_design.netlistPath = m_folder.filePath(QStringLiteral("netlist.json"));
    QFile(m_design.netlistPath).open(QIODevice::WriteOnly);
}

void TestActivityRules::rules_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("attributes");
    QTest::addColumn<QString>("minimum");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &file, const QByteArray &attributes,
                        const char *expected, const char *minimum = "") {
        QTest::newRow(name) << file << attributes << QString::fromLatin1(minimum)
                            << QString::fromLatin1(expected);
    };
    const QByteArray fits = vcd("$scope module x $end\n" + core + "$upscope $end\n", values);
    const QByteArray bound = " entity=\"u_core\"";
    row("clean", fits, bound, "");
    row("window", fits, bound + " start_time=\"0\" end_time=\"0.1\" time_unit=\"us\"", "");
    row("gzip", "\x1f\x8b\x08", bound, "file-kind");
    row("listed as SAIF", fits, bound + " type=\"saif\"", "file-kind");
    row("cut off", fits.left(fits.size() - 1), bound, "file-truncated");
    row("cut off in the definitions", fits.left(fits.indexOf("$enddef")), bound, "file-truncated");
    row("late window", fits, bound + " start_time=\"200\" end_time=\"300\" time_unit=\"ns\"",
        "span-empty");
    row("no time", vcd(core, "#0\n"), bound, "span-empty");
    row("ends late", fits, bound + " end_time=\"101\" time_unit=\"ns\"", "span-outside");
    row("starts early", vcd(core, "#10\n0!\n#20\n"), bound + " start_time=\"5\" time_unit=\"ns\"",
        "span-outside");
    row("another instance", fits, " entity=\"u_other\"", "scope-misfit>u_core");
    row("another design", vcd("$var wire 1 ! own $end\n", values), bound, "scope-misfit");
    row("in part", vcd(lone, values), "", "");
    row("enough", fits, bound, "", "flip-flop=71");
    row("not enough", fits, bound, "coverage-low", "flip-flop=72");
}

void TestActivityRules::rules()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, attributes);
    QFETCH(QString, minimum);
    const QString path = m_folder.filePath(QStringLiteral("a.vcd"));
    write(path, file);
    const QByteArray type = attributes.contains("type=") ? "" : " type=\"vcd\"";
    const QByteArray sections =
        "<SimuFile><File name=\"" + path.toUtf8() + '"' + type + attributes + "/></SimuFile>";
    ActivityOptions options;
    QCOMPARE(check(sections, options), QString());
    options.level = ActivityLevel::Header;
    if (!minimum.isEmpty())
        options.minimum.insert(NetKind::FlipFlop, minimum.section(QLatin1Char('='), 1).toDouble());
    QTEST(check(sections, options), "expected");
}

void TestActivityRules::olderFile()
{
    const QString path = m_folder.filePath(QStringLiteral("a.vcd"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(vcd("$scope module x $end\n" + core + "$upscope $end\n",
                   "#0\nx!\nb0000 #\n#20\n0!\n#50\nb0001 #\n#100\n"));
    file.flush();
    file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime);
    file.close();
    const QByteArray record =
        "<File type=\"vcd\" name=\"" + path.toUtf8() + "\" entity=\"u_core\"/>";
    const QByteArray sections = "<NetRate type=\"toggle\"><Net name=\"u_core/one\" value=\"1\"/>"
                                "</NetRate><SimuFile>" +
                                record + record + "</SimuFile>";
    ActivityOptions options;
    options.level = ActivityLevel::Full;
    // Of the first record one net has a rate, too; of the second one all nets have the first.
    QCOMPARE(check(sections, options),
             QStringLiteral("file-older file-older overlap static x-time"));
}

void TestActivityRules::knownScopes_data()
{
    QTest::addColumn<QString>("known");
    QTest::addColumn<QString>("found");
    QTest::newRow("no longer there") << "tb/c"
                                     << "tb/a";
    QTest::newRow("does not fit") << "tb"
                                  << "tb/a";
    QTest::newRow("another one that fits") << "tb/b"
                                           << "tb/b";
}

/// A scope that was found before is used as long as it fits.
void TestActivityRules::knownScopes()
{
    const QString path = m_folder.filePath(QStringLiteral("a.vcd"));
    write(path, vcd("$scope module a $end\n" + core + "$upscope $end\n$scope module b $end\n" +
                        core + "$upscope $end\n",
                    values));
    QFETCH(QString, known);
    DesignInput design = m_design;
    design.scopes.insert({path, QStringLiteral("u_core")}, known);
    KnownScopes found;
    ActivityOptions options;
    options.level = ActivityLevel::Header;
    options.found = &found;
    checkConfiguration(
        configurationInput(m_folder.filePath(QStringLiteral("p.vlr")), boundTo(path, "u_core")),
        design, {}, options);
    QTEST(found.value({path, QStringLiteral("u_core")}), "found");
}

void TestActivityRules::bindsToWhatFits_data()
{
    QTest::addColumn<QByteArray>("scopes");
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    const QByteArray whole =
        "$var wire 1 ) lone $end $scope module u_core $end " + core + "$upscope $end\n";
    QTest::newRow("another instance") << core << QByteArray("u_&#111;ther") << QByteArray("u_core");
    QTest::newRow("the design") << whole << QByteArray("u_other") << QByteArray("top");
    QTest::newRow("from the design") << core << QByteArray() << QByteArray("u_core");
}

/// As a repair of names: every other byte stays, and backwards it is the same file again.
void TestActivityRules::bindsToWhatFits()
{
    QFETCH(QByteArray, scopes);
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    const QString dump = m_folder.filePath(QStringLiteral("a.vcd"));
    write(dump, vcd(scopes, values));
    const QString path = m_folder.filePath(QStringLiteral("p.vlr"));
    const QByteArray before = boundTo(dump, from);
    write(path, before);
    DesignInput design = m_design;
    design.netlistSha256 = "netlist";
    const ConfigurationInput input = readConfigurationInput(path);
    const NameReview review = reviewScopes(input, design);
    QCOMPARE(review.records.size(), 1);
    const ReviewedRecord &record = review.records.first();
    QCOMPARE(record.proposal.toUtf8(), to);
    const NamePlan plan{{input.sha256, design.netlistSha256},
                        {{record.section, record.ordinal, record.name, record.proposal}}};
    QString error;
    QVERIFY(!checkPlan(plan, input, *design.names, "another", &error));
    QVERIFY2(checkPlan(plan, input, *design.names, design.netlistSha256, &error),
             qPrintable(error));
    write(path, before + "\n");
    QVector<RecordEdit> inverse;
    const auto apply = [&] {
        return applyPlan(plan, input, *design.names, design.netlistSha256, false, &inverse, &error);
    };
    QVERIFY(!apply() && read(path) == before + "\n");
    write(path, before);
    QVERIFY2(apply(), qPrintable(error));
    QVERIFY(read(path).contains("entity='" + to + '\''));
    QVERIFY(reviewScopes(readConfigurationInput(path), design).records.isEmpty());
    QByteArray again;
    QVERIFY2(editRecords(read(path), inverse, &again, nullptr, &error), qPrintable(error));
    QCOMPARE(again, before);
}

QTEST_APPLESS_MAIN(TestActivityRules)
#include "test_activityrules.moc"
