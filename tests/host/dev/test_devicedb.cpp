#include "dev/devicedb.h"

#include "core/idecore.h"
#include "host/dev/devicecatalogue.h"
#include "host/te/deviceselection.h"
#include "support/testhost.h"
#include "te/proinfomanager.h"
#include "zum/voltage.h"

#include <QtTest>

using namespace DEV;

class TestDeviceDb : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void catalogueHasEverySupplyCase();
    void suppliesOfBuiltInFamilies_data();
    void suppliesOfBuiltInFamilies();
    void chipInfoFollowsProjectDevice();
    void addsDevices();
    void reportsErrors_data();
    void reportsErrors();

private:
    QTemporaryDir m_home;
};

void TestDeviceDb::initTestCase()
{
    // Before the catalogue is first used: it reads the user's file only once.
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_home.path()));
    QVERIFY(QDir().mkpath(QFileInfo(DeviceCatalogue::userFile()).absolutePath()));
    QFile file(DeviceCatalogue::userFile());
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("{\"devices\": [");
    file.close();
    const QString error = DeviceCatalogue::get()->userFileError();
    QVERIFY2(error.contains(QLatin1String("devices.json")), qPrintable(error));
}

/// Lists each device's supplies and ties; the plug-in treats these cases differently.
void TestDeviceDb::catalogueHasEverySupplyCase()
{
    QSet<QString> cases;
    int listed = 0;
    for (const Device &device : DeviceCatalogue::get()->devices()) {
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

void TestDeviceDb::suppliesOfBuiltInFamilies_data()
{
    QTest::addColumn<QString>("series");
    QTest::addColumn<QStringList>("vcc"); // minimum, maximum, default
    QTest::addColumn<QStringList>("vccx");
    const auto row = [](const char *id, const char *series, const char *vcc, const char *vccx) {
        const auto list = [](const char *text) {
            return QString::fromLatin1(text).split(QLatin1Char(' '));
        };
        QTest::newRow(id) << QString::fromLatin1(series) << list(vcc) << list(vccx);
    };
    const char *none = "  ";
    row("iCE40HX8K-CT256", "iCE40 LP/HX", "1.140 1.260 1.200", none);
    row("iCE40UP5K-SG48", "iCE40 UltraPlus", "1.140 1.260 1.200", none);
    row("LFE5U-25F-CABGA256", "ECP5", "1.045 1.155 1.100", "2.375 2.625 2.500");
    row("LFE5UM5G-85F-CABGA756", "ECP5-5G", "1.140 1.260 1.200", "2.375 2.625 2.500");
    for (const auto &[id, series] :
         {std::pair("XC7S50-CSGA324", "Spartan-7"), std::pair("XC7A35T-CPG236", "Artix-7"),
          std::pair("XC7K325T-FFG900", "Kintex-7")})
        row(id, series, "0.950 1.050 1.000", "1.710 1.890 1.800");
}

void TestDeviceDb::suppliesOfBuiltInFamilies()
{
    QFETCH(QString, series);
    QFETCH(QStringList, vcc);
    QFETCH(QStringList, vccx);
    const ChipInfo chip =
        DeviceCatalogue::get()->chipInfo(QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(chip.series, series);
    const ZUM::Voltage v(chip.device, chip.package);
    QCOMPARE(QStringList({v.getVCCMin(), v.getVCCMax(), v.getVCCDefaultValue()}), vcc);
    QCOMPARE(QStringList({v.getVCCXMin(), v.getVCCXMax(), v.getVCCXDefaultValue()}), vccx);
    QCOMPARE(v.getVCCLDODefaultValue(), QString());
}

void TestDeviceDb::chipInfoFollowsProjectDevice()
{
    TestHost host;
    auto *project = TE::ProInfoManager::instance();
    host.setDevice(QStringLiteral("QF1-05-LQ144"));
    QCOMPARE(project->deviceID(), QStringLiteral("QF1-05-LQ144"));
    QCOMPARE(project->chipInfo().device, QStringLiteral("QF1-05"));
    QCOMPARE(project->chipInfo().package, QStringLiteral("LQ144"));
    host.setDevice(QStringLiteral("unknown"));
    QCOMPARE(project->chipInfo().device, QString());
    QCOMPARE(ZUM::Voltage(QString(), QString()).getVCCDefaultValue(), QString());
}

void TestDeviceDb::addsDevices()
{
    TestHost host;
    DeviceCatalogue *db = DeviceCatalogue::get();
    const DeviceArg *kept =
        Core::IdeCore::deviceDataBase()->findByID(QStringLiteral("QF1-05-LQ144"));
    QString error;
    const QString path = host.write(
        QStringLiteral("own.json"),
        "{\"devices\": [{\"id\": \"mine\", \"partName\": \"M\", \"packageName\": \"P\","
        " \"voltage\": {\"vcc\": {\"min\": 0.9, \"max\": \"1.10\", \"default\": 1}}},"
        " {\"id\": \"QF1-01-QN48\", \"partName\": \"QF1-01\", \"packageName\": \"QN48\"}]}");
    QVERIFY2(db->addFile(path, &error), qPrintable(error));
    const ZUM::Voltage mine(QStringLiteral("M"), QStringLiteral("P"));
    QCOMPARE(mine.getVCCMin(), QStringLiteral("0.9"));
    QCOMPARE(mine.getVCCMax(), QStringLiteral("1.10"));
    QCOMPARE(ZUM::Voltage(QStringLiteral("QF1-01"), QStringLiteral("QN48")).getVCCDefaultValue(),
             QString()); // replaced
    // Of the entries of a part and package, a replacement of a built-in device is the newest; one
    // without data does not hide those that have it.
    const auto defaultVcc = [&](const QByteArray &voltage) {
        const QString file = host.write(QStringLiteral("own.json"),
                                        R"({"devices": [{"id": "QF2-10-BG256",)"
                                        R"("partName": "QF2-10","packageName": "BG256")" +
                                            voltage + "}]}");
        return db->addFile(file, &error)
                   ? ZUM::Voltage(QStringLiteral("QF2-10"), QStringLiteral("BG256"))
                         .getVCCDefaultValue()
                   : error;
    };
    QCOMPARE(defaultVcc(R"(, "voltage": {"vcc": {"min": 1, "max": 2, "default": 1.5}})"),
             QStringLiteral("1.5"));
    QCOMPARE(defaultVcc(QByteArray()), QStringLiteral("1.000"));
    QCOMPARE(Core::IdeCore::deviceDataBase()->findByID(QStringLiteral("QF1-05-LQ144")), kept);
}

void TestDeviceDb::reportsErrors_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("cause");
    const auto device = [](const char *name, const QByteArray &voltage, const char *cause) {
        QTest::newRow(name) << R"({"devices": [{"id": "good", "partName": "g"},)"
                               R"({"id": "i", "partName": "p", "voltage": )" +
                                   voltage + "}]}"
                            << "entry 2 of \"devices\" (\"i\")" << cause;
    };
    device("number as voltage", "5", "\"voltage\"");
    device("no number", R"({"vcc": {"min": "a", "max": 2, "default": 1}})", "\"vcc\"");
    device("not finite", R"({"vccx": {"min": 1, "max": "nan", "default": 1}})", "\"vccx\"");
    device("default too high", R"({"vcc": {"min": 1, "max": 2, "default": 2.1}})", "\"vcc\"");
    const QByteArray vcc = R"({"vcc": {"min": 1, "max": 2, "default": 1}, )";
    device("unknown tie", vcc + R"("ties": ["vcc-gnd"]})", "vcc-gnd");
    device("tie without a supply", vcc + R"("ties": ["vcc-vccx"]})", "both");
    device("tied defaults differ",
           vcc + R"("vccx": {"min": 1, "max": 2, "default": 1.1}, "ties": ["vcc-vccx"]})",
           "same range");
    const auto family = [](const char *name, const QByteArray &members, const char *cause) {
        QTest::newRow(name) << R"({"families": [{"series": "s")" + members + "}]}"
                            << "entry 1 of \"families\" (\"s\")" << cause;
    };
    family("no parts", "", "parts");
    family("no list of packages", R"(, "parts": {"p": "P"})", "\"p\"");
    family("list as voltage", R"(, "parts": {"p": ["P"]}, "voltage": [])", "\"voltage\"");
}

void TestDeviceDb::reportsErrors()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, entry);
    QFETCH(QString, cause);
    TestHost host;
    const std::size_t count = DeviceCatalogue::get()->devices().size();
    QString error;
    QVERIFY(!DeviceCatalogue::get()->addFile(host.write(QStringLiteral("bad.json"), text), &error));
    QVERIFY2(error.contains(QLatin1String("bad.json")) && error.contains(entry) &&
                 error.contains(cause),
             qPrintable(error));
    QCOMPARE(DeviceCatalogue::get()->devices().size(), count);
}

QTEST_MAIN(TestDeviceDb)
#include "test_devicedb.moc"
