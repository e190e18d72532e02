#include "conditionspage.h"
#include "frame/vltsettingplugin.h"

#include <QtTest>

class TestVLTVoltages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_plugin.initialize()); }
    void cleanupTestCase() { m_plugin.shutDown(); }

    void suppliesShownPerDevice_data();
    void suppliesShownPerDevice();
    void checksStoredVoltage_data();
    void checksStoredVoltage();
    void tiedSuppliesMoveTogether_data();
    void tiedSuppliesMoveTogether();
    void hiddenSupplyIsDropped();
    void modelsWithFixedVccx();
    void showsVoltageRange();
    void deviceChangeAppliesSupplyRules();

private:
    VLT::VLTSettingPlugin m_plugin;
};

void TestVLTVoltages::suppliesShownPerDevice_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<QString>("supplies"); // shown; in parentheses when the user cannot set it
    QTest::addColumn<QString>("saved");
    const auto add = [](const char *device, const char *supplies, const char *saved) {
        QTest::newRow(device) << QString::fromLatin1(device) << QString::fromLatin1(supplies)
                              << QString::fromLatin1(saved);
    };
    add("QF2-10-BG256", "VCC VCCX VCCLDO", "VCC=1 VCCX=3.3 VCC_LDO=1.2");
    add("QF2-12-LQ144", "VCC VCCLDO", "VCC=1 VCC_LDO=1.2");
    add("QF2-14-QN88", "VCC VCCX", "VCC=1 VCCX=2.5");
    add("QF2-16-LQ144", "VCC (VCCX) VCCLDO", "VCC=1.2 VCCX=1.2 VCC_LDO=1.2");
    add("QF2-18-LQ144", "VCC VCCX (VCCLDO)", "VCC=1 VCCX=1.2 VCC_LDO=1.2");
    add("QF2-20-LQ144", "VCC VCCX (VCCLDO)", "VCC=1.2 VCCX=3.3 VCC_LDO=1.2");
    add("QF2-22-QN48", "VCC (VCCX) (VCCLDO)", "VCC=1.2 VCCX=1.2 VCC_LDO=1.2");
}

void TestVLTVoltages::suppliesShownPerDevice()
{
    QFETCH(QString, device);
    QFETCH(QString, saved);
    const TestHost host(device);
    const ConditionsPage page(host);
    QStringList shown;
    for (const char *supply : {"VCC", "VCCX", "VCCLDO"}) {
        const QWidget *label = page.find<QWidget>(QByteArray("label").append(supply));
        const QWidget *spin = page.spin(QByteArray("doubleSpin").append(supply));
        QCOMPARE(label->isHidden(), spin->isHidden());
        QCOMPARE(label->isEnabledTo(page.page), spin->isEnabledTo(page.page));
        if (!spin->isHidden())
            shown << (spin->isEnabledTo(page.page) ? QStringLiteral("%1") : QStringLiteral("(%1)"))
                         .arg(QString::fromLatin1(supply));
    }
    QTEST(shown.join(QLatin1Char(' ')), "supplies");
    QVERIFY(!page.view->isModified());
    QVERIFY2(page.saved().contains(saved + QLatin1Char(' ')), qPrintable(page.saved()));
}

void TestVLTVoltages::checksStoredVoltage_data()
{
    QTest::addColumn<QByteArray>("stored"); // VCC of a device with 0.9 to 1.1, default 1.0
    QTest::addColumn<double>("value");
    QTest::newRow("minimum") << QByteArray("0.9") << 0.9;
    QTest::newRow("maximum") << QByteArray("1.1") << 1.1;
    QTest::newRow("within the margin") << QByteArray("0.8999999999999999") << 0.9;
    QTest::newRow("below what is shown") << QByteArray("0.89951") << 0.9;
    QTest::newRow("below") << QByteArray("0.899") << 1.0;
    QTest::newRow("above") << QByteArray("1.101") << 1.0;
    QTest::newRow("far above") << QByteArray("1e9") << 1.0;
    QTest::newRow("no number") << QByteArray("x") << 1.0;
}

void TestVLTVoltages::checksStoredVoltage()
{
    QFETCH(QByteArray, stored);
    QFETCH(double, value);
    const TestHost host;
    const ConditionsPage page(host, "<VCC>" + stored + "</VCC>");
    QCOMPARE(page.spin("doubleSpinVCC")->value(), value);
    QCOMPARE(page.view->isModified(), value == 1.0); // a replaced value is a change
}

void TestVLTVoltages::tiedSuppliesMoveTogether_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<QByteArray>("edited");
    QTest::addColumn<double>("value");
    QTest::addColumn<QVector<double>>("values"); // VCC, VCCX, VCCLDO
    const auto add = [](const char *device, const char *edited, double value,
                        const QVector<double> &values) {
        QTest::addRow("%s %s", device, edited)
            << QString::fromLatin1(device) << QByteArray(edited) << value << values;
    };
    add("QF2-10-BG256", "doubleSpinVCC", 1.05, {1.05, 3.3, 1.2});
    add("QF2-16-LQ144", "doubleSpinVCC", 1.25, {1.25, 1.25, 1.2});
    add("QF2-18-LQ144", "doubleSpinVCCX", 1.3, {1.0, 1.3, 1.3});
    add("QF2-18-LQ144", "doubleSpinVCC", 1.05, {1.05, 1.2, 1.2});
    add("QF2-20-LQ144", "doubleSpinVCC", 1.25, {1.25, 3.3, 1.25});
    // All tied: only the first tie is kept.
    add("QF2-22-QN48", "doubleSpinVCC", 1.25, {1.25, 1.25, 1.2});
}

void TestVLTVoltages::tiedSuppliesMoveTogether()
{
    QFETCH(QString, device);
    QFETCH(QByteArray, edited);
    QFETCH(double, value);
    QFETCH(QVector<double>, values);
    const TestHost host(device);
    const ConditionsPage page(host);
    page.spin(edited)->setValue(value);
    QCOMPARE(page.spin("doubleSpinVCC")->value(), values.at(0));
    QCOMPARE(page.spin("doubleSpinVCCX")->value(), values.at(1));
    QCOMPARE(page.spin("doubleSpinVCCLDO")->value(), values.at(2));
    QVERIFY(page.view->isModified());
}

void TestVLTVoltages::hiddenSupplyIsDropped()
{
    const TestHost host(QStringLiteral("QF2-12-LQ144"));
    const ConditionsPage page(host, "<VCCX>2.5</VCCX>");
    QVERIFY(!page.saved().contains(QLatin1String("VCCX")));
    // The empty range holds it at 0, which is no default of a device.
    QCOMPARE(page.spin("doubleSpinVCCX")->value(), 0.0);
}

void TestVLTVoltages::modelsWithFixedVccx()
{
    const TestHost host(QStringLiteral("QF1-05-LQ144"));
    const ConditionsPage page(host);
    const QDoubleSpinBox *vccx = page.spin("doubleSpinVCCX");
    QVERIFY(vccx->isEnabledTo(page.page)); // what the supplies say came after the model
    for (const char *part : {"QF1-01", "QF1-08", "qf1-05", "QF1-09"}) {
        DEV::DeviceArg device;
        device.partName = QString::fromLatin1(part);
        page.view->setDevice(device);
        const bool fixed = part == QByteArray("QF1-01") || part == QByteArray("QF1-08");
        QCOMPARE(vccx->isEnabledTo(page.page), !fixed);
        page.page->checkVlotageShow();
        QVERIFY(vccx->isEnabledTo(page.page));
    }
}

void TestVLTVoltages::showsVoltageRange()
{
    struct StatusTips : QObject
    {
        bool eventFilter(QObject *, QEvent *event) override
        {
            if (event->type() == QEvent::StatusTip)
                tip = static_cast<QStatusTipEvent *>(event)->tip();
            return false;
        }
        QString tip;
    } shown;
    const TestHost host;
    const ConditionsPage page(host);
    QDoubleSpinBox *vcc = page.spin("doubleSpinVCC");
    const QString range = QStringLiteral("VCC: 0.900 V to 1.100 V");
    QCOMPARE(vcc->toolTip(), range);
    vcc->installEventFilter(&shown);
    vcc->selectAll();
    QTest::keyClicks(vcc, QStringLiteral("1.05"));
    QCOMPARE(shown.tip, QString());
    vcc->selectAll();
    QTest::keyClicks(vcc, QStringLiteral("7"));
    QCOMPARE(shown.tip, range);
    QTest::keyClicks(vcc, QStringLiteral("1"));
    QCOMPARE(shown.tip, QString());
    host.setDevice(QStringLiteral("QF2-16-LQ144"));
    QVERIFY(page.spin("doubleSpinVCCX")
                ->toolTip()
                .endsWith(QLatin1String("; one supply with VCC on this device")));
}

void TestVLTVoltages::deviceChangeAppliesSupplyRules()
{
    const TestHost host;
    const ConditionsPage page(host);
    host.raise(QStringLiteral("te.device.change"));
    host.raise(QStringLiteral("TE.Device.Change")); // the same device
    QVERIFY(!page.view->isModified());
    host.setDevice(QStringLiteral("QF2-16-LQ144"));
    QVERIFY(page.view->isModified());
    QCOMPARE(page.spin("doubleSpinVCC")->value(), 1.2);
    QCOMPARE(page.spin("doubleSpinVCCX")->value(), 1.2);
    QVERIFY(!page.spin("doubleSpinVCCX")->isEnabledTo(page.page));
    host.setDevice(QStringLiteral("QF2-12-LQ144"));
    QVERIFY(page.spin("doubleSpinVCCX")->isHidden());
    QCOMPARE(page.spin("doubleSpinVCC")->value(), 1.0);
}

QTEST_MAIN(TestVLTVoltages)

#include "test_vltvoltages.moc"
