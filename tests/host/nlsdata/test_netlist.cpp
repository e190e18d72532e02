#include "nlsdata/netlist.h"

#include "support/netlistjson.h"

#include "host/nlsdata/readnetlist.h"

#include <QtTest>

using namespace NlsData;

namespace {

std::unique_ptr<Netlist> readOrFail(const NetlistJson &json)
{
    QString error;
    auto netlist = readNetlistText(json.toUtf8().toStdString(), QStringLiteral("test"), &error);
    if (!netlist)
        qFatal("%s", qPrintable(error));
    return netlist;
}

/// The paths of ports or instances.
template<typename List>
QString paths(const List &objects)
{
    QStringList result;
    for (const auto *object : objects)
        result += object->path();
    return result.join(QLatin1Char(' '));
}

/// "path <- driver" of every net, in key order.
QString nets(const Netlist &netlist)
{
    QStringList lines;
    for (const Net *net : netlist.netMap()) {
        const Instance *driver = net->driver();
        lines += driver ? net->path() + QStringLiteral(" <- ") + driver->path() : net->path();
    }
    return lines.join(QLatin1String("; "));
}

} // namespace

class TestNetlist : public QObject
{
    Q_OBJECT

private slots:
    void vectors_data();
    void vectors();
    void hierarchy();
    void passingThrough();
    void constants();
    void netNames();
    void pathsAsWritten();
    void driversByDirection();
    void driversWithoutDirections();
    void codes();
    void duplicatePaths();
    void findsTop_data();
    void findsTop();
};

void TestNetlist::vectors_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("offset");
    QTest::addColumn<bool>("upto");
    QTest::addColumn<QString>("expected");
    QTest::newRow("single") << 1 << 0 << false << QStringLiteral("v");
    QTest::newRow("single bit of a vector") << 1 << 7 << false << QStringLiteral("v[7]");
    QTest::newRow("below zero") << 3 << -2 << false << QStringLiteral("v[-2] v[-1] v[0]");
    QTest::newRow("reversed with offset") << 2 << 5 << true << QStringLiteral("v[6] v[5]");
}

void TestNetlist::vectors()
{
    QFETCH(int, width);
    QFETCH(int, offset);
    QFETCH(bool, upto);
    QFETCH(QString, expected);
    NetlistJson::Bits bits;
    for (int i = 0; i < width; ++i)
        bits.append(2 + i);
    NetlistJson json;
    json.module("top").top().port("v", "output", bits, offset, upto);
    const auto netlist = readOrFail(json);
    QCOMPARE(paths(netlist->ports()), expected);
    for (const Port *port : netlist->ports()) {
        QCOMPARE(port->direction(), 1);
        QCOMPARE(port->net()->path(), port->path());
    }
}

void TestNetlist::hierarchy()
{
    NetlistJson json;
    json.module("leafbox").blackbox().port("I", "input", {2}).port("O", "output", {3});
    json.module("inner")
        .port("d", "input", {2})
        .port("q", "output", {3, 4})
        .net("mid", {5})
        .cell("g1", "leafbox", {{"I", "input", {2}}, {"O", "output", {5}}})
        .cell("g2", "leafbox", {{"I", "input", {5}}, {"O", "output", {3}}});
    json.module("outer")
        .port("d", "input", {2})
        .port("q", "output", {3, 4})
        .cell("in", "inner", {{"d", "input", {2}}, {"q", "output", {3, 4}}});
    json.module("top")
        .top()
        .port("data", "input", {2})
        .port("res", "output", {3, 4})
        .cell("a", "outer", {{"d", "input", {2}}, {"q", "output", {3}}})
        .cell("b", "outer", {{"q", "output", {4}}});
    const auto netlist = readOrFail(json);
    QCOMPARE(netlist->name(), QStringLiteral("top"));
    QCOMPARE(paths(netlist->instances()),
             QStringLiteral("a a/in a/in/g1 a/in/g2 b b/in b/in/g1 b/in/g2"));
    QCOMPARE(nets(*netlist),
             QStringLiteral("a/in/mid <- a/in/g1; a/q[1]; b/d; b/in/mid <- b/in/g1; b/q[1]; data; "
                            "res[0] <- a/in/g2; res[1] <- b/in/g2"));
    QCOMPARE(netlist->instanceMap().value(QStringLiteral("a/in/g1")), netlist->instances().at(2));
}

/// A module that connects two of its ports merges two nets outside; the better name is kept.
void TestNetlist::passingThrough()
{
    NetlistJson json;
    json.module("wire").port("i", "input", {2}).port("o", "output", {2});
    json.module("deep")
        .port("i", "input", {2})
        .port("o", "output", {3})
        .cell("w", "wire", {{"i", nullptr, {2}}, {"o", nullptr, {3}}});
    json.module("top")
        .top()
        .port("out", "output", {5})
        .generatedNet("$1", {2})
        .generatedNet("$2", {3})
        .net("named", {4})
        .cell("src", "$_NOT_", {{"Y", "output", {2}}})
        .cell("w1", "wire", {{"i", nullptr, {2}}, {"o", nullptr, {3}}})
        .cell("w2", "deep", {{"i", nullptr, {3}}, {"o", nullptr, {4}}})
        .cell("w3", "wire", {{"i", nullptr, {4}}, {"o", nullptr, {5}}});
    const auto netlist = readOrFail(json);
    QCOMPARE(nets(*netlist), QStringLiteral("out <- src"));
    QCOMPARE(netlist->ports().first()->net(), netlist->netMap().first());
}

void TestNetlist::constants()
{
    NetlistJson json;
    json.module("sub").port("en", "input", {2}).port("zero", "output", {"0"});
    json.module("top")
        .top()
        .port("tied", "output", {"1", 2})
        .cell("s", "sub", {{"en", "input", {"1"}}, {"zero", "output", {2}}});
    const auto netlist = readOrFail(json);
    QCOMPARE(nets(*netlist), QStringLiteral("s/en; tied[1]"));
    QVERIFY(!netlist->ports().at(0)->net());
    QCOMPARE(netlist->ports().at(1)->net()->path(), QStringLiteral("tied[1]"));
}

void TestNetlist::netNames()
{
    NetlistJson json;
    json.module("top")
        .top()
        .generatedNet("$auto$1", {2, 3, 4})
        .net("u_core.clk", {2, 3, 5})
        .net("clk_i", {2})
        .net("second", {2})
        .net("a.alias", {6})
        .port("z", "output", {6});
    QCOMPARE(nets(*readOrFail(json)),
             QStringLiteral("$auto$1[2]; clk_i; u_core.clk[1]; u_core.clk[2]; z"));
}

void TestNetlist::pathsAsWritten()
{
    const QByteArray strange = QByteArray("a/b[3] \"q\" \\back \xc3\xa9<&>");
    NetlistJson json;
    json.module("sub").net(strange, {2, 3});
    json.module("top").top().cell("$x$" + strange, "sub");
    const auto netlist = readOrFail(json);
    const QString name = QString::fromUtf8(strange);
    QCOMPARE(paths(netlist->instances()), QStringLiteral("$x$") + name);
    QVERIFY(netlist->netMap().contains(QStringLiteral("$x$%1/%1[1]").arg(name)));
}

void TestNetlist::driversByDirection()
{
    NetlistJson json;
    json.module("top")
        .top()
        .port("in", "input", {2})
        .port("out", "output", {3})
        .port("both", "inout", {4})
        .port("odd", "strange", {6})
        .net("n", {5})
        .cell("pad_in", "PAD", {{"P", "inout", {2}}})
        .cell("pad_out", "PAD", {{"P", "inout", {3}}})
        .cell("pad_both", "PAD", {{"P", "inout", {4}}})
        .cell("weak", "PAD", {{"P", "inout", {5}}})
        .cell("strong", "PAD", {{"P", "inout", {5}}, {"O", "output", {5}}});
    const auto netlist = readOrFail(json);
    QCOMPARE(nets(*netlist),
             QStringLiteral("both <- pad_both; in; n <- strong; odd; out <- pad_out"));
    QCOMPARE(netlist->ports().at(0)->direction(), 0);
    QCOMPARE(netlist->ports().at(2)->direction(), 2);
    QCOMPARE(netlist->ports().at(3)->direction(), 3);
}

void TestNetlist::driversWithoutDirections()
{
    NetlistJson json;
    json.module("box").blackbox().port("A", "input", {2}).port("Z", "output", {3, 4});
    json.module("top")
        .top()
        .net("n", {2000000000, 3, 4, 1000000000, 6}) // far apart: another table of bits
        .cell("b", "box", {{"A", nullptr, {2000000000}}, {"Z", nullptr, {3, 4}}})
        .cell("ff", "$_DFF_P_", {{"D", nullptr, {4}}, {"Q", nullptr, {1000000000}}})
        .cell("u", "nobody_knows", {{"Q", nullptr, {6}}});
    QCOMPARE(nets(*readOrFail(json)),
             QStringLiteral("n[0]; n[1] <- b; n[2] <- b; n[3] <- ff; n[4]"));
}

void TestNetlist::codes()
{
    NetlistJson json;
    json.module("$_DFF_P_").net("inside", {2});
    json.module("top").top().cell("ff", "$_DFF_N_").cell("own", "$_DFF_P_").cell("u", "unknown");
    const auto netlist = readOrFail(json);
    QCOMPARE(netlist->instances().at(0)->category(), 50);
    // A module with contents is what it contains, whatever its name.
    QCOMPARE(netlist->instances().at(1)->category(), 0);
    QCOMPARE(netlist->instances().at(2)->category(), 0);
}

void TestNetlist::duplicatePaths()
{
    NetlistJson json;
    json.module("top").top().net("v", {2, 3}).net("v[1]", {4}).cell("c", "a").cell("c", "b");
    const auto netlist = readOrFail(json);
    QCOMPARE(nets(*netlist), QStringLiteral("v[0]; v[1]"));
    QCOMPARE(netlist->instances().size(), 2);
    QCOMPARE(netlist->instanceMap().first(), netlist->instances().first());

    // Three long sorted runs, each with the same paths.
    NetlistJson runs;
    NetlistJson::Module &top = runs.module("top").top();
    for (int i = 0; i < 300; ++i)
        top.cell("c" + QByteArray::number(100 + i % 100), "a");
    const auto merged = readOrFail(runs);
    QCOMPARE(merged->instanceMap().size(), 100);
    int i = 0;
    for (const NlsData::Instance *instance : merged->instanceMap())
        QCOMPARE(instance, merged->instances().at(i++));
}

void TestNetlist::findsTop_data()
{
    QTest::addColumn<QByteArray>("attribute");
    QTest::addColumn<QByteArray>("mark"); // of the module "used"
    QTest::addColumn<QString>("top");
    QTest::newRow("no mark") << QByteArray("other") << QByteArray() << "alone";
    QTest::newRow("zero") << QByteArray("top") << QByteArray(32, '0') << "alone";
    QTest::newRow("marked") << QByteArray("top") << QByteArray("01") << "used";
}

/// The marked module, or the one that no other contains; a black box's contents are ignored.
void TestNetlist::findsTop()
{
    QFETCH(QByteArray, attribute);
    QFETCH(QByteArray, mark);
    NetlistJson json;
    json.module("box").blackbox().cell("x", "alone");
    json.module("used").attribute(attribute, mark).net("n", {2});
    json.module("alone").cell("u", "used");
    QTEST(readOrFail(json)->name(), "top");
}

QTEST_GUILESS_MAIN(TestNetlist)
#include "test_netlist.moc"
