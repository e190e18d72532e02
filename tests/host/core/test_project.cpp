#include "core/project.h"

#include "core/projectmanager.h"
#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "support/testhost.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QtTest>

using namespace Core;

class TestProject : public QObject
{
    Q_OBJECT

private slots:
    void addsFilesAndSaves();
    void tellsWhatIsWrong_data();
    void tellsWhatIsWrong();
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

void TestProject::tellsWhatIsWrong_data()
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

void TestProject::tellsWhatIsWrong()
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
