#include "nlsdata/netlistreader.h"

#include "support/netlistjson.h"

#include "host/nlsdata/netlistinfo_p.h"
#include "host/nlsdata/netlistreader_p.h"
#include "host/nlsdata/readcontrol_p.h"
#include "nlsdata/netlist.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace NlsData;

namespace {

QByteArray inModule(const QByteArray &content)
{
    return "{\"modules\": {\"m\": {" + content + "}}}";
}

QByteArray inCell(const QByteArray &content)
{
    return inModule("\"netnames\": {\"n\": {\"bits\": [2]}}, \"cells\": {\"c\": {" + content +
                    "}}");
}

/// A module whose cells double at each of `levels` levels.
NetlistJson doubling(int levels)
{
    NetlistJson json;
    json.module("m0");
    for (int i = 1; i <= levels; ++i) {
        const QByteArray below = "m" + QByteArray::number(i - 1);
        json.module("m" + QByteArray::number(i)).cell("a", below).cell("b", below);
    }
    return json;
}

NetlistJson chain(int levels)
{
    NetlistJson json;
    for (int i = 0; i < levels; ++i)
        json.module("m" + QByteArray::number(i)).cell("c", "m" + QByteArray::number(i + 1));
    json.module("m" + QByteArray::number(levels));
    return json;
}

} // namespace

class TestNetlistReader : public QObject
{
    Q_OBJECT

private slots:
    void refuses_data();
    void refuses();
    void refusesFiles();
    void refusesWhatIsCutShort();
    void survivesBrokenBytes();
    void staysWithinLimits();
    void readsFieldsInAnyOrder();
    void cancels();
    void counts();

private:
    QTemporaryDir m_folder;
};

void TestNetlistReader::refuses_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("cause");
    const auto row = [](const char *name, const QByteArray &text, const char *cause) {
        QTest::newRow(name) << text << QString::fromUtf8(cause);
    };
    row("empty", "", "it is empty");
    row("white space", " \n\t ", "it is empty");
    row("not JSON", "module top();", "it is no netlist in JSON form");
    row("a list", "[1]", "it is no netlist in JSON form");
    row("two documents", "{\"modules\": {}} {}", "text follows its end");
    row("no comma", "{\"a\": 1 \"modules\": {}}", "it is not valid JSON");
    row("no comma where nothing is needed", "{\"a\": {\"b\": [1 2]}, \"modules\": {}}",
        "it is not valid JSON");
    row("bad UTF-8", "{\"modules\": {\"\xff\": {}}}", "it is not valid UTF-8");
    row("deep", "{\"a\": " + QByteArray(100000, '[') + QByteArray(100000, ']') + "}",
        "it nests too deeply");
    row("long name", "{\"modules\": {\"" + QByteArray(70000, 'x') + "\": {}}}",
        "a name is longer than 65535 bytes");
    row("no modules", "{\"creator\": \"x\"}", "has no 'modules'");
    row("modules is a list", "{\"modules\": []}", "'modules' is not what it should be");
    row("module is a number", "{\"modules\": {\"m\": 1}}", "'module' in module 'm'");
    row("bits is a number", inModule("\"ports\": {\"p\": {\"bits\": 2}}"),
        "'bits' in module 'm' at 'p'");
    row("negative bit", inModule("\"netnames\": {\"n\": {\"bits\": [-1]}}"), "'bits'");
    row("fractional bit", inModule("\"netnames\": {\"n\": {\"bits\": [2.5]}}"), "'bits'");
    row("huge bit", inModule("\"netnames\": {\"n\": {\"bits\": [4294967296]}}"), "'bits'");
    row("absurd offset", inModule("\"ports\": {\"p\": {\"bits\": [2], \"offset\": 4294967290}}"),
        "'offset' in module 'm' at 'p'");
    row("no type", inCell("\"connections\": {}"), "a cell has no type in module 'm' at 'c'");
    row("unknown bit", inCell("\"type\": \"T\", \"connections\": {\"A\": [2, 3]}"),
        "port 'A' of cell 'c' in module 'm' is connected to a bit that does not exist");
    row("unknown bit, sparse numbers",
        inModule("\"netnames\": {\"n\": {\"bits\": [900000]}}, \"cells\": {\"c\": {\"type\": \"T\","
                 "\"connections\": {\"A\": [7]}}}"),
        "is connected to a bit that does not exist");
    row("unknown port",
        "{\"modules\": {\"s\": {}, \"m\": {\"cells\": {\"c\": {\"type\": \"s\","
        "\"connections\": {\"A\": []}}}}}}",
        "port 'A' of cell 'c' in module 'm' does not exist in the cell's module");
    row("too many bits",
        "{\"modules\": {\"s\": {\"ports\": {\"A\": {\"bits\": [2]}}}, \"m\": {\"cells\": {\"c\": "
        "{\"type\": \"s\", \"connections\": {\"A\": [\"0\", \"1\"]}}}}}}",
        "is connected to more bits than it has");
    row("module twice", "{\"modules\": {\"m\": {}, \"m\": {}}}", "module 'm' is there twice");
    row("no module", "{\"modules\": {}}", "no module with contents");
    row("only blackboxes", inModule("\"attributes\": {\"blackbox\": \"1\"}"),
        "no module with contents");
    row("several tops", "{\"modules\": {\"a\": {}, \"b\": {}}}", "several could be it: 'a', 'b'");
    row("two marked",
        "{\"modules\": {\"a\": {\"attributes\": {\"top\": \"1\"}},"
        "\"b\": {\"attributes\": {\"top\": \"1\"}}}}",
        "more than one module is marked as top: 'a', 'b'");
    NetlistJson circle;
    circle.module("a").cell("x", "b");
    circle.module("b").cell("y", "a");
    row("circle", circle.toUtf8(), "its modules contain each other");
    circle.module("t").top().cell("z", "a");
    row("circle below the top", circle.toUtf8(), "module 'a' contains itself");
    NetlistJson self;
    self.module("a").cell("x", "a");
    row("itself", self.toUtf8(), "module 'a' contains itself");
    row("multiplying", doubling(60).toUtf8(), "more than 50000000 objects");
    row("deep hierarchy", chain(3000).toUtf8(), "more than 256 levels of hierarchy");
}

void TestNetlistReader::refuses()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, cause);
    QString error;
    QVERIFY(!readNetlistText(text.toStdString(), QStringLiteral("dir/%2.json"), &error));
    QVERIFY2(error.startsWith(QLatin1String("Cannot read the netlist file 'dir/%2.json': ")),
             qPrintable(error));
    QVERIFY2(error.contains(cause) && error.endsWith(QLatin1Char('.')), qPrintable(error));
    QVERIFY(!readNetlistText(text.toStdString(), QStringLiteral("x"), nullptr));
}

void TestNetlistReader::refusesFiles()
{
    QString error;
    const auto refused = [&](const QString &path, const char *cause) {
        error.clear();
        const std::unique_ptr<Netlist> netlist(readNetlistFile(path, &error, false));
        return !netlist && error.contains(QLatin1String(cause));
    };
    QVERIFY2(refused(QString(), "does not exist"), qPrintable(error));
    QVERIFY2(refused(m_folder.filePath(QStringLiteral("no.json")), "does not exist"),
             qPrintable(error));
    QVERIFY2(refused(m_folder.path(), "is a folder"), qPrintable(error));
    QVERIFY2(refused(QStringLiteral("/dev/zero"), "is no regular file"), qPrintable(error));
    QFile huge(m_folder.filePath(QStringLiteral("huge.json")));
    QVERIFY(huge.open(QIODevice::WriteOnly));
    if (huge.resize(qint64(5) << 30))
        QVERIFY2(refused(huge.fileName(), "larger than 4 GiB"), qPrintable(error));
}

void TestNetlistReader::refusesWhatIsCutShort()
{
    NetlistJson json;
    json.module("s").port("a", "input", {2}).port("y", "output", {3});
    json.module("t").top().port("p", "inout", {2}).cell("\\u", "s", {{"a", "input", {2}}});
    const std::string text = json.toUtf8().trimmed().toStdString();
    QVERIFY(readNetlistText(text, QStringLiteral("x"), nullptr));
    for (size_t size = 0; size < text.size(); ++size) {
        QString error;
        QVERIFY2(!readNetlistText(text.substr(0, size), QStringLiteral("x"), &error),
                 text.substr(0, size).c_str());
        QVERIFY(!error.isEmpty());
    }
}

/// Whatever a byte turns into, there is a netlist or a sentence.
void TestNetlistReader::survivesBrokenBytes()
{
    NetlistJson json;
    json.module("s").port("a", "input", {2, 3}, -4, true).port("y", "output", {3});
    json.module("t").top().port("p", "inout", {2}).cell("\\u", "s", {{"a", "input", {2, "0"}}});
    const std::string text = json.toUtf8().toStdString();
    for (size_t place = 0; place < text.size(); ++place) {
        for (const char byte : {'"', ']', '9', '\\', '\x80'}) {
            std::string broken = text;
            broken[place] = byte;
            QString error;
            const auto netlist = readNetlistText(broken, QStringLiteral("x"), &error);
            QCOMPARE(error.isEmpty(), bool(netlist));
            if (netlist)
                netlist->netMap();
        }
    }
}

void TestNetlistReader::staysWithinLimits()
{
    const std::string text = doubling(10).toUtf8().toStdString(); // 2046 instances
    ReadOptions options;
    options.limits.objects = 2046;
    const auto netlist = readNetlistText(text, QStringLiteral("x"), nullptr, options);
    QVERIFY(netlist);
    QCOMPARE(netlist->instances().size(), 2046);
    QCOMPARE(netlist->instances().last()->path(), QStringLiteral("b/b/b/b/b/b/b/b/b/b"));
    options.limits.objects = 2045;
    QVERIFY(!readNetlistText(text, QStringLiteral("x"), nullptr, options));
}

void TestNetlistReader::readsFieldsInAnyOrder()
{
    const std::string text = R"({"modules": {"m": {
        "cells": {"c": {"connections": {"Q": [2], "D": [3]},
                        "port_directions": {"D": "input", "Q": "output"},
                        "parameters": {"A": "1", "B": 2}, "type": "$_DFF_P_"}},
        "netnames": {"n": {"bits": [2, 3], "hide_name": 0}},
        "attributes": {"top": 1}}}})";
    const auto netlist = readNetlistText(text, QStringLiteral("x"), nullptr);
    QVERIFY(netlist);
    QCOMPARE(netlist->instances().first()->category(), 50);
    QCOMPARE(netlist->netMap().first()->driver(), netlist->instances().first());
    QVERIFY(!netlist->netMap().last()->driver());
}

void TestNetlistReader::cancels()
{
    NetlistJson json;
    json.module("m").cell("c", "x");
    const QString path = m_folder.filePath(QStringLiteral("cancel.json"));
    QVERIFY(json.write(path));
    ReadControl control;
    ReadOptions options;
    options.control = &control;
    QVERIFY(readNetlist(path, nullptr, options));
    QVERIFY(control.permille() >= 850);
    control.cancel();
    QString error;
    QVERIFY(!readNetlist(path, &error, options));
    QVERIFY2(error.contains(QLatin1String("cancelled")), qPrintable(error));
}

void TestNetlistReader::counts()
{
    NetlistJson json;
    json.module("sub").port("i", "input", {2}).cell("ff", "$_DFF_P_").cell("x", "odd");
    json.module("top")
        .top()
        .port("i", "input", {2, 3})
        .port("o", "output", {4})
        .cell("s", "sub", {{"i", "input", {2}}})
        .cell("y", "odd");
    const QString path = m_folder.filePath(QStringLiteral("info.json"));
    QVERIFY(json.write(path));
    QString error;
    QJsonObject info = netlistInfo(path, &error);
    QVERIFY(info.take(QStringLiteral("readMilliseconds")).toInt(-1) >= 0);
    info.remove(QStringLiteral("instancesByPrimitive"));
    QJsonDocument expected = QJsonDocument::fromJson(R"({
        "design": "top", "ports": {"0": 2, "1": 1, "2": 0, "3": 0}, "nets": 3, "instances": 4,
        "instancesByCategory": {"0": 3, "50": 1}, "moduleInstances": 1,
        "unknownCellTypes": {"odd": 2} })");
    QCOMPARE(info, expected.object());
    QVERIFY(netlistInfo(m_folder.path(), &error).isEmpty());
    QVERIFY(error.contains(QLatin1String("folder")));
}

QTEST_GUILESS_MAIN(TestNetlistReader)
#include "test_netlistreader.moc"
