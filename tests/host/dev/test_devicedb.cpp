#include "dev/devicedb.h"

#include "core/idecore.h"
#include "host/dev/devicedb_p.h"
#include "host/te/proinfomanager_p.h"
#include "support/testhost.h"
#include "te/proinfomanager.h"
#include "zum/voltage.h"

#include <QDir>
#include <QFile>
#include <QIcon>
#include <QSet>
#include <QtTest>

using namespace DEV;

class TestDeviceDb : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void survivesABrokenUserFile();
    void coversEveryCaseOfSupplies();
    void answersForTheProjectsDevice();
    void addsDevices();
    void tellsWhatIsWrong_data();
    void tellsWhatIsWrong();
    void shipsTheWarningImage();

private:
    QTemporaryDir m_home;
};

void TestDeviceDb::initTestCase()
{
    // Before anything asks for the data base, which reads the user's file once.
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
    QVERIFY(QDir().mkpath(QFileInfo(DeviceDbPrivate::userFile()).absolutePath()));
    QFile file(DeviceDbPrivate::userFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"devices\": [");
}

void TestDeviceDb::survivesABrokenUserFile()
{
    const QString error = DeviceDbPrivate::get()->userFileError();
    QVERIFY2(error.contains(QLatin1String("devices.json")) && error.contains(QLatin1String("JSON")),
             qPrintable(error));
    QVERIFY(!DeviceDbPrivate::get()->devices().empty());
}

/// Each device in the words of what it has; the plug-in tells these cases apart.
void TestDeviceDb::coversEveryCaseOfSupplies()
{
    QSet<QString> cases;
    QSet<QString> ids;
    int listed = 0;
    for (const Device &device : DeviceDbPrivate::get()->devices()) {
        QVERIFY2(!ids.contains(device.arg.id), qPrintable(device.arg.id));
        ids.insert(device.arg.id);
        const ZUM::Voltage v(device.arg.partName, device.arg.packageName);
        QString text;
        text += v.getVCCDefaultValue().isEmpty() ? QString() : QStringLiteral("V ");
        text += v.getVCCXDefaultValue().isEmpty() ? QString() : QStringLiteral("X ");
        text += v.getVCCLDODefaultValue().isEmpty() ? QString() : QStringLiteral("L ");
        text += v.isVCCVCCXShortCircuit() ? QStringLiteral("V=X ") : QString();
        text += v.isVCCXVCCLDOShortCircuit() ? QStringLiteral("X=L ") : QString();
        text += v.isVCCVCCLDOShortCircuit() ? QStringLiteral("V=L ") : QString();
        if (device.series == QLatin1String("QF1")) {
            ++listed;
            text = text.contains(QLatin1Char('=')) ? QStringLiteral("listed tied")
                                                   : QStringLiteral("listed free");
        }
        cases.insert(text.trimmed());
    }
    QCOMPARE(listed, 8);
    for (const char *expected : {"V X L", "V L", "V X", "V X L V=X", "V X L X=L", "V X L V=L",
                                 "V X L V=X X=L V=L", "", "listed tied", "listed free"})
        QVERIFY2(cases.contains(QString::fromLatin1(expected)), expected);
}

void TestDeviceDb::answersForTheProjectsDevice()
{
    TestHost host;
    QCOMPARE(host.device().partName, QStringLiteral("QF2-10"));
    host.setDevice(QStringLiteral("QF1-05-LQ144"));
    QCOMPARE(TE::ProInfoManager::instance()->deviceID(), QStringLiteral("QF1-05-LQ144"));
    const ChipInfo chip = TE::ProInfoManager::instance()->chipInfo();
    QCOMPARE(chip.device, QStringLiteral("QF1-05"));
    QCOMPARE(chip.package, QStringLiteral("LQ144"));
    QCOMPARE(chip.series, QStringLiteral("QF1"));
    host.setDevice(QStringLiteral("unknown"));
    QCOMPARE(TE::ProInfoManager::instance()->chipInfo().device, QString());
    QVERIFY(!Core::IdeCore::deviceDataBase()->findByID(QStringLiteral("unknown")));
    QCOMPARE(ZUM::Voltage(QString(), QString()).getVCCDefaultValue(), QString());
}

void TestDeviceDb::addsDevices()
{
    TestHost host;
    DeviceDbPrivate *db = DeviceDbPrivate::get();
    const DeviceArg *kept =
        Core::IdeCore::deviceDataBase()->findByID(QStringLiteral("QF1-05-LQ144"));
    QString error;
    const QString path = host.write(
        QStringLiteral("own.json"),
        "{\"devices\": [{\"id\": \"mine\", \"partName\": \"M\", \"packageName\": \"P\","
        " \"voltage\": {\"vcc\": {\"min\": 0.9, \"max\": \"1.10\", \"default\": 1}}},"
        " {\"id\": \"QF1-01-QN48\", \"partName\": \"QF1-01\", \"packageName\": \"QN48\"}]}");
    QVERIFY2(db->addFile(path, &error), qPrintable(error));
    QCOMPARE(ZUM::Voltage(QStringLiteral("M"), QStringLiteral("P")).getVCCMin(),
             QStringLiteral("0.9"));
    QCOMPARE(ZUM::Voltage(QStringLiteral("M"), QStringLiteral("P")).getVCCMax(),
             QStringLiteral("1.10"));
    QCOMPARE(ZUM::Voltage(QStringLiteral("QF1-01"), QStringLiteral("QN48")).getVCCDefaultValue(),
             QString()); // replaced
    QCOMPARE(Core::IdeCore::deviceDataBase()->findByID(QStringLiteral("QF1-05-LQ144")), kept);
}

void TestDeviceDb::tellsWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("device");
    QTest::addColumn<QString>("cause");
    QTest::newRow("no id") << QByteArray("\"partName\": \"x\"") << "\"id\"";
    const QByteArray id("\"id\": \"i\", \"partName\": \"p\", \"voltage\": ");
    const QByteArray vcc("\"vcc\": {\"min\": 1, \"max\": 2, \"default\": 1.5}");
    QTest::newRow("no object") << id + "5"
                               << "\"voltage\"";
    QTest::newRow("no number") << id + "{\"vcc\": {\"min\": \"a\", \"max\": 2, \"default\": 1}}"
                               << "\"vcc\"";
    QTest::newRow("nan") << id + "{\"vccx\": {\"min\": 1, \"max\": \"nan\", \"default\": 1}}"
                         << "\"vccx\"";
    QTest::newRow("outside") << id + "{\"vcc\": {\"min\": 1, \"max\": 2, \"default\": 2.1}}"
                             << "\"vcc\"";
    QTest::newRow("tie") << id + "{" + vcc + ", \"ties\": [\"vcc-gnd\"]}"
                         << "vcc-gnd";
    QTest::newRow("tie to nothing") << id + "{" + vcc + ", \"ties\": [\"vcc-vccx\"]}"
                                    << "both";
}

void TestDeviceDb::tellsWhatIsWrong()
{
    QFETCH(QByteArray, device);
    QFETCH(QString, cause);
    TestHost host;
    const std::size_t count = DeviceDbPrivate::get()->devices().size();
    const QString path =
        host.write(QStringLiteral("bad.json"),
                   "{\"devices\": [{\"id\": \"good\", \"partName\": \"g\"}, {" + device + "}]}");
    QString error;
    QVERIFY(!DeviceDbPrivate::get()->addFile(path, &error));
    QVERIFY2(error.contains(QLatin1String("bad.json")) && error.contains(cause) &&
                 error.contains(QLatin1String("device 2")),
             qPrintable(error));
    QCOMPARE(DeviceDbPrivate::get()->devices().size(), count);
}

void TestDeviceDb::shipsTheWarningImage()
{
    QVERIFY(!QPixmap(QStringLiteral(":/fpgaprj/image/warning.png")).isNull());
}

QTEST_MAIN(TestDeviceDb)
#include "test_devicedb.moc"
