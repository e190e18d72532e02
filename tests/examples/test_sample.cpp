#include "document/vltview.h"

#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"
#include "support/testhost.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Copies the folder with its permissions, so that its scripts run there.
void copyFolder(const QString &from, const QString &to)
{
    QDirIterator it(from, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        const QString target = to + it.next().mid(from.size());
        QVERIFY(QDir().mkpath(QFileInfo(target).path()));
        QVERIFY(QFile::copy(it.filePath(), target));
    }
}

} // namespace

/// The committed results of the sample are what its own scripts make of its sources.
class TestSample : public QObject
{
    Q_OBJECT

private slots:
    void resultsAreReproducible_data();
    void resultsAreReproducible();
    void coversEveryCase();
    void editorKeepsConfiguration();
};

void TestSample::resultsAreReproducible_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QByteArray>("body");

    // What stands before the body is the tool's version, and for the activity the date.
    QTest::newRow("netlist") << "yosys"
                             << "synthesise"
                             << "netlist.json" << QByteArray("\"modules\"");
    QTest::newRow("activity") << "iverilog"
                              << "simulate"
                              << "activity.vcd" << QByteArray("$timescale");
}

void TestSample::resultsAreReproducible()
{
    QFETCH(QString, program);
    QFETCH(QString, script);
    QFETCH(QString, result);
    QFETCH(QByteArray, body);
    if (QStandardPaths::findExecutable(program).isEmpty())
        QSKIP("the tool is not installed");

    const QString sample = QStringLiteral(SAMPLE_DIR);
    QTemporaryDir folder;
    copyFolder(sample, folder.path());
    QVERIFY(QFile::remove(folder.filePath(result)));

    QProcess run;
    run.setProcessChannelMode(QProcess::MergedChannels);
    run.start(folder.filePath(script), QStringList());
    QVERIFY(run.waitForFinished(120000));
    QVERIFY2(run.exitStatus() == QProcess::NormalExit && run.exitCode() == 0,
             run.readAll().constData());

    const QByteArray expected = contents(sample + QLatin1Char('/') + result);
    const QByteArray made = contents(folder.filePath(result));
    QVERIFY(expected.contains(body));
    if (program == QLatin1String("yosys") &&
        made.left(made.indexOf(body)) != expected.left(expected.indexOf(body)))
        QSKIP("another version of the tool made the committed netlist");
    QVERIFY(made.mid(made.indexOf(body)) == expected.mid(expected.indexOf(body)));
}

/// What the pages distinguish is in the design, as the netlist reader sees it.
void TestSample::coversEveryCase()
{
    QString error;
    const std::unique_ptr<NlsData::Netlist> netlist(
        NlsData::readNetlistFile(QStringLiteral(SAMPLE_DIR "/netlist.json"), &error, false));
    QVERIFY2(netlist, qPrintable(error));

    QStringList ports;
    for (const NlsData::Port *port : netlist->ports()) {
        const NlsData::Instance *driver = port->net() ? port->net()->driver() : nullptr;
        const int primitive = driver ? driver->primitive() : 0;
        const bool plain = primitive == 116 || primitive == 122 || primitive == 127;
        ports.append(QStringLiteral("%1 %2 %3")
                         .arg(QString::number(port->direction()),
                              plain ? QStringLiteral("plain") : QString(),
                              port->path().section(QLatin1Char('['), 0, 0)));
    }
    for (const char *expected : {"0  clk_sys", "1 plain leds", "1 plain link", "1 plain heartbeat",
                                 "1  clk_fwd", "1  bus_drive", "2  gpio", "2  sda"})
        QVERIFY2(ports.contains(QLatin1String(expected)), expected);

    QMap<QString, int> memories;
    int flipFlops = 0;
    int deepest = 0;
    for (const NlsData::Instance *instance : netlist->instances()) {
        deepest = qMax(deepest, instance->path().count(QLatin1Char('/')));
        flipFlops += instance->category() == 50 ? 1 : 0;
        if (instance->category() == 5)
            memories.insert(instance->path(), instance->primitive());
    }
    QCOMPARE(deepest, 2);
    QCOMPARE(flipFlops, 127);
    const QMap<QString, int> kinds{
        {QStringLiteral("u_store/u_tone"), 90},     {QStringLiteral("u_store/u_scratch"), 88},
        {QStringLiteral("u_store/u_capture"), 86},  {QStringLiteral("u_store/u_shared"), 85},
        {QStringLiteral("u_store/u_history"), 192}, {QStringLiteral("u_store/u_boot"), 194},
        {QStringLiteral("u_store/u_frame"), 199},   {QStringLiteral("u_store/u_exchange"), 201},
        {QStringLiteral("u_store/u_font"), 204},
    };
    QCOMPARE(memories, kinds);
}

/// Opening finds nothing to correct, and saving changes no byte.
void TestSample::editorKeepsConfiguration()
{
    const TestHost host;
    const QByteArray committed = contents(QStringLiteral(SAMPLE_DIR "/sample.vlr"));
    const QString copy = host.write(QStringLiteral("sample.vlr"), committed);
    QString error;
    VLT::VLTView view(
        host.device(),
        NlsData::readNetlistFile(QStringLiteral(SAMPLE_DIR "/netlist.json"), &error, false));
    QVERIFY(view.getNetlist());
    QVERIFY(view.readCfgFile(copy));
    QVERIFY(!view.isModified());
    QVERIFY(view.writeToFile());
    QCOMPARE(host.read(QStringLiteral("sample.vlr")), committed);
}

QTEST_MAIN(TestSample)
#include "test_sample.moc"
