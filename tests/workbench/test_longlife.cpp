#include "windowtest.h"

#include "config/configurationfile.h"

#include "core/constants.h"
#include "core/iview.h"
#include "host/core/commandregistry.h"
#include "host/core/viewarea.h"

#include <QtTest>
#include <QtWidgets>

#include <unistd.h>

using namespace Workbench;

namespace {

/// The number that an environment variable holds; `usual` where there is none.
int setting(const char *name, int usual)
{
    bool ok = false;
    const int value = qEnvironmentVariableIntValue(name, &ok);
    return ok ? value : usual;
}

double residentMegabytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    const QList<QByteArray> pages =
        file.open(QIODevice::ReadOnly) ? file.readAll().split(' ') : QList<QByteArray>();
    return pages.value(1).toDouble() * double(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

} // namespace

/// A long working day: views are opened, edited, saved and closed while synthesis ends, the device
/// changes, and other programs write the files, in any order. VLT_LIFE_VIEWS says how many views,
/// VLT_LIFE_SEED which order.
class TestLongLife : public WindowTest
{
    Q_OBJECT

private slots:
    void survivesADay();

private:
    int random(int below) { return int(m_random.bounded(below)); }
    QString anyFile() { return QStringLiteral("%1.vlr").arg(random(5)); }
    void doSomething();
    void answer();

    QRandomGenerator m_random;
    int m_opened = 0;
};

/// Presses any button of the question that is open.
void TestLongLife::answer()
{
    QWidget *dialog = QApplication::activeModalWidget();
    if (!dialog)
        return;
    auto buttons = dialog->findChildren<QAbstractButton *>();
    buttons.erase(std::remove_if(buttons.begin(), buttons.end(),
                                 [](const QAbstractButton *button) {
                                     return !button->isVisible() || !button->isEnabled();
                                 }),
                  buttons.end());
    if (!buttons.isEmpty())
        buttons.at(random(buttons.size()))->click();
}

void TestLongLife::doSomething()
{
    auto *area = Core::ViewArea::get();
    QWidget *view = area->activeView();
    switch (random(9)) {
    case 0:
    case 1:
    case 2:
        ++m_opened;
        window().open(m_host->path(anyFile()));
        break;
    case 3:
        if (view) {
            if (auto *spin = view->findChild<QDoubleSpinBox *>(QStringLiteral("spinAmbTemp")))
                spin->setValue(random(100));
        }
        break;
    case 4:
        Core::CommandRegistry::command(QLatin1String(Core::Constants::A_FILE_SAVE))->trigger();
        break;
    case 5:
        action("closeView")->trigger();
        break;
    case 6:
        m_host->write(anyFile(), QByteArray(EmptyFile).replace("<Config/>",
                                                               "<Config><AmbientTemp>" +
                                                                   QByteArray::number(random(90)) +
                                                                   "</AmbientTemp></Config>"));
        break;
    case 7:
        m_host->useNetlist(random(8) ? TestHost::defaultNetlist() : QByteArray("{"));
        m_host->finishSynthesis();
        break;
    default: {
        const char *devices[] = {"QF2-10-BG256", "QF2-12-LQ144", "QF2-22-QN48", "QF3-50-BG900"};
        m_host->setDevice(QLatin1String(devices[random(20) ? random(3) : 3]));
    }
    }
}

void TestLongLife::survivesADay()
{
    const int views = setting("VLT_LIFE_VIEWS", 60);
    m_random.seed(quint32(setting("VLT_LIFE_SEED", 1)));
    for (int i = 0; i < 5; ++i)
        m_host->write(QStringLiteral("%1.vlr").arg(i), EmptyFile);
    QTimer answers;
    connect(&answers, &QTimer::timeout, this, &TestLongLife::answer);
    answers.start(1);
    double early = 0;
    while (m_opened < views) {
        doSomething();
        QTest::qWait(random(4) ? 0 : 3);
        if (early == 0 && m_opened > views / 4)
            early = residentMegabytes();
    }
    QTRY_VERIFY(!QApplication::activeModalWidget());
    answers.stop();
    for (int i = 0; i < 5; ++i) {
        VLT::ReadReport report;
        VLT::readConfiguration(m_host->read(QStringLiteral("%1.vlr").arg(i)), &report);
        QVERIFY(report.isRead());
    }
    const double growth = residentMegabytes() - early;
    qInfo("%d views, %.1f MB more after the last three quarters", m_opened, growth);
#ifndef __SANITIZE_ADDRESS__ // which keeps what was freed
    QVERIFY2(growth < 40, qPrintable(QString::number(growth)));
#endif
}

QTEST_MAIN(TestLongLife)

#include "test_longlife.moc"
