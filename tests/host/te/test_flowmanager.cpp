#include "host/te/flowcontrol.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/utils/filewatcher.h"
#include "qutil/eventmanager.h"
#include "qutil/ievent.h"
#include "qutil/ieventhandler.h"
#include "support/testhost.h"
#include "te/constants.h"

#include <QtTest>

#include <cstdio>
#include <unistd.h>

using TE::FlowControl;
using Utils::FileStamp;

namespace {

/// Records the states that the event bus delivers.
class States : public QUtil::IEventHandler
{
public:
    States() { QUtil::EventManager::instance()->subscribe(this, m_type); }
    ~States() override { QUtil::EventManager::instance()->unsubscribe(this, m_type); }
    void handleIEvent(const QUtil::IEvent *event) override
    {
        QCOMPARE(event->value(QStringLiteral("process")).toString(), QStringLiteral("Process.Syn"));
        seen.append(QLatin1String(QMetaEnum::fromType<FlowControl::Status>().valueToKey(
            event->value(QStringLiteral("status")).toInt())));
        if (onEvent)
            onEvent();
    }
    QString text() const { return seen.join(QLatin1Char(' ')); }

    QStringList seen;
    std::function<void()> onEvent;

private:
    const QString m_type = QStringLiteral("TE.Process.Status.Change");
};

QByteArray projectText(const QString &program)
{
    return QStringLiteral("{\"synthesis\": {\"program\": \"%1\", \"arguments\": [\"synth.sh\", "
                          "\"a b; $c\"]}, \"results\": {\"RES.netlist\": \"impl/netlist.json\"}}")
        .arg(program)
        .toUtf8();
}

/// False for a process that has ended, even if it is still a zombie.
bool isAlive(const QByteArray &pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(QString::fromLatin1(pid.trimmed())));
    return stat.open(QIODevice::ReadOnly) && !stat.readAll().contains(") Z ");
}

} // namespace

class TestFlowManager : public QObject
{
    Q_OBJECT

private slots:
    void runsInProjectFolder();
    void reportsFailure_data();
    void reportsFailure();
    void stopsProcessGroup_data();
    void stopsProcessGroup();
    void restoresFilesAfterFailedRun_data();
    void restoresFilesAfterFailedRun();
    void endsIdleWithoutNewNetlist();
    void detectsNetlistReplacedByOtherProgram_data();
    void detectsNetlistReplacedByOtherProgram();
    void waitsForCompleteNetlist();
    void takesUpAnotherNetlistOfTheProject();
    void restartsFromItsOwnEvent();

private:
    FlowControl *const m_flow = FlowControl::get();
};

void TestFlowManager::runsInProjectFolder()
{
    TestHost host;
    m_flow->setWatching(true);
    host.write(QStringLiteral("synth.sh"),
               "echo \"out $1\"\necho err >&2\npwd\nprintf 'cr\\r\\n\\nno end'\n"
               "cat new.json > impl/netlist.json\n");
    const QByteArray netlist = TestHost::defaultNetlist() + ' ';
    const QString other = host.write(QStringLiteral("new.json"), netlist);
    Utils::FileWatcher witness(Utils::FileWatcher::Compare::Stamp);
    QSignalSpy written(&witness, &Utils::FileWatcher::changed);
    witness.watch(host.netlistPath());
    witness.watch(other);
    Core::ProjectSession::get()->open(
        host.write(QStringLiteral("p.fpgaproj"), projectText(QStringLiteral("sh"))), nullptr);
    QSignalSpy output(m_flow, &FlowControl::output);
    States states;
    QString error;
    QVERIFY2(m_flow->start(&error), qPrintable(error));
    QVERIFY(!m_flow->start(&error));
    QVERIFY(error.contains(QLatin1String("already")));
    QTRY_COMPARE(states.text(), QStringLiteral("Running Finished"));
    QStringList lines;
    for (const QList<QVariant> &line : output)
        lines.append(line.first().toString());
    QCOMPARE(lines, QStringList({QStringLiteral("out a b; $c"), QStringLiteral("err"),
                                 QDir(host.path(QString())).canonicalPath(), QStringLiteral("cr"),
                                 QString(), QStringLiteral("no end")}));
    QCOMPARE(host.read(QStringLiteral("impl/netlist.json")), netlist);
    // The run's own netlist is not a replacement by another program: that would have been reported
    // before a later change of another file.
    QTRY_COMPARE(written.count(), 1);
    host.write(QStringLiteral("new.json"), "later");
    QTRY_COMPARE(written.count(), 2);
    QCOMPARE(states.text(), QStringLiteral("Running Finished"));
}

void TestFlowManager::reportsFailure_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("cause");
    QTest::newRow("exit code") << "sh" << QByteArray("echo x > impl/netlist.json\nexit 3\n")
                               << "exit code 3";
    QTest::newRow("crash") << "sh" << QByteArray("kill -SEGV $$\n") << "crashed";
    QTest::newRow("no such program")
        << "no-such-program-here" << QByteArray() << "no-such-program-here was not found";
    QTest::newRow("not executable") << "./synth.sh" << QByteArray("\n") << "could not be started";
    QTest::newRow("no result") << "sh" << QByteArray("rm impl/netlist.json\n") << "did not write";
    QTest::newRow("nothing to run") << "" << QByteArray() << "no synthesis command";
}

void TestFlowManager::reportsFailure()
{
    QFETCH(QString, program);
    QFETCH(QByteArray, script);
    QFETCH(QString, cause);
    TestHost host;
    host.write(QStringLiteral("synth.sh"), script);
    Core::ProjectSession::get()->open(
        host.write(QStringLiteral("p.fpgaproj"), projectText(program)), nullptr);
    QSignalSpy messages(m_flow, &FlowControl::message);
    States states;
    QString error;
    if (m_flow->start(&error)) {
        QTRY_COMPARE(states.text(), QStringLiteral("Running Failed"));
        error = messages.last().first().toString();
    } else {
        QCOMPARE(states.text(), QString());
    }
    QVERIFY2(error.contains(cause), qPrintable(error));
    QCOMPARE(host.read(QStringLiteral("impl/netlist.json")), TestHost::defaultNetlist());
    QCOMPARE(QDir(host.path(QStringLiteral("impl"))).entryList(QDir::Files),
             QStringList(QStringLiteral("netlist.json")));
}

void TestFlowManager::stopsProcessGroup_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("project closed") << QByteArray("sleep 60 &\necho $!\nwait\n");
    QTest::newRow("deaf") << QByteArray(
        "trap '' TERM\nsleep 60 &\necho $!\nwhile :; do wait; done\n");
    QTest::newRow("deaf child") << QByteArray(
        "(trap '' TERM; while :; do sleep 1; done) &\necho $!\nwait\n");
}

void TestFlowManager::stopsProcessGroup()
{
    QFETCH(QByteArray, script);
    TestHost host;
    host.write(QStringLiteral("synth.sh"), "echo cut > impl/netlist.json\n" + script);
    States states;
    QSignalSpy output(m_flow, &FlowControl::output);
    QSignalSpy messages(m_flow, &FlowControl::message);
    QVERIFY(m_flow->start(nullptr));
    QTRY_COMPARE(output.count(), 1);
    const QByteArray child = output.first().first().toString().toLatin1();
    QVERIFY(isAlive(child));
    if (qstrcmp(QTest::currentDataTag(), "project closed") == 0) {
        Core::ProjectSession::get()->close();
        QTRY_VERIFY(!isAlive(child));
        QVERIFY(!m_flow->isRunning());
        QVERIFY(!m_flow->start(nullptr));
        return;
    }
    m_flow->stop(200);
    QTRY_COMPARE(states.text(), QStringLiteral("Running Stopped"));
    QTRY_VERIFY(!isAlive(child));
    QVERIFY(messages.last().first().toString().contains(QLatin1String("stopped")));
    QCOMPARE(host.read(QStringLiteral("impl/netlist.json")), TestHost::defaultNetlist());
}

void TestFlowManager::restoresFilesAfterFailedRun_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("written in place") << QByteArray("echo cut > impl/netlist.json\n");
    QTest::newRow("same size") << QByteArray("printf X | dd of=impl/netlist.json conv=notrunc\n");
    QTest::newRow("renamed over") << QByteArray("echo cut > new; mv new impl/netlist.json\n");
    QTest::newRow("removed") << QByteArray("rm impl/netlist.json\n");
    QTest::newRow("new file") << QByteArray("echo cut > impl/report.json\n");
}

/// A failed run keeps content, times and links, and does not touch the user's own copies.
void TestFlowManager::restoresFilesAfterFailedRun()
{
    QFETCH(QByteArray, script);
    TestHost host;
    host.write(QStringLiteral("synth.sh"), script + "exit 1\n");
    const QString own = host.write(QStringLiteral("impl/netlist.json.before-run"), "mine");
    const QString netlist = host.netlistPath();
    const QString store = host.path(QStringLiteral("store.json"));
    for (const char *kind : {"file", "symbolic link", "hard link"}) {
        if (qstrcmp(kind, "symbolic link") == 0) {
            QVERIFY(QFile::rename(netlist, store) && QFile::link(store, netlist));
        } else if (qstrcmp(kind, "hard link") == 0) {
            QVERIFY(QFile::remove(netlist));
            QCOMPARE(::link(QFile::encodeName(store), QFile::encodeName(netlist)), 0);
        }
        const FileStamp before = FileStamp::of(netlist);
        const bool isLink = QFileInfo(netlist).isSymLink();
        Core::ProjectSession::get()->open(
            host.write(QStringLiteral("p.fpgaproj"),
                       R"({"synthesis": {"program": "sh", "arguments": ["synth.sh"]}, "results":)"
                       R"({"RES.netlist": "impl/netlist.json", "r": "impl/report.json"}})"),
            nullptr);
        States states;
        QVERIFY(m_flow->start(nullptr));
        QTRY_COMPARE(states.text(), QStringLiteral("Running Failed"));
        const FileStamp after = FileStamp::of(netlist);
        QCOMPARE(host.read(QStringLiteral("impl/netlist.json")), TestHost::defaultNetlist());
        QCOMPARE(after.modified, before.modified);
        QVERIFY2(!script.isEmpty() || after == before, kind);
        QCOMPARE(QFileInfo(netlist).isSymLink(), isLink);
        QCOMPARE(host.read(QStringLiteral("impl/netlist.json.before-run")), QByteArray("mine"));
        QCOMPARE(QDir(host.path(QStringLiteral("impl"))).entryList(QDir::Files | QDir::Hidden),
                 QStringList({QStringLiteral("netlist.json"), QFileInfo(own).fileName()}));
        if (QFile::exists(store))
            QCOMPARE(host.read(QStringLiteral("store.json")), TestHost::defaultNetlist());
    }
}

void TestFlowManager::endsIdleWithoutNewNetlist()
{
    TestHost host;
    host.write(QStringLiteral("synth.sh"), "echo nothing to do\n");
    QSignalSpy messages(m_flow, &FlowControl::message);
    States states;
    QVERIFY(m_flow->start(nullptr));
    QTRY_COMPARE(states.text(), QStringLiteral("Running Idle"));
    QVERIFY(messages.last().first().toString().contains(QLatin1String("up to date")));
    host.write(QStringLiteral("synth.sh"), "cp -p impl/netlist.json n; mv n impl/netlist.json\n");
    QVERIFY(m_flow->start(nullptr));
    QTRY_COMPARE(states.text(), QStringLiteral("Running Idle Running Finished"));
}

void TestFlowManager::detectsNetlistReplacedByOtherProgram_data()
{
    QTest::addColumn<QString>("how");
    for (const char *how : {"written in place", "renamed over", "folder made again"})
        QTest::newRow(how) << QString::fromLatin1(how);
}

void TestFlowManager::detectsNetlistReplacedByOtherProgram()
{
    QFETCH(QString, how);
    TestHost host;
    m_flow->setWatching(true);
    States states;
    const QString path = host.netlistPath();
    for (int round = 1; round <= 2; ++round) { // the watch holds
        const QByteArray text = TestHost::defaultNetlist().append(QByteArray(round, ' '));
        if (how == QLatin1String("renamed over")) {
            const QString other = host.write(QStringLiteral("impl/new"), text);
            QCOMPARE(std::rename(QFile::encodeName(other), QFile::encodeName(path)), 0);
        } else {
            if (how == QLatin1String("folder made again"))
                QVERIFY(QDir(host.path(QStringLiteral("impl"))).removeRecursively());
            host.useNetlist(text);
        }
        QTRY_COMPARE(states.seen.size(), round);
    }
    QCOMPARE(states.text(), QStringLiteral("Finished Finished"));
}

void TestFlowManager::takesUpAnotherNetlistOfTheProject()
{
    TestHost host;
    m_flow->setWatching(true);
    States states;
    auto *project = Core::ProjectFile::current();
    const QString other = host.write(QStringLiteral("other.json"), TestHost::defaultNetlist());
    project->setName(QStringLiteral("renamed"));
    QCOMPARE(states.text(), QString());
    project->setResultFile(QLatin1String(TE::RES_NETLIST), other);
    QCOMPARE(states.text(), QStringLiteral("Finished"));
    host.write(QStringLiteral("other.json"), TestHost::defaultNetlist() + ' ');
    QTRY_COMPARE(states.text(), QStringLiteral("Finished Finished"));
}

/// A tool empties its file first and may take minutes to fill it.
void TestFlowManager::waitsForCompleteNetlist()
{
    TestHost host;
    m_flow->setWatching(true);
    States states;
    QSignalSpy messages(m_flow, &FlowControl::message);
    for (const QByteArray &text : {QByteArray(), TestHost::defaultNetlist().chopped(20)}) {
        messages.clear();
        host.useNetlist(text);
        QTRY_COMPARE_WITH_TIMEOUT(messages.count(), 1, 15000);
        const QString message = messages.first().first().toString();
        QVERIFY2(message.contains(QLatin1String("Cannot read the netlist file")) &&
                     message.contains(QLatin1String("netlist.json")),
                 qPrintable(message));
        QCOMPARE(states.text(), QString());
    }
    // After a run that writes nothing, another program's netlist is still used.
    host.write(QStringLiteral("synth.sh"), "exit 0\n");
    host.useNetlist(TestHost::defaultNetlist() + ' ');
    QVERIFY(m_flow->start(nullptr));
    QTRY_COMPARE(states.text(), QStringLiteral("Running Idle Finished"));

    Utils::FileWatcher witness(Utils::FileWatcher::Compare::Stamp);
    QSignalSpy removed(&witness, &Utils::FileWatcher::removed);
    witness.watch(host.netlistPath());
    QVERIFY(QFile::remove(host.netlistPath())); // a missing netlist is not a result
    QTRY_COMPARE(removed.count(), 1);
    host.useNetlist(TestHost::defaultNetlist());
    QTRY_COMPARE(states.text(), QStringLiteral("Running Idle Finished Finished"));
}

void TestFlowManager::restartsFromItsOwnEvent()
{
    TestHost host;
    host.write(QStringLiteral("synth.sh"), "touch impl/netlist.json\n");
    States states;
    states.onEvent = [&] {
        if (states.text() == QLatin1String("Running Finished"))
            QVERIFY(m_flow->start(nullptr));
        else if (states.seen.size() == 3)
            m_flow->stop(); // as soon as it runs
    };
    QVERIFY(m_flow->start(nullptr));
    QTRY_COMPARE(states.text(), QStringLiteral("Running Finished Running Stopped"));
}

QTEST_MAIN(TestFlowManager)
#include "test_flowmanager.moc"
