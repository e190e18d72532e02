#include "host/extsys/pluginmanager.h"

#include <QtTest>

using ExtSys::PluginManager;

class TestPluginManager : public QObject
{
    Q_OBJECT

private slots:
    void runsLifeCycleAndReportsFailures();
};

void TestPluginManager::runsLifeCycleAndReportsFailures()
{
    QTemporaryDir folder;
    for (const char *name : {"first", "refusing", "second", "wronginterface"}) {
        const QString file = QLatin1String(name) + QLatin1String(".so");
        QVERIFY(QFile::copy(QStringLiteral(FIXTURES "/") + file, folder.filePath(file)));
    }
    for (const char *name : {"broken.so", "empty.so", "readme.txt"}) {
        QFile file(folder.filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        if (QLatin1String(name) != QLatin1String("empty.so"))
            file.write("not a library");
    }

    PluginManager *manager = PluginManager::instance();
    QSignalSpy failed(manager, &PluginManager::loadFailed);
    manager->loadFolder(folder.path());
    manager->loadFolder(folder.path()); // the same libraries once more: nothing runs twice
    failed.clear();
    manager->initializePlugins();

    QStringList failures;
    QHash<QString, QString> reasons;
    for (const PluginManager::Failure &failure : manager->failures().mid(0, 3)) {
        failures.append(failure.fileName);
        reasons.insert(failure.fileName, failure.reason);
    }
    QCOMPARE(failures, QStringList({QStringLiteral("broken.so"), QStringLiteral("empty.so"),
                                    QStringLiteral("wronginterface.so")}));
    QVERIFY(!reasons.value(QStringLiteral("broken.so")).isEmpty());
    QVERIFY(reasons.value(QStringLiteral("wronginterface.so"))
                .contains(QLatin1String("ExtSys.IPlugin/1.0")));
    QCOMPARE(failed.count(), 1);
    QCOMPARE(failed.first().first().toString(), QStringLiteral("refusing.so"));
    QCOMPARE(manager->pluginNames(),
             QStringList({QStringLiteral("first.so"), QStringLiteral("second.so")}));

    QStringList pool;
    for (const QObject *object : manager->objects<QObject>())
        pool.append(object->objectName());
    QCOMPARE(pool.join(QLatin1String(", ")),
             QStringLiteral("first object 1, first object 2, second object 1, second object 2"));

    manager->initializePlugins(); // has nothing left to do
    manager->shutDown();
    QCOMPARE(qApp->property("log").toStringList().join(QLatin1String(", ")),
             QStringLiteral("first initialize, refusing initialize, refusing object 2, "
                            "refusing object 1, second initialize, first extensionsInitialized, "
                            "second extensionsInitialized, second shutDown, first shutDown, "
                            "second object 2, second object 1, first object 2, first object 1"));
    QVERIFY(manager->objects<QObject>().isEmpty());

    manager->loadFolder(QStringLiteral("/does/not/exist"));
    QCOMPARE(manager->failures().last().fileName, QStringLiteral("/does/not/exist"));
}

QTEST_MAIN(TestPluginManager)
#include "test_pluginmanager.moc"
