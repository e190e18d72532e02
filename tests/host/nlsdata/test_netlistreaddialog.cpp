#include "host/nlsdata/netlistreaddialog.h"

#include "support/modaldriver.h"
#include "support/netlistjson.h"

#include "host/nlsdata/readcontrol.h"
#include "nlsdata/netlist.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QSemaphore>
#include <QTemporaryDir>
#include <QtTest>

using namespace NlsData;

namespace {

/// Stops the reading thread at its first report until it is let go.
class HeldControl : public ReadControl
{
public:
    void report(int permille) override
    {
        if (!m_stopped) {
            m_stopped = true;
            gate.acquire();
        }
        ReadControl::report(permille);
    }

    QSemaphore gate;

private:
    bool m_stopped = false;
};

} // namespace

class TestNetlistReadDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void showsProgress();
    void cancels();
    void parentDeletedWhileReading();

private:
    std::unique_ptr<Netlist> read(QWidget *parent, int showAfter = 0);

    QTemporaryDir m_folder;
    QString m_path;
    QString m_error;
    std::unique_ptr<HeldControl> m_control;
};

void TestNetlistReadDialog::initTestCase()
{
    NetlistJson json;
    json.module("top").top().cell("c", "x");
    m_path = m_folder.filePath(QStringLiteral("a & b.json"));
    QVERIFY(json.write(m_path));
}

/// Reads with a control that the test holds and has to let go.
std::unique_ptr<Netlist> TestNetlistReadDialog::read(QWidget *parent, int showAfter)
{
    m_error.clear();
    ReadOptions options;
    options.control = m_control.get();
    return readNetlistWithDialog(parent, m_path, &m_error, options, showAfter);
}

/// The reader goes on by itself once the dialog has been looked at.
void TestNetlistReadDialog::showsProgress()
{
    QWidget parent;
    m_control = std::make_unique<HeldControl>();
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        if (auto *dialog = QApplication::activeModalWidget()) {
            QCOMPARE(dialog->parentWidget(), &parent);
            QVERIFY(dialog->findChild<QLabel *>()->text().contains(QLatin1String("a & b.json")));
            watch.stop();
            m_control->gate.release();
        }
    });
    watch.start();
    QVERIFY2(read(&parent), qPrintable(m_error));
    QVERIFY(!watch.isActive());
    QVERIFY(parent.findChildren<QDialog *>().isEmpty());

    QString error; // a short read has no dialog, which the driver of a later one would find
    QVERIFY(!readNetlistFileWithDialog(&parent, m_folder.path(), &error, true));
    QVERIFY2(error.contains(QLatin1String("it is a folder")), qPrintable(error));
}

void TestNetlistReadDialog::cancels()
{
    for (const bool byKey : {false, true}) {
        QWidget parent;
        m_control = std::make_unique<HeldControl>();
        ModalDriver driver([&](QWidget *dialog) {
            auto *button = dialog->findChild<QPushButton *>();
            if (byKey)
                QTest::keyClick(dialog, Qt::Key_Escape);
            else
                QTest::mouseClick(button, Qt::LeftButton);
            QVERIFY(dialog->isVisible()); // until the reader has stopped
            QVERIFY(!button->isEnabled());
            m_control->gate.release();
        });
        QVERIFY(!read(&parent));
        QVERIFY2(m_error.contains(QLatin1String("canceled")), qPrintable(m_error));
    }
}

void TestNetlistReadDialog::parentDeletedWhileReading()
{
    for (const bool shown : {true, false}) {
        auto *parent = new QWidget;
        m_control = std::make_unique<HeldControl>();
        QTimer::singleShot(shown ? 200 : 0, parent, [parent] { delete parent; });
        QTimer::singleShot(250, this, [this] { m_control->gate.release(); });
        QVERIFY(!read(parent, shown ? 0 : 100));
        QVERIFY2(m_error.contains(QLatin1String("canceled")), qPrintable(m_error));
    }
}

QTEST_MAIN(TestNetlistReadDialog)
#include "test_netlistreaddialog.moc"
