#include "activitydesign.h"

#include "check/activity/scoperanking.h"

#include <QtTest>

using namespace Check;

namespace {

using Names = QList<QPair<QByteArray, int>>; ///< with the number of bits; 0 for a plain name

/// Flip-flops that drive nets of these names.
void addNets(NetlistJson::Module *module, const Names &names, int *bit, int offset = 0,
             bool upto = false)
{
    for (const auto &[name, count] : names) {
        NetlistJson::Bits bits;
        for (int i = 0; i < qMax(1, count); ++i) {
            module->cell(name + "_ff" + QByteArray::number(i), "SB_DFF",
                         {{"D", "input", {"0"}}, {"Q", "output", {*bit}}});
            bits.append((*bit)++);
        }
        module->net(name, bits, offset, upto);
    }
}

QByteArray var(const QByteArray &reference, int width = 1)
{
    static int code = 0;
    return "$var wire " + QByteArray::number(width) + " c" + QByteArray::number(++code) + ' ' +
           reference + " $end\n";
}

QByteArray scope(const QByteArray &name, const QByteArray &inside)
{
    return "$scope module " + name + " $end\n" + inside + "$upscope $end\n";
}

QByteArray vcd(const QByteArray &scopes)
{
    return scopes + "$enddefinitions $end\n#0\n";
}

/// "net<place" of all bits of the file that are nets, with both at the top.
QString matches(const ActivityFile &file, const DesignTree &design)
{
    QStringList list;
    const ScopeIndex index(file.declarations);
    ScopeMatch(file, index, design).descend(0, DesignTree::ROOT, [&](const MatchedBit &bit) {
        list << QStringLiteral("%1<%2").arg(design.netPath(bit.net)).arg(bit.place);
    });
    list.sort();
    return list.join(QLatin1Char(' '));
}

} // namespace

class TestScopes : public QObject
{
    Q_OBJECT

private slots:
    void bits_data();
    void bits();
    void levels();
    void ambiguousNames();
    void verdicts_data();
    void verdicts();
    void boundScope();
    void manyEqualInstances();
};

void TestScopes::bits_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("offset");
    QTest::addColumn<bool>("upto");
    QTest::addColumn<QByteArray>("variable");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, int count, int offset, bool upto, const QByteArray &v,
                        const char *expected) {
        QTest::newRow(name) << count << offset << upto << v << QString::fromLatin1(expected);
    };
    row("scalar", 0, 0, false, var("a"), "a<0");
    row("range", 2, 0, false, var("a [1:0]", 2), "a[0]<0 a[1]<1");
    row("part", 3, 0, false, var("a [2:1]", 2), "a[1]<0 a[2]<1");
    row("bits apart", 2, 0, false, var("a [0]") + var("a[1]"), "a[0]<0 a[1]<0");
    row("no range", 2, 5, false, var("a", 2), "a[5]<0 a[6]<1");
    row("upwards", 2, 3, true, var("a [3:4]", 2), "a[3]<1 a[4]<0");
    row("file upwards", 2, 0, false, var("a [0:1]", 2), "a[0]<1 a[1]<0");
    row("negative", 2, -1, false, var("a [0:-1]", 2), "a[-1]<0 a[0]<1");
    row("one bit, without its number", 1, 4, false, var("a"), "a[4]<0");
    row("one bit, with a number", 0, 0, false, var("a [0:0]"), "a<0");
    row("another number", 0, 0, false, var("a [1]"), "");
    row("outside", 2, 0, false, var("a [3:2]", 2), "");
    row("packed", 4, 0, false, var("a [1:0][1:0]", 4), "a[0]<0 a[1]<1 a[2]<2 a[3]<3");
    row("case", 0, 0, false, var("A"), "");
}

void TestScopes::bits()
{
    QFETCH(int, count);
    QFETCH(int, offset);
    QFETCH(bool, upto);
    QFETCH(QByteArray, variable);
    NetlistJson json;
    int bit = 2;
    addNets(&json.module("top").top(), {{"a", count}}, &bit, offset, upto);
    const ActivityDesign design(json);
    QTEST(matches(*activityFile(vcd(variable)), *design.tree), "expected");
}

/// A hierarchy on one side is a name on the other.
void TestScopes::levels()
{
    NetlistJson json;
    int bit = 10;
    auto &top = json.module("top").top();
    addNets(&top, {{"u_rx.reg", 2}, {"u_tx/\\odd", 0}, {"mem[1]", 2}, {"w[7]", 0}}, &bit);
    addNets(&json.module("sub"), {{"x.y", 0}}, &bit);
    top.cell("u_sub", "sub");
    const ActivityDesign design(json);
    const QByteArray hierarchical =
        scope("u_rx", var("reg [1:0]", 2)) + scope("u_tx", var("\\odd")) +
        scope("u_sub", scope("x", var("y"))) + var("mem [1:0][1:0]", 4) + var("\\w[7]");
    const QByteArray flat = var("\\u_rx.reg [1:0]", 2) + var("u_tx/odd") + var("\\u_sub.x.y") +
                            var("\\mem[1] [1:0]", 2) + var("w [7]");
    QByteArrayList expected{"mem[1][0]<0", "mem[1][1]<1",  "u_rx.reg[0]<0", "u_rx.reg[1]<1",
                            "u_sub/x.y<0", "u_tx/\\odd<0", "w[7]<0"};
    QCOMPARE(matches(*activityFile(vcd(flat)), *design.tree),
             QString::fromLatin1(expected.join(' ')));
    expected[0] = "mem[1][0]<2";
    expected[1] = "mem[1][1]<3";
    QCOMPARE(matches(*activityFile(vcd(hierarchical)), *design.tree),
             QString::fromLatin1(expected.join(' ')));
}

void TestScopes::ambiguousNames()
{
    NetlistJson json;
    int bit = 10;
    addNets(&json.module("top").top(), {{"a.b", 0}, {"a/b", 0}, {"c", 0}}, &bit);
    const ActivityDesign design(json);
    const auto matched = [&](const QByteArray &scopes) {
        return matches(*activityFile(vcd(scopes)), *design.tree);
    };
    QCOMPARE(matched(var("\\a.b") + var("c")), QStringLiteral("a.b<0 c<0"));
    QCOMPARE(matched(var("a/b")), QStringLiteral("a/b<0"));
    QCOMPARE(matched(scope("a", var("b")) + var("c")), QStringLiteral("c<0"));
}

void TestScopes::verdicts_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("verdict");
    QTest::addColumn<QByteArrayList>("pairs");
    const QByteArray core = var("one") + var("two") + var("three [3:0]", 4);
    const QByteArray cores = scope("u_a", core) + scope("u_b", core);
    const QByteArray top = var("left [7:0]", 8) + var("right");
    const auto row = [](const char *name, const QByteArray &scopes, const char *verdict,
                        const QByteArrayList &pairs) {
        QTest::newRow(name) << vcd(scopes) << QString::fromLatin1(verdict) << pairs;
    };
    row("all", scope("tb", scope("dut", top + cores)), "fits", {"tb/dut>"});
    row("no test bench", top + cores, "fits", {">"});
    row("most", scope("dut", top + scope("u_a", core)), "fits in part", {"dut>", "dut/u_a>u_a"});
    row("one core, called as in the design", scope("tb", scope("u_b", core)),
        "fits 2 instances equally", {"tb/u_b>u_a", "tb/u_b>u_b"});
    row("one of two", scope("tb", scope("core", core)), "fits 2 instances equally",
        {"tb/core>u_a", "tb/core>u_b"});
    row("flat",
        scope("dut", top + var("\\u_a.one") + var("\\u_a.two") + var("\\u_a.three [3:0]", 4) +
                         var("\\u_b.one") + var("\\u_b.two") + var("\\u_b.three [3:0]", 4)),
        "fits", {"dut>"});
    row("little", scope("tb", var("right") + var("other")), "does not fit", {"tb>"});
    row("nothing", scope("tb", var("other")), "does not fit", {});
}

void TestScopes::verdicts()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArrayList, pairs);
    NetlistJson json;
    int bit = 100;
    auto &top = json.module("top").top();
    addNets(&top, {{"left", 8}, {"right", 0}}, &bit);
    addNets(&json.module("core"), {{"one", 0}, {"two", 0}, {"three", 4}}, &bit);
    top.cell("u_a", "core").cell("u_b", "core");
    const ActivityDesign design(json);
    const auto activity = activityFile(file);
    const ScopeRanking ranking = rankScopes(*activity, *design.tree);
    QTEST(ranking.verdictText(), "verdict");
    QVERIFY(ranking.candidates.size() >= pairs.size());
    QByteArrayList best;
    for (int i = 0; i < ranking.candidates.size(); ++i) {
        const ScopeCandidate &candidate = ranking.candidates.at(i);
        best << (activity->declarations.path(candidate.scope) + QLatin1Char('>') +
                 design.tree->path(candidate.instance))
                    .toUtf8();
    }
    for (const QByteArray &pair : pairs)
        QVERIFY2(best.contains(pair), best.join(' ').constData());
    if (ranking.verdict == ScopeVerdict::Fits)
        QCOMPARE(best.first(), pairs.first());
    const bool isFit = ranking.verdict == ScopeVerdict::Fits;
    QCOMPARE(ranking.unmatchedNets.isEmpty(),
             isFit || ranking.verdict == ScopeVerdict::FitsSeveral);
    if (ranking.verdict == ScopeVerdict::DoesNotFit)
        QCOMPARE(ranking.unmatchedVariables, QStringList{QStringLiteral("tb/other")});
}

void TestScopes::boundScope()
{
    NetlistJson json;
    int bit = 100;
    auto &top = json.module("top").top();
    addNets(&json.module("core"), {{"one", 0}, {"two", 4}}, &bit);
    addNets(&json.module("other"), {{"three", 0}}, &bit);
    top.cell("u_a", "core").cell("u_b", "core").cell("u_c", "other");
    const ActivityDesign design(json);
    const QByteArray core = var("one") + var("two [3:0]", 4);
    const auto file =
        activityFile(vcd(scope("tb", scope("dut", scope("u_a", core) + scope("u_b", var("one"))))));
    const auto bound = [&](const char *instance) {
        const ScopeCandidate candidate =
            scopeFor(*file, *design.tree, design.tree->findScope(QString::fromLatin1(instance)));
        return QStringLiteral("%1 %2")
            .arg(file->declarations.path(candidate.scope))
            .arg(candidate.counts.coveredNets());
    };
    QCOMPARE(bound(""), QStringLiteral("tb/dut 6"));
    QCOMPARE(bound("u_a"), QStringLiteral("tb/dut/u_a 5"));
    // The scope of its own name covers less than another one.
    QCOMPARE(bound("u_b"), QStringLiteral("tb/dut/u_a 5"));
    QCOMPARE(bound("u_c"), QStringLiteral(" 0"));
    QCOMPARE(design.tree->findScope(QStringLiteral("none")), DesignTree::NONE);
}

/// Each of them votes for all the others: that must not make large designs slow.
void TestScopes::manyEqualInstances()
{
    const auto secondsFor = [](int count) {
        NetlistJson json;
        int bit = 100;
        auto &top = json.module("top").top();
        addNets(&json.module("core"), {{"one", 0}, {"two", 0}}, &bit);
        QByteArray cores;
        for (int i = 0; i < count; ++i) {
            const QByteArray name = "u_" + QByteArray::number(i);
            top.cell(name, "core");
            cores += scope(name, var("one") + var("two"));
        }
        const ActivityDesign design(json);
        const auto file = activityFile(vcd(scope("tb", scope("dut", cores))));
        QElapsedTimer timer;
        timer.start();
        const ScopeRanking ranking = rankScopes(*file, *design.tree);
        if (ranking.verdict != ScopeVerdict::Fits || ranking.candidates.first().instance != 0)
            qFatal("%s", qPrintable(ranking.verdictText()));
        return double(timer.nsecsElapsed()) / 1e9;
    };
    const double small = secondsFor(500);
    const double large = secondsFor(2000);
    QVERIFY2(large < 6 * small, qPrintable(QStringLiteral("%1 %2").arg(small).arg(large)));
}

QTEST_APPLESS_MAIN(TestScopes)
#include "test_scopes.moc"
