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
    void warnsAboutDevicesWithoutSupplies();
};

/// The warning is for the devices that close open configurations, and for no other.
void TestDeviceDialog::warnsAboutDevicesWithoutSupplies()
{
    TestHost host;
    auto *catalogue = DEV::DeviceCatalogue::get();
    QString error;
    const QString own = host.write(
        QStringLiteral("own.json"),
        R"({"devices": [{"id": "QF2-10-BG256", "partName": "QF2-10", "packageName": "BG256"}]})");
    QVERIFY2(catalogue->addFile(own, &error), qPrintable(error));
    for (const char *id : {"QF2-10-BG256", "QF2-10-BG484", "QF3-50-BG900"}) {
        Workbench::DeviceDialog dialog(QString::fromLatin1(id), nullptr);
        auto *list = dialog.findChild<QTreeView *>(QStringLiteral("deviceList"));
        const DEV::ChipInfo chip = catalogue->chipInfo(dialog.deviceId());
        const bool known = catalogue->supplies(chip.device, chip.package).isKnown();
        const QModelIndex row = list->currentIndex();
        QCOMPARE(row.sibling(row.row(), 5).data().toString(),
                 known ? QStringLiteral("yes") : QStringLiteral("none"));
        const auto labels = dialog.findChildren<QLabel *>();
        const bool warned = std::any_of(labels.begin(), labels.end(), [](QLabel *label) {
            return label->text().contains(QLatin1String("will be closed"));
        });
        QCOMPARE(warned, !known);
        QCOMPARE(known, qstrcmp(id, "QF3-50-BG900") != 0);
    }
}

QTEST_MAIN(TestDeviceDialog)
#include "test_devicedialog.moc"
