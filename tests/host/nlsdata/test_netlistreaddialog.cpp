#include "host/nlsdata/netlistreaddialog_p.h"

#include "support/modaldriver.h"
#include "support/netlistjson.h"

#include "host/nlsdata/readcontrol_p.h"
#include "nlsdata/netlist.h"

#include <QDialogButtonBox>
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
    void shortReadHasNoDialog();
    void failureTells();
    void finishes();
    void cancels_data();
    void cancels();
    void losesItsParent();
    void parentGoesBeforeItShows();

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

void TestNetlistReadDialog::shortReadHasNoDialog()
{
    QWidget parent;
    const std::unique_ptr<Netlist> netlist(
        readNetlistFileWithDialog(&parent, m_path, nullptr, false));
    QVERIFY(netlist);
    QVERIFY(parent.findChildren<QDialog *>().isEmpty());
}

void TestNetlistReadDialog::failureTells()
{
    QString error;
    QVERIFY(!readNetlistFileWithDialog(nullptr, m_folder.path(), &error, true));
    QVERIFY2(error.contains(QLatin1String("it is a folder")), qPrintable(error));
}

/// The reader goes on by itself once the dialog has been looked at.
void TestNetlistReadDialog::finishes()
{
    QWidget parent;
    m_control = std::make_unique<HeldControl>();
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&] {
        auto *dialog = qobject_cast<NetlistReadDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        QCOMPARE(dialog->parentWidget(), &parent);
        QVERIFY(dialog->isModal());
        QVERIFY(dialog->findChild<QLabel *>()->text().contains(QLatin1String("a & b.json")));
        watch.stop();
        m_control->gate.release();
    });
    watch.start();
    const auto netlist = read(&parent);
    QVERIFY2(netlist, qPrintable(m_error));
    QVERIFY(!watch.isActive());
    QVERIFY(parent.findChildren<QDialog *>().isEmpty());
}

void TestNetlistReadDialog::cancels_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("button") << false;
    QTest::newRow("key") << true;
}

void TestNetlistReadDialog::cancels()
{
    QFETCH(bool, byKey);
    QWidget parent;
    m_control = std::make_unique<HeldControl>();
    ModalDriver driver([&](QWidget *dialog) {
        auto *button = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Cancel);
        if (byKey)
            QTest::keyClick(dialog, Qt::Key_Escape);
        else
            QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(dialog->isVisible()); // until the reader has stopped
        QVERIFY(!button->isEnabled());
        m_control->gate.release();
    });
    QVERIFY(!read(&parent));
    QVERIFY2(m_error.contains(QLatin1String("cancelled")), qPrintable(m_error));
}

void TestNetlistReadDialog::losesItsParent()
{
    auto *parent = new QWidget;
    m_control = std::make_unique<HeldControl>();
    ModalDriver driver([&](QWidget *) {
        delete parent;
        m_control->gate.release();
    });
    QVERIFY(!read(parent));
    QVERIFY2(m_error.contains(QLatin1String("cancelled")), qPrintable(m_error));
}

void TestNetlistReadDialog::parentGoesBeforeItShows()
{
    auto *parent = new QWidget;
    m_control = std::make_unique<HeldControl>();
    QTimer::singleShot(0, parent, [parent] { delete parent; });
    QTimer::singleShot(50, this, [this] { m_control->gate.release(); });
    QVERIFY(!read(parent, 20));
    QVERIFY2(m_error.contains(QLatin1String("cancelled")), qPrintable(m_error));
}

QTEST_MAIN(TestNetlistReadDialog)
#include "test_netlistreaddialog.moc"
