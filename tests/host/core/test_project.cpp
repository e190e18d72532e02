#include "core/project.h"

#include "core/projectmanager.h"
#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "support/testhost.h"

#include <QtTest>

using namespace Core;

class TestProject : public QObject
{
    Q_OBJECT

private slots:
    void addsFilesAndSaves();
    void changesOneLine_data();
    void changesOneLine();
    void editsKeepOtherMembers();
    void reportsErrors_data();
    void reportsErrors();
};

void TestProject::addsFilesAndSaves()
{
    TestHost host;
    const QString path = host.write(QStringLiteral("p/x.fpgaproj"),
                                    "{\"name\": \"x\", \"own\": {\"kept\": 1}, \"files\": "
                                    "[\"a.vlr\"], \"results\": {\"RES.netlist\": \"../n.json\"}}");
    Project *project = ProjectSession::get()->open(path, nullptr);
    QVERIFY(project);
    ProjectFile *d = ProjectFile::of(project);
    QCOMPARE(d->resultFile(QStringLiteral("RES.netlist")), host.path(QStringLiteral("n.json")));
    QSignalSpy added(d, &ProjectFile::fileAdded);
    project->addFile(host.path(QStringLiteral("p/sub/../a.vlr"))); // is there already
    project->addFile(host.path(QStringLiteral("p/sub/b.vlr")));
    project->addFile(host.path(QStringLiteral("c.vlr")));
    project->addFile(QString());
    QCOMPARE(added.count(), 2);
    d->setDevice(QStringLiteral("dev"));
    const QJsonObject saved =
        QJsonDocument::fromJson(host.read(QStringLiteral("p/x.fpgaproj"))).object();
    QCOMPARE(saved[QLatin1String("files")].toVariant().toStringList(),
             QStringList({QStringLiteral("a.vlr"), QStringLiteral("sub/b.vlr"),
                          QStringLiteral("../c.vlr")}));
    QCOMPARE(saved[QLatin1String("own")].toObject()[QLatin1String("kept")].toInt(), 1);
    QVERIFY(ProjectSession::get()->open(path, nullptr));
    d = ProjectFile::of(ProjectManager::currentProject());
    QCOMPARE(d->device(), QStringLiteral("dev"));
    QCOMPARE(d->files().last(), host.path(QStringLiteral("c.vlr")));

    QSignalSpy failed(d, &ProjectFile::saveFailed);
    QVERIFY(QFile::remove(path));
    QVERIFY(QDir().mkdir(path)); // a folder is in the way, for root too
    d->setDevice(QStringLiteral("other"));
    QCOMPARE(failed.count(), 1);
    QCOMPARE(d->device(), QStringLiteral("other"));
}

void TestProject::changesOneLine_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("a file per line")
        << QByteArray("{\n  \"files\": [\n    \"a.vlr\"\n  ],\n  \"z\": 1\n}\n")
        << QByteArray("{\n  \"files\": [\n    \"new.vlr\",\n    \"a.vlr\"\n  ],\n  \"z\": 1\n}\n");
    QTest::newRow("files on a line, own order, unknown members")
        << QByteArray("{\r\n\t\"tool\" : { \"x\":[1, 2] },\r\n\t\"files\" : [ \"a.vlr\" "
                      "],\r\n\t\"device\":\"d\"\r\n}")
        << QByteArray("{\r\n\t\"tool\" : { \"x\":[1, 2] },\r\n\t\"files\" : [ \"a.vlr\", "
                      "\"new.vlr\" ],\r\n\t\"device\":\"d\"\r\n}");
    QTest::newRow("no list yet") << QByteArray(
                                        "{\n    \"name\": \"x\",\n    \"device\": \"d\"\n}\n")
                                 << QByteArray("{\n    \"name\": \"x\",\n    \"files\": "
                                               "[\"new.vlr\"],\n    \"device\": \"d\"\n}\n");
    QTest::newRow("all on a line") << QByteArray("{\"files\":[],\"name\":\"\\\"}{[\"}")
                                   << QByteArray("{\"files\":[\"new.vlr\"],\"name\":\"\\\"}{[\"}");
    QTest::newRow("empty") << QByteArray("{ }\n") << QByteArray("{\"files\": [\"new.vlr\"]}\n");
}

void TestProject::changesOneLine()
{
    QFETCH(QByteArray, before);
    TestHost host;
    const QString path = host.write(QStringLiteral("x.fpgaproj"), before);
    QVERIFY(ProjectSession::get()->open(path, nullptr));
    ProjectFile *project = ProjectFile::of(ProjectManager::currentProject());
    project->addFile(host.path(QStringLiteral("new.vlr")));
    QTEST(host.read(QStringLiteral("x.fpgaproj")), "after");
    project->removeFile(host.path(QStringLiteral("new.vlr")));
    QCOMPARE(project->files().contains(host.path(QStringLiteral("new.vlr"))), false);
    const QByteArray removed = host.read(QStringLiteral("x.fpgaproj"));
    QVERIFY2(removed == before || removed.contains("\"files\": []"), removed);
}

void TestProject::editsKeepOtherMembers()
{
    TestHost host;
    const QString path = host.path(QStringLiteral("new.fpgaproj"));
    QString error;
    QVERIFY(ProjectFile::create(path, QStringLiteral("n\u00e4me \"x\""), &error));
    QVERIFY(!ProjectFile::create(path, QStringLiteral("other"), &error));
    QVERIFY2(error.contains(QLatin1String("new.fpgaproj")), qPrintable(error));
    QVERIFY(ProjectSession::get()->open(path, nullptr));
    ProjectFile *project = ProjectFile::of(ProjectManager::currentProject());
    QCOMPARE(project->name(), QStringLiteral("n\u00e4me \"x\""));
    project->setDevice(QStringLiteral("d"));
    project->setSources({host.path(QStringLiteral("rtl/a.v")), host.path(QStringLiteral("b.sv"))});
    project->setSynthesis(
        QStringLiteral("yosys"),
        {QStringLiteral("-p"), QStringLiteral("synth; autoname; write_json n.json")});
    project->setResultFile(QStringLiteral("RES.netlist"), host.path(QStringLiteral("n.json")));
    const QByteArray text = host.read(QStringLiteral("new.fpgaproj"));
    project->setSources(project->sources()); // nothing new
    QCOMPARE(host.read(QStringLiteral("new.fpgaproj")), text);
    QVERIFY(ProjectSession::get()->open(path, nullptr));
    project = ProjectFile::of(ProjectManager::currentProject());
    QCOMPARE(project->device(), QStringLiteral("d"));
    QCOMPARE(project->sources().last(), host.path(QStringLiteral("b.sv")));
    QCOMPARE(project->synthesisArguments().value(0), QStringLiteral("-p"));
    QCOMPARE(project->resultFile(QStringLiteral("RES.netlist")),
             host.path(QStringLiteral("n.json")));

    // Scopes of activity files, beside what is not known in their member.
    const auto scopesAdded = [&host](const QByteArray &before) {
        const QString scopesPath = host.write(QStringLiteral("s.fpgaproj"), before);
        if (!ProjectSession::get()->open(scopesPath, nullptr))
            return QByteArray();
        ProjectFile *scoped = ProjectFile::of(ProjectManager::currentProject());
        scoped->addActivityScopes(
            {{{host.path(QStringLiteral("a.vcd")), QStringLiteral("u")}, QStringLiteral("tb/dut")},
             {{host.path(QStringLiteral("b.vcd")), QString()}, QStringLiteral("tb")}});
        return host.read(QStringLiteral("s.fpgaproj"));
    };
    QCOMPARE(
        scopesAdded("{\"activityScopes\": {\"a.vcd\": {\"own\": 1, \"u\": \"x\"}, \"b.vcd\": 5}}"),
        QByteArray(
            "{\"activityScopes\": {\"a.vcd\": {\"own\": 1, \"u\": \"tb/dut\"}, \"b.vcd\": 5}}"));
    QCOMPARE(scopesAdded("{\"activityScopes\": [1]}"), QByteArray("{\"activityScopes\": [1]}"));
    QVERIFY2(text.startsWith("{\n    \"name\": ") && text.count('\n') == 7, text);
}

void TestProject::reportsErrors_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("cause");
    QTest::newRow("cut") << QByteArray("{\"name\": ") << "not JSON";
    QTest::newRow("device") << QByteArray("{\"device\": 3}") << "\"device\"";
    QTest::newRow("files") << QByteArray("{\"files\": [1]}") << "\"files\"";
    QTest::newRow("synthesis") << QByteArray("{\"synthesis\": {\"arguments\": \"-a\"}}")
                               << "\"synthesis\"";
    QTest::newRow("results") << QByteArray("{\"results\": {\"RES.netlist\": []}}") << "\"results\"";
}

void TestProject::reportsErrors()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, cause);
    TestHost host;
    const Project *before = ProjectManager::currentProject();
    const QString path = host.write(QStringLiteral("bad.fpgaproj"), text);
    QString error;
    QVERIFY(!ProjectSession::get()->open(path, &error));
    QVERIFY2(error.contains(QLatin1String("bad.fpgaproj")) && error.contains(cause),
             qPrintable(error));
    QVERIFY(!ProjectSession::get()->open(host.path(QStringLiteral("none")), &error));
    QVERIFY(error.contains(QLatin1String("none")));
    QCOMPARE(ProjectManager::currentProject(), before);
}

QTEST_MAIN(TestProject)
#include "test_project.moc"
