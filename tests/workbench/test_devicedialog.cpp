#include "workbench/devicedialog.h"

#include "host/dev/devicecatalogue.h"
#include "support/testhost.h"

#include <QLabel>
#include <QTreeView>
#include <QtTest>

class TestDeviceDialog : public QObject
{
    Q_OBJECT

private slots:
    void warnsAboutDevicesWithoutSupplies_data();
    void warnsAboutDevicesWithoutSupplies();
};

void TestDeviceDialog::warnsAboutDevicesWithoutSupplies_data()
{
    QTest::addColumn<bool>("hasSupplies");
    QTest::newRow("QF2-10-BG256") << true; // by another entry of the same part and package
    QTest::newRow("QF2-10-BG484") << true;
    QTest::newRow("QF3-50-BG900") << false;
}

/// Exactly the devices that close open configurations are warned about.
void TestDeviceDialog::warnsAboutDevicesWithoutSupplies()
{
    QFETCH(bool, hasSupplies);
    TestHost host;
    auto *catalogue = DEV::DeviceCatalogue::get();
    QString error;
    const QString own = host.write(
        QStringLiteral("own.json"),
        R"({"devices": [{"id": "QF2-10-BG256", "partName": "QF2-10", "packageName": "BG256"}]})");
    QVERIFY2(catalogue->addFile(own, &error), qPrintable(error));
    Workbench::DeviceDialog dialog(QString::fromLatin1(QTest::currentDataTag()), nullptr);
    auto *list = dialog.findChild<QTreeView *>(QStringLiteral("deviceList"));
    const DEV::ChipInfo chip = catalogue->chipInfo(dialog.deviceId());
    QCOMPARE(catalogue->supplies(chip.device, chip.package).isKnown(), hasSupplies);
    const QModelIndex row = list->currentIndex();
    QCOMPARE(row.sibling(row.row(), 5).data().toString(),
             hasSupplies ? QStringLiteral("yes") : QStringLiteral("none"));
    const auto labels = dialog.findChildren<QLabel *>();
    const bool warned = std::any_of(labels.begin(), labels.end(), [](QLabel *label) {
        return label->text().contains(QLatin1String("will be closed"));
    });
    QCOMPARE(warned, !hasSupplies);
}

QTEST_MAIN(TestDeviceDialog)
#include "test_devicedialog.moc"
