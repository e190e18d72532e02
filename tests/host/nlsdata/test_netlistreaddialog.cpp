#include "host/nlsdata/netlistreaddialog.h"

#include "support/modaldriver.h"
#include "support/netlistjson.h"

#include "host/nlsdata/readcontrol.h"
#include "nlsdata/netlist.h"

#include <QtTest>
#include <QtWidgets>

using namespace NlsData;

namespace {

/// Blocks the reading thread at its first report until `gate` is released.
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
    void cancels_data();
    void cancels();
    void parentDeletedWhileReading_data();
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

/// Reads with `m_control`, whose gate the test has to release.
std::unique_ptr<Netlist> TestNetlistReadDialog::read(QWidget *parent, int showAfter)
{
    m_error.clear();
    ReadOptions options;
    options.control = m_control.get();
    return readNetlistWithDialog(parent, m_path, &m_error, options, showAfter);
}

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

    QString error; // a short read shows no dialog
    QVERIFY(!readNetlistFileWithDialog(&parent, m_folder.path(), &error, true));
    QVERIFY2(error.contains(QLatin1String("it is a folder")), qPrintable(error));
}

void TestNetlistReadDialog::cancels_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("Escape") << true;
}

void TestNetlistReadDialog::cancels()
{
    QFETCH(bool, byKey);
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

void TestNetlistReadDialog::parentDeletedWhileReading_data()
{
    QTest::addColumn<bool>("shown");
    QTest::newRow("with the dialog open") << true;
    QTest::newRow("before the dialog opens") << false;
}

void TestNetlistReadDialog::parentDeletedWhileReading()
{
    QFETCH(bool, shown);
    auto *parent = new QWidget;
    m_control = std::make_unique<HeldControl>();
    QPointer<QWidget> guard = parent;
    QTimer poll;
    connect(&poll, &QTimer::timeout, this, [&] {
        if (guard && (!shown || QApplication::activeModalWidget()))
            delete parent;
        else if (m_control->isCancelled())
            m_control->gate.release();
    });
    poll.start();
    QVERIFY(!read(parent, shown ? 0 : 100));
    QVERIFY2(m_error.contains(QLatin1String("canceled")), qPrintable(m_error));
}

QTEST_MAIN(TestNetlistReadDialog)
#include "test_netlistreaddialog.moc"
