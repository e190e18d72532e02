#include "check/names/nameplan.h"
#include "check/rules/rules.h"

#include "support/netlistjson.h"

#include "host/nlsdata/readnetlist.h"
#include "nlsdata/netlist.h"

#include <QTemporaryDir>
#include <QTextCodec>
#include <QtTest>

using namespace Check;
using NlsData::Netlist;

namespace {

/// Flip-flops by name, each with the names of the net that it drives.
using FlipFlops = QList<QPair<QByteArray, QByteArrayList>>;

struct Design
{
    explicit Design(const FlipFlops &flipFlops)
    {
        NetlistJson json;
        auto &top = json.module("top").top().net("d", {2}).net("fixed", {2, "0"});
        int bit = 10;
        for (const auto &[name, nets] : flipFlops) {
            top.cell(name, "SB_DFF", {{"D", "input", {2}}, {"Q", "output", {bit}}});
            for (const QByteArray &net : nets)
                top.net(net, {bit});
            top.generatedNet("$" + name, {bit++});
        }
        NlsData::ReadOptions options;
        options.allNames = true;
        options.sha256 = &sha256;
        QString error;
        netlist = NlsData::readNetlistText(json.toUtf8().toStdString(), QStringLiteral("test"),
                                           &error, options);
        if (!netlist)
            qFatal("%s", qPrintable(error));
        names = std::make_unique<DesignNames>(*netlist);
    }
    QByteArray sha256;
    std::unique_ptr<Netlist> netlist;
    std::unique_ptr<DesignNames> names;
};

QByteArray fileOf(const QByteArray &sections)
{
    return "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n<Config>\n" + sections + "</Config>\n";
}

QByteArray flipFlopFile(const QByteArrayList &names)
{
    QByteArray records;
    for (const QByteArray &name : names)
        records += "<Instance name=\"" + name + "\"/>\n";
    return fileOf("<LocalEnable>\n" + records + "</LocalEnable>\n");
}

/// With a byte order mark.
QByteArray utf16(const QByteArray &text)
{
    return QTextCodec::codecForName("UTF-16LE")->fromUnicode(QString::fromUtf8(text));
}

/// "a moved> b sure; c missing>" of the records that are reviewed.
QString shortForm(const NameReview &review)
{
    QStringList lines;
    for (const ReviewedRecord &record : review.records)
        lines += QStringLiteral("%1 %2> %3 %4")
                     .arg(record.name, stateName(record.state), record.proposal,
                          certaintyName(record.certainty))
                     .trimmed();
    return lines.join(QLatin1String("; "));
}

} // namespace

class TestNames : public QObject
{
    Q_OBJECT

private slots:
    void editsKeepOtherBytes_data();
    void editsKeepOtherBytes();
    void refusesEdits_data();
    void refusesEdits();
    void proposes_data();
    void proposes();
    void remembers();
    void appliesPlans();
    void findsMovedNames();

private:
    QTemporaryDir m_folder;
};

void TestNames::editsKeepOtherBytes_data()
{
    // In each file the flip-flop 2, called "old/né[1]", becomes "new/né[1]".
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<bool>("remove");
    const auto row = [](const char *name, QByteArray before, const QByteArray &after,
                        bool remove = false) { QTest::newRow(name) << before << after << remove; };
    const auto file = [](const QByteArray &record, const QByteArray &prolog = {}) {
        return prolog +
               fileOf("<!-- <LocalEnable><Instance name='x'/> -->\n<x><LocalEnable><Instance/>"
                      "</LocalEnable></x><LocalEnable>\n<y><Instance name='z'/></y>"
                      "<Instance name='first'>\n<Instance name='inner'/><![CDATA[<Instance/>]]>"
                      "</Instance>\n" +
                      record +
                      "\n</LocalEnable>\n<LocalEnable><Instance name='no'/></LocalEnable>");
    };
    const QByteArray old = "<Instance value='1>' name = \"old/né[1]\" ></Instance >";
    const QByteArray changed = "<Instance value='1>' name = \"new/né[1]\" ></Instance >";
    row("UTF-8", file(old), file(changed));
    row("byte order mark", file(old, "\xef\xbb\xbf"), file(changed, "\xef\xbb\xbf"));
    row("CRLF", file(old).replace("\n", "\r\n"), file(changed).replace("\n", "\r\n"));
    row("UTF-16", utf16(file(old)), utf16(file(changed)));
    const QByteArray latin = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";
    row("ISO 8859-1", file(old, latin).replace("é", "\xe9"),
        file(changed, latin).replace("é", "\xe9"));
    row("subset of the document type",
        file(old).replace("CONFIG>", "CONFIG [<!-- ]> --><!ELEMENT x (#PCDATA)><?p ]>?>\n]>"),
        file(changed).replace("CONFIG>", "CONFIG [<!-- ]> --><!ELEMENT x (#PCDATA)><?p ]>?>\n]>"));
    row("odd references", file("<Instance name='&#x6f;l&#100;/n&#xe9;[&#49;]'/>"),
        file("<Instance name='new/n&#xe9;[&#49;]'/>"));
    row("removed with its line", file("  " + old + " \t"), file("@").replace("@\n", ""), true);
    row("removed, CRLF", file(old).replace("\n", "\r\n"),
        file("@").replace("@\n", "").replace("\n", "\r\n"), true);
    row("removed beside others", file("<!-- x -->" + old), file("<!-- x -->"), true);
    row("removed, UTF-16", utf16(file(old)), utf16(file("@").replace("@\n", "")), true);
}

void TestNames::editsKeepOtherBytes()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(bool, remove);
    const RecordEdit edit{QStringLiteral("Instance"), 2, QStringLiteral("old/né[1]"),
                          remove ? QString() : QStringLiteral("new/né[1]"), remove};
    QByteArray result, back;
    QVector<RecordEdit> inverse;
    QString error;
    QVERIFY2(editRecords(before, {edit}, &result, &inverse, &error), qPrintable(error));
    QCOMPARE(result, after);
    if (remove)
        return;
    QVERIFY2(editRecords(result, inverse, &back, nullptr, &error), qPrintable(error));
    QCOMPARE(back, before);

    // What the encoding, XML or the quotes do not allow is spelled by references.
    const RecordEdit odd{edit.section, 2, edit.from, QStringLiteral("<'\"&>Ω\t")};
    QVERIFY2(editRecords(before, {odd}, &result, &inverse, &error), qPrintable(error));
    QVERIFY2(editRecords(result, inverse, &back, nullptr, &error), qPrintable(error));
    QCOMPARE(back, before);
}

void TestNames::refusesEdits_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<int>("ordinal");
    QTest::newRow("other name") << flipFlopFile({"b"}) << 1;
    QTest::newRow("no such record") << flipFlopFile({"a"}) << 2;
    QTest::newRow("first is 1") << flipFlopFile({"a"}) << 0;
    QTest::newRow("no configuration") << QByteArray("<Config/>") << 1;
    QTest::newRow("encoding with states")
        << QByteArray("<?xml version=\"1.0\" encoding=\"ISO-2022-JP\"?>" + flipFlopFile({"a"}))
        << 1;
}

void TestNames::refusesEdits()
{
    QFETCH(QByteArray, file);
    QFETCH(int, ordinal);
    const RecordEdit edit{QStringLiteral("Instance"), ordinal, QStringLiteral("a"),
                          QStringLiteral("c")};
    QByteArray result;
    QString error;
    QVERIFY(!editRecords(file, {edit}, &result, nullptr, &error));
    QVERIFY(!error.isEmpty());
    QVERIFY(result.isEmpty());
}

void TestNames::proposes_data()
{
    QTest::addColumn<QByteArrayList>("listed");
    QTest::addColumn<FlipFlops>("before");
    QTest::addColumn<FlipFlops>("after");
    QTest::addColumn<QString>("review");
    const auto row = [](const char *name, const QByteArrayList &listed, const FlipFlops &before,
                        const FlipFlops &after, const char *review) {
        QTest::newRow(name) << listed << before << after << QString::fromUtf8(review);
    };
    const FlipFlops chain = {{"_4", {"c"}}, {"_5", {"b"}}, {"_6", {"a"}}};
    row("same by one of several names", {"f"}, {{"f", {"a", "b"}}}, {{"f", {"c", "b"}}}, "");
    row("no names", {"f"}, {{"f", {}}}, {{"f", {"c"}}}, "f unknown>");
    row("all names gone", {"f"}, {{"f", {"a"}}}, {{"f", {"c"}}}, "f unknown>");
    row("constant", {"f"}, {{"f", {"fixed[1]"}}}, {{"f", {"c"}}}, "f moved>");
    row("swap", {"f", "g"}, {{"f", {"a"}}, {"g", {"b"}}}, {{"f", {"b"}}, {"g", {"a"}}},
        "f moved> g sure; g moved> f sure");
    row("chain", {"_4", "_5", "_6"}, chain, {{"_5", {"c"}}, {"_6", {"b"}}, {"_7", {"a"}}},
        "_4 missing> _5 sure; _5 moved> _6 sure; _6 moved> _7 sure");
    row("chain whose end is gone", {"_4", "_5"}, chain, {{"_5", {"c"}}},
        "_4 missing> _5 sure; _5 unknown>");
    row("two become one", {"f", "g"}, {{"f", {"a"}}, {"g", {"b"}}}, {{"h", {"a", "b"}}},
        "f missing>; g missing>");
    row("one becomes two", {"f"}, {{"f", {"a", "b"}}}, {{"g", {"a"}}, {"h", {"b"}}}, "f missing>");
    row("target is listed", {"f", "g"}, {{"f", {"a"}}, {"g", {"b"}}}, {{"g", {"a", "b"}}},
        "f missing>");
    row("spelling", {"u/f [1]", "\\v.g"}, {}, {{"u.f[1]", {}}, {"v/g", {}}},
        "u/f [1] missing> u.f[1] likely; \\v.g missing> v/g likely");
    row("spelling of two", {"u/f"}, {}, {{"u.f", {}}, {"\\u/f", {}}}, "u/f missing>");
    row("spelling against identity", {"u/f"}, {{"u/f", {"a"}}}, {{"u.f", {"b"}}, {"g", {"a"}}},
        "u/f missing> g sure");
    row("identity spelled differently", {"u/f"}, {{"u/f", {"u/a"}}},
        {{"u.f", {"u.b"}}, {"u.g", {"u.a"}}}, "u/f missing> u.g likely");
    row("part replaced", {"u/f", "u/g"}, {}, {{"w/f", {}}, {"w/g", {}}, {"x/f", {}}},
        "u/f missing> w/f likely; u/g missing> w/g likely");
    row("part of the nets replaced", {"f", "g"}, {{"f", {"a[0]"}}, {"g", {"a[1]"}}},
        {{"p", {"b[1]"}}, {"q", {"b[0]"}}, {"r", {"c[0]"}}},
        "f missing> q likely; g missing> p likely");
    row("part not for all", {"u/f", "u/g"}, {}, {{"w/f", {}}, {"x/g", {}}},
        "u/f missing>; u/g missing>");
    row("part still there", {"u/f", "u/g", "u/h"}, {}, {{"w/f", {}}, {"w/g", {}}, {"u/h", {}}},
        "u/f missing>; u/g missing>; u/h unknown>");
    row("two parts would do", {"u/f", "u/g"}, {},
        {{"w/f", {}}, {"w/g", {}}, {"x/f", {}}, {"x/g", {}}}, "u/f missing>; u/g missing>");
    row("only one part is free", {"u/f", "u/g", "w/g"}, {},
        {{"w/f", {}}, {"w/g", {}}, {"x/f", {}}, {"x/g", {}}},
        "u/f missing> x/f likely; u/g missing> x/g likely; w/g unknown>");
    row("similar", {"count"}, {}, {{"counter", {}}, {"count1", {}}}, "count missing>");
}

void TestNames::proposes()
{
    QFETCH(QByteArrayList, listed);
    QFETCH(FlipFlops, before);
    QFETCH(FlipFlops, after);
    QFETCH(QString, review);
    const Design old(before), now(after);
    const ConfigurationInput input = configurationInput(QString(), flipFlopFile(listed));
    NameMemory memory;
    memory.update(input.configuration, *old.names);
    QCOMPARE(shortForm(reviewNames(input.configuration, memory, *now.names)), review);
}

void TestNames::remembers()
{
    const Design old({{"f", {"b", "a/x", "u.c"}}, {"g", {"p"}}, {"h", {"q"}}});
    const Design now({{"f", {"p"}}, {"g", {"b", "new"}}, {"i", {"r"}}});
    const auto configuration = [](const QByteArrayList &names) {
        return configurationInput(QString(), flipFlopFile(names)).configuration;
    };
    NameMemory memory;
    memory.netlist = QByteArray(64, 'a');
    memory.update(configuration({"h", "f", "g"}), *old.names);
    const QByteArray first = memory.toJson();
    QCOMPARE(first.split('\n').at(1),
             QByteArray("{\"name\":\"f\",\"names\":[\"b\",\"a/x\",\"u.c\"],"
                        "\"section\":\"Instance\",\"type\":\"SB_DFF\"},"));
    QCOMPARE(first.count('\n'), 5);
    NameMemory again;
    QString error;
    QVERIFY2(again.parse(first, &error), qPrintable(error));
    QCOMPARE(again.toJson(), first);
    QVERIFY(again.parse(QByteArray(first).replace("\"aaa", "\"\\\\aaa"), &error));
    QVERIFY2(again.netlist.isEmpty(), again.netlist); // no sum, nor could it be written so

    // What means something else, or nothing, is kept; what is new is taken; what is not listed
    // goes.
    const auto names = [&](const char *name) {
        const Meaning *meaning =
            memory.find({QStringLiteral("Instance"), QString::fromLatin1(name)});
        return meaning ? meaning->names.join(QLatin1Char(' ')) : QString();
    };
    memory.update(configuration({"f", "h", "i"}), *now.names);
    QCOMPARE(names("f"), QStringLiteral("b a/x u.c"));
    QCOMPARE(names("h"), QStringLiteral("q"));
    QCOMPARE(names("i"), QStringLiteral("r"));
    QVERIFY(names("g").isEmpty());
    memory.update(configuration({"f"}), *now.names,
                  {{QStringLiteral("Instance"), QStringLiteral("f")}});
    QCOMPARE(names("f"), QStringLiteral("p"));

    QByteArrayList many;
    for (int i = 0; i < 40; ++i)
        many.append("u/n" + QByteArray::number(i));
    memory.update(configuration({"f"}), *Design({{"f", many + QByteArrayList{"z"}}}).names,
                  {{QStringLiteral("Instance"), QStringLiteral("f")}});
    QCOMPARE(names("f").count(QLatin1Char(' ')), DesignNames::MAXIMUM_NAMES - 1);
    QVERIFY(names("f").startsWith(QLatin1String("z u/n0 u/n1 u/n10 ")));

    for (const char *bad : {"", "{", "[]", "{\"format\":1}", "{\"format\":2,\"records\":[]}"})
        QVERIFY2(!again.parse(bad, &error) && !error.isEmpty(), bad);
}

void TestNames::appliesPlans()
{
    const Design old({{"f", {"a"}}, {"g", {"b"}}, {"h", {"c"}}, {"i", {"d1"}}});
    const Design now({{"g", {"a"}}, {"h", {"b"}}, {"i", {"d1"}}, {"j", {"e"}}});
    const QString path = m_folder.filePath(QStringLiteral("power.vlr"));
    const auto write = [](const QString &name, const QByteArray &bytes) {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
    };
    write(path, flipFlopFile({"f", "g", "h", "i"}));
    QString error;
    ConfigurationInput input = readConfigurationInput(path);
    QVERIFY2(recordNames(input, *old.names, old.sha256, {}, &error), qPrintable(error));
    NameMemory memory;
    QVERIFY(memory.read(path, &error));
    const NameReview review = reviewNames(input.configuration, memory, *now.names);
    // "h" is gone; its name is needed for "g", which holds the chain up until "h" is removed.
    QCOMPARE(shortForm(review), QStringLiteral("f missing> g sure; g moved> h sure; h unknown>"));
    QVERIFY(planOf(review, input.configuration, *now.names, Certainty::Sure).edits.isEmpty());

    const QByteArray json = reviewJson(review, {{path, input.sha256}, {path, now.sha256}});
    NamePlan plan;
    QVERIFY2(parsePlan(json, &plan, &error), qPrintable(error));
    const auto accepts = [&](const NamePlan &candidate, const QByteArray &netlist) {
        error.clear();
        return checkPlan(candidate, input, *now.names, netlist, &error);
    };
    QVERIFY(!accepts(plan, now.sha256)); // two on one
    QVERIFY2(error.contains(QLatin1String("more than one name")), qPrintable(error));
    plan.edits.append({QStringLiteral("Instance"), 3, QStringLiteral("h"), QString(), true});
    QVERIFY2(accepts(plan, now.sha256), qPrintable(error));
    QVERIFY(!accepts(plan, old.sha256));
    const auto with = [&](int ordinal, const char *from, const char *to) {
        NamePlan other = plan;
        other.edits.append({QStringLiteral("Instance"), ordinal, QString::fromLatin1(from),
                            QString::fromLatin1(to)});
        return other;
    };
    QVERIFY(!accepts(with(4, "i", "nowhere"), now.sha256));
    QVERIFY(!accepts(with(4, "j", "j"), now.sha256));
    QVERIFY(!accepts(with(1, "f", "j"), now.sha256));
    QVERIFY(accepts(with(4, "i", "j"), now.sha256));

    // A file that has changed since is left alone.
    write(path, input.bytes + '\n');
    QVERIFY(!applyPlan(plan, input, *now.names, now.sha256, false, nullptr, &error));
    write(path, input.bytes);
    QVERIFY2(applyPlan(plan, input, *now.names, now.sha256, false, nullptr, &error),
             qPrintable(error));
    input = readConfigurationInput(path);
    QCOMPARE(input.bytes, flipFlopFile({"g", "h", "i"}));
    QVERIFY(!accepts(plan, now.sha256));
    QVERIFY(memory.read(path, &error));
    QCOMPARE(reviewNames(input.configuration, memory, *now.names).counts.same, 3);

    // A memory that cannot be read is not replaced.
    write(NameMemory::fileFor(path), "<<<<<<< ours");
    QVERIFY(!recordNames(input, *now.names, now.sha256, {}, &error));
}

void TestNames::findsMovedNames()
{
    const Design old({{"f", {"a"}}, {"g", {"b"}}, {"h", {"c"}}});
    const Design now({{"f", {"a"}}, {"g", {"c"}}, {"i", {"b"}}});
    ConfigurationInput input =
        configurationInput(QStringLiteral("power.vlr"), flipFlopFile({"f", "g", "h"}));
    input.names.update(input.configuration, *old.names);
    const auto check = [&input](const Design &design) {
        DesignInput designInput;
        designInput.netlist = {std::shared_ptr<void>(), design.netlist.get()}; // borrowed
        designInput.names = {std::shared_ptr<void>(), design.names.get()};
        QStringList lines;
        const QVector<Finding> findings = checkConfiguration(input, designInput);
        for (const Finding &finding : findings)
            lines += QStringLiteral("%1 %2 %3 > %4")
                         .arg(QLatin1String(finding.rule->id), QString::number(finding.line),
                              finding.message, finding.proposal);
        return lines.join(QLatin1Char('\n'));
    };
    QCOMPARE(check(old), QString());
    QCOMPARE(check(now),
             QStringLiteral("name-moved 5 flip-flop \"g\" is in the netlist, but it "
                            "drives \"c\" now and drove \"b\" when it was recorded > i\n"
                            "name-missing 6 flip-flop \"h\" is not in the netlist > g"));
}

QTEST_GUILESS_MAIN(TestNames)
#include "test_names.moc"
