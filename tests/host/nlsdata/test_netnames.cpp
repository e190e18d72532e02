#include "host/nlsdata/netnames.h"

#include "support/netlistjson.h"

#include "host/nlsdata/readcontrol.h"
#include "host/nlsdata/readnetlist.h"
#include "nlsdata/netlist.h"

#include <QCryptographicHash>
#include <QTemporaryDir>
#include <QtTest>

using namespace NlsData;

namespace {

std::unique_ptr<Netlist> readOrFail(const QByteArray &text, QByteArray *sha256 = nullptr)
{
    ReadOptions options;
    options.allNames = true;
    options.sha256 = sha256;
    QString error;
    auto netlist = readNetlistText(text.toStdString(), QStringLiteral("test"), &error, options);
    if (!netlist)
        qFatal("%s", qPrintable(error));
    return netlist;
}

QString joined(const NetNames::Names &names)
{
    return names.given.join(QLatin1Char(' ')) + QLatin1String(" | ") +
           names.fromCells.join(QLatin1Char(' ')) + QLatin1String(" | ") +
           names.generated.join(QLatin1Char(' '));
}

} // namespace

class TestNetNames : public QObject
{
    Q_OBJECT

private slots:
    void throughTheHierarchy();
    void everyNameFindsItsNet();
    void madeFromCells_data();
    void madeFromCells();
    void cells();
    void hashesInput();
};

void TestNetNames::throughTheHierarchy()
{
    NetlistJson json;
    json.module("leaf")
        .port("d", "input", {2})
        .port("q", "output", {3, 4}, 4, true)
        .net("state", {4, 3, "0"}, 8)
        .net("odd/name[1]", {3})
        .generatedNet("$1", {4})
        .cell("ff", "SB_DFF", {{"D", "input", {2}}, {"Q", "output", {3}}});
    json.module("through").port("a", "input", {2}).port("b", "output", {2});
    json.module("top")
        .top()
        .port("in", "input", {2})
        .port("out", "output", {6})
        .net("bus", {3, 4, 5, 6})
        .cell("u0", "leaf", {{"d", "input", {2}}, {"q", "output", {3, 4}}})
        .cell("u/1", "leaf", {{"d", "input", {3}}, {"q", "output", {5, 7}}})
        .net("wire", {7})
        .cell("t", "through", {{"a", "input", {7}}, {"b", "output", {6}}});
    const auto netlist = readOrFail(json.toUtf8());
    const NetNames names(*netlist);
    const auto namesOf = [&](const char *path) {
        const Net *net = names.find(QString::fromUtf8(path));
        return net ? joined(names.names(net)) : QString();
    };
    QCOMPARE(namesOf("in"), QStringLiteral("in u0/d |  | "));
    QCOMPARE(namesOf("u0/state[9]"),
             QStringLiteral("bus[0] u/1/d u0/odd/name[1] u0/q[5] u0/state[9] |  | "));
    QCOMPARE(namesOf("t/b"),
             QStringLiteral("bus[3] out t/a t/b u/1/q[4] u/1/state[8] wire |  | u/1/$1"));
    for (const char *missing : {"u0/state[7]", "u0/state[10]", "u0/state", "u0/q[3]", "in[0]",
                                "bus[]", "bus[+1]", "u/1", "u0/", "", "/", "t/b/a"})
        QVERIFY2(!names.find(QString::fromUtf8(missing)), missing);
    QVERIFY(names.has(QStringLiteral("u0/state[10]"))); // constant
    QVERIFY(!names.has(QStringLiteral("u0/state[11]")));

    const Instance *flipFlop = netlist->instanceMap().value(QStringLiteral("u/1/ff"));
    const QList<Net *> driven = names.drivenBy(flipFlop);
    QCOMPARE(driven.size(), 1);
    QCOMPARE(driven.first()->path(), QStringLiteral("bus[2]"));
    QVERIFY(names.drivenBy(netlist->instanceMap().value(QStringLiteral("u0"))).isEmpty());

    QString error;
    QVERIFY(!NetNames::areIn(
        *readNetlistText(json.toUtf8().toStdString(), QStringLiteral("test"), &error)));
}

void TestNetNames::everyNameFindsItsNet()
{
    QFile file(QStringLiteral(SAMPLE_DIR "/netlist.json"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    const auto netlist = readOrFail(file.readAll());
    const NetNames names(*netlist);
    int count = 0;
    names.forEachNet([&](Net *net) {
        const NetNames::Names all = names.names(net);
        const QStringList together = all.given + all.fromCells + all.generated;
        QVERIFY(together.contains(net->path()));
        for (const QString &name : together)
            QCOMPARE(names.find(name), net);
        count += together.size();
    });
    QVERIFY(count > netlist->netMap().size());
}

void TestNetNames::madeFromCells_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("madeFromCell");
    QTest::newRow("pin") << "x_SB_DFF_Q_D" << true;
    QTest::newRow("numbered cell") << "u.x_SB_DFF_Q_12_D" << true;
    QTest::newRow("numbered net") << "x_SB_DFF_Q_D_3" << true;
    QTest::newRow("chain") << "x_SB_DFF_Q_D_$lut_Y_A" << true;
    QTest::newRow("pin with underscore") << "x_$lut_IN_2_Y" << true;
    QTest::newRow("cell alone") << "x_SB_DFF_Q" << false;
    QTest::newRow("other pin") << "x_SB_DFF_Q_Y" << false;
    QTest::newRow("other pin of the cell") << "x_SB_DFF_Y_D" << false;
    QTest::newRow("no type") << "x_Q_D" << false;
    QTest::newRow("nothing in front") << "SB_DFF_Q_D" << false;
    QTest::newRow("module") << "x_uart_rx_tx" << false;
}

void TestNetNames::madeFromCells()
{
    QFETCH(QString, name);
    QFETCH(bool, madeFromCell);
    NetlistJson json;
    json.module("uart").port("rx", "input", {2}).port("tx", "output", {3});
    json.module("top")
        .top()
        .net(name.toUtf8(), {9})
        .net("n", {2, 3, 4})
        .cell("a", "SB_DFF", {{"D", "input", {9}}, {"Q", "output", {2}}})
        .cell("b", "$lut", {{"A", "input", {2}}, {"IN_2", "input", {2}}, {"Y", "output", {3}}})
        .cell("c", "uart", {{"rx", "input", {3}}, {"tx", "output", {4}}});
    const auto netlist = readOrFail(json.toUtf8());
    const NetNames names(*netlist);
    const NetNames::Names all = names.names(names.find(name));
    QCOMPARE(all.fromCells, madeFromCell ? QStringList(name) : QStringList());
    QCOMPARE(all.given, madeFromCell ? QStringList() : QStringList(name));
}

void TestNetNames::cells()
{
    const QByteArray text =
        R"({"modules": {
        "$paramod\\uart\\W=8": {"cells": {"f": {"type": "SB_DFF", "connections": {}}}},
        "$paramod$12ab\\fifo": {"cells": {}},
        "top": {"attributes": {"top": 1}, "cells": {
          "a": {"type": "$paramod\\uart\\W=8", "attributes": {"src": "t.v:1.1-2.2"}},
          "b": {"attributes": {"src": "t.v:3.1-3.9"}, "type": "$paramod$12ab\\fifo"},
          "c": {"type": "$scopeinfo", "attributes": {"cell_src": "t.v:4.1", "module": "gone",
                "module_src": "u.v:1"}, "parameters": {"TYPE": "module"}, "connections": {}},
          "d": {"type": "SB_DFF", "attributes": {"src": "t.v:1.1-2.2", "keep": {"src": []}}},
          "e": {"type": "SB_DFF", "attributes": {"src": 7}}}}}})";
    const auto netlist = readOrFail(text);
    const NetNames names(*netlist);
    QStringList lines;
    for (const Instance *instance : netlist->instances())
        lines += QStringList{instance->path(),
                             names.isModule(instance) ? QString() : names.cellType(instance),
                             names.module(instance), names.source(instance)}
                     .join(QLatin1Char(','));
    QCOMPARE(lines,
             (QStringList{QStringLiteral("a,,uart,t.v:1.1-2.2"), QStringLiteral("a/f,SB_DFF,,"),
                          QStringLiteral("b,,fifo,t.v:3.1-3.9"), QStringLiteral("c,,gone,t.v:4.1"),
                          QStringLiteral("d,SB_DFF,,t.v:1.1-2.2"), QStringLiteral("e,SB_DFF,,")}));
}

void TestNetNames::hashesInput()
{
    // More than one step of the thread, and no multiple of it.
    NetlistJson json;
    json.module("top").top().attribute("text", QByteArray((3 << 20) + 17, 'x'));
    const QByteArray text = json.toUtf8();
    const QByteArray expected = QCryptographicHash::hash(text, QCryptographicHash::Sha256).toHex();
    QByteArray sha256;
    readOrFail(text, &sha256);
    QCOMPARE(sha256, expected);

    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("n.json"));
    QVERIFY(json.write(path));
    ReadOptions options;
    options.sha256 = &sha256;
    sha256.clear();
    QString error;
    QVERIFY2(readNetlist(path, &error, options), qPrintable(error));
    QCOMPARE(sha256, expected);

    // A read that ends early does not wait for, or leave behind, its thread.
    ReadControl control;
    control.cancel();
    options.control = &control;
    QVERIFY(!readNetlist(path, &error, options));
}

QTEST_GUILESS_MAIN(TestNetNames)
#include "test_netnames.moc"
