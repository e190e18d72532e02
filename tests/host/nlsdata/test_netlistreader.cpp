#include "nlsdata/netlistreader.h"

#include "support/netlistjson.h"

#include "host/nlsdata/readnetlist.h"
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
    void reportsErrors_data();
    void reportsErrors();
    void reportsUnreadableFiles();
    void survivesBrokenBytes();
    void staysWithinLimits();

private:
    QTemporaryDir m_folder;
};

void TestNetlistReader::reportsErrors_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("cause");
    const auto row = [](const char *name, const QByteArray &text, const char *cause) {
        QTest::newRow(name) << text << QString::fromUtf8(cause);
    };
    row("empty", "", "the file is empty");
    row("not JSON", "module top();", "not a JSON netlist");
    row("two documents", "{\"modules\": {}} {}", "text after its end");
    row("no comma", "{\"a\": 1 \"modules\": {}}", "not valid JSON");
    row("no comma where nothing is needed", "{\"a\": {\"b\": [1 2]}, \"modules\": {}}",
        "not valid JSON");
    row("bad UTF-8", "{\"modules\": {\"\xff\": {}}}", "not valid UTF-8");
    row("deep", "{\"a\": " + QByteArray(100000, '[') + QByteArray(100000, ']') + "}",
        "nested too deeply");
    row("long name", "{\"modules\": {\"" + QByteArray(70000, 'x') + "\": {}}}",
        "a name is longer than 65535 bytes");
    row("no modules", "{\"creator\": \"x\"}", "'modules' is missing");
    row("module is a number", "{\"modules\": {\"m\": 1}}", "'module' in module 'm'");
    row("bits is a number", inModule("\"ports\": {\"p\": {\"bits\": 2}}"),
        "'bits' in module 'm' at 'p'");
    row("negative bit", inModule("\"netnames\": {\"n\": {\"bits\": [-1]}}"), "'bits'");
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
    row("module twice", "{\"modules\": {\"m\": {}, \"m\": {}}}", "module 'm' is defined twice");
    row("only blackboxes", inModule("\"attributes\": {\"blackbox\": \"1\"}"),
        "no module has any contents");
    row("several tops", "{\"modules\": {\"a\": {}, \"b\": {}}}",
        "several are candidates: 'a', 'b'");
    NetlistJson tops;
    tops.module("a").top();
    tops.module("b").top();
    row("two marked", tops.toUtf8(), "more than one module is marked as top: 'a', 'b'");
    NetlistJson circle;
    circle.module("a").cell("x", "b");
    circle.module("b").cell("y", "a");
    row("circle", circle.toUtf8(), "the modules contain each other");
    circle.module("t").top().cell("z", "a");
    row("circle below the top", circle.toUtf8(), "module 'a' contains itself");
    row("multiplying", doubling(60).toUtf8(), "more than 50000000 objects");
    row("deep hierarchy", chain(3000).toUtf8(), "more than 256 levels of hierarchy");
}

void TestNetlistReader::reportsErrors()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, cause);
    QString error;
    QVERIFY(!readNetlistText(text.toStdString(), QStringLiteral("dir/%2.json"), &error));
    QVERIFY2(error.startsWith(QLatin1String("Cannot read the netlist file 'dir/%2.json': ")),
             qPrintable(error));
    QVERIFY2(error.contains(cause) && error.endsWith(QLatin1Char('.')), qPrintable(error));
}

void TestNetlistReader::reportsUnreadableFiles()
{
    QString error;
    const auto refused = [&](const QString &path, const char *cause) {
        error.clear();
        const std::unique_ptr<Netlist> netlist(readNetlistFile(path, &error, false));
        return !netlist && error.contains(QLatin1String(cause));
    };
    QVERIFY2(refused(m_folder.filePath(QStringLiteral("no.json")), "does not exist"),
             qPrintable(error));
    QVERIFY2(refused(m_folder.path(), "is a folder"), qPrintable(error));
    QVERIFY2(refused(QStringLiteral("/dev/zero"), "not a regular file"), qPrintable(error));
    QFile huge(m_folder.filePath(QStringLiteral("huge.json")));
    QVERIFY(huge.open(QIODevice::WriteOnly));
    if (huge.resize(qint64(5) << 30))
        QVERIFY2(refused(huge.fileName(), "larger than 4 GiB"), qPrintable(error));
}

/// Wherever the text ends there is a sentence, and whatever a byte turns into a netlist or one.
void TestNetlistReader::survivesBrokenBytes()
{
    NetlistJson json;
    json.module("s").port("a", "input", {2, 3}, -4, true).port("y", "output", {3});
    json.module("t").top().port("p", "inout", {2}).cell("\\u", "s", {{"a", "input", {2, "0"}}});
    const std::string text = json.toUtf8().trimmed().toStdString();
    for (size_t place = 0; place < text.size(); ++place) {
        QString cut;
        QVERIFY(!readNetlistText(text.substr(0, place), QStringLiteral("x"), &cut));
        QVERIFY(!cut.isEmpty());
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

QTEST_GUILESS_MAIN(TestNetlistReader)
#include "test_netlistreader.moc"
