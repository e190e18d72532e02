#include "workbench/devicedialog.h"

#include "workbench/editcatalogue.h"

#include "host/dev/devicecatalogue.h"
#include "support/modaldriver.h"
#include "support/testhost.h"

#include <QAbstractButton>
#include <QDesktopServices>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QTreeView>
#include <QtTest>

class TestDeviceDialog : public QObject
{
    Q_OBJECT

private slots:
    void warnsAboutDevicesWithoutSupplies_data();
    void warnsAboutDevicesWithoutSupplies();
    void opensOwnCatalogue_data();
    void opensOwnCatalogue();

public slots:
    void openUrl(const QUrl &url) { m_opened = url.toLocalFile(); }

private:
    QString m_opened;
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
        return !label->isHidden() && label->text().contains(QLatin1String("will be closed"));
    });
    QCOMPARE(warned, !hasSupplies);
}

void TestDeviceDialog::opensOwnCatalogue_data()
{
    QTest::addColumn<QString>("opened");
    QTest::newRow("&d") << QStringLiteral("/devices.json");
    QTest::newRow("&c") << QStringLiteral("/cells");
}

void TestDeviceDialog::opensOwnCatalogue()
{
    QFETCH(QString, opened);
    TestHost host;
    const QString file = DEV::DeviceCatalogue::userFile();
    QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "openUrl");
    ModalDriver driver([&file](QWidget *box) {
        QVERIFY(qobject_cast<QMessageBox *>(box)->text().contains(file));
        const auto buttons = box->findChildren<QAbstractButton *>();
        for (QAbstractButton *button : buttons) {
            if (button->text().contains(QLatin1String(QTest::currentDataTag())))
                button->click();
        }
    });
    Workbench::editCatalogue(nullptr);
    QDesktopServices::unsetUrlHandler(QStringLiteral("file"));
    QCOMPARE(m_opened, QFileInfo(file).path() + opened);
    QVERIFY(QFileInfo::exists(m_opened));
    QString error; // what it begins with can be read
    QVERIFY2(DEV::DeviceCatalogue::get()->addFile(file, &error), qPrintable(error));
}

QTEST_MAIN(TestDeviceDialog)
#include "test_devicedialog.moc"
