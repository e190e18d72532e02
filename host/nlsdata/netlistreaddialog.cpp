#include "netlistreaddialog.h"

#include "netlistnotices.h"
#include "nlsdata/netlist.h"
#include "readcontrol.h"

#include <QDialogButtonBox>
#include <QEventLoop>
#include <QFileInfo>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include <atomic>
#include <thread>

namespace NlsData {

namespace {

constexpr int REFRESH_INTERVAL = 50;
constexpr int USUAL_DELAY = 500;

} // namespace

NetlistReadDialog::NetlistReadDialog(const QString &path, ReadControl *control, QWidget *parent)
    : QDialog(parent)
    , m_control(control)
    , m_label(new QLabel(this))
    , m_progress(new QProgressBar(this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Cancel, this))
{
    setWindowTitle(tr("Reading Netlist"));
    setModal(true);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setMinimumWidth(360);
    const QString name = QFileInfo(path).fileName();
    m_label->setText(
        tr("Reading %1\u2026").arg(fontMetrics().elidedText(name, Qt::ElideMiddle, 280)));
    m_progress->setRange(0, 1000);
    auto *layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_label);
    layout->addWidget(m_progress);
    layout->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &NetlistReadDialog::reject);
    connect(&m_timer, &QTimer::timeout, this, &NetlistReadDialog::refresh);
    m_timer.start(REFRESH_INTERVAL);
    refresh();
}

/// The dialog stays open until the read has ended.
void NetlistReadDialog::reject()
{
    m_control->cancel();
    m_label->setText(tr("Canceling\u2026"));
    m_buttons->button(QDialogButtonBox::Cancel)->setEnabled(false);
}

void NetlistReadDialog::refresh()
{
    m_progress->setValue(m_control->permille());
}

bool readWithDialog(QWidget *parent, const QString &path, ReadControl *control,
                    const std::function<void()> &read, int showAfter)
{
    QEventLoop loop;
    std::atomic<bool> finished{false};
    std::thread reader([&] {
        read();
        finished = true;
        QMetaObject::invokeMethod(&loop, "quit", Qt::QueuedConnection);
    });

    // A short read shows no dialog; user input in the meantime waits for its end.
    const QPointer<QWidget> guardedParent(parent);
    QTimer::singleShot(showAfter, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);

    QPointer<NetlistReadDialog> dialog;
    if (!finished && !(parent && !guardedParent)) {
        dialog = new NetlistReadDialog(path, control, guardedParent);
        QObject::connect(dialog, &QObject::destroyed, &loop, [control] { control->cancel(); });
        dialog->show();
    }
    while (!finished) {
        if (!dialog)
            control->cancel(); // the parent was deleted
        if (loop.exec() != 0)
            control->cancel(); // the program quits: no event loop runs any more
        if (control->isCancelled())
            break;
    }
    reader.join();
    const bool cancelled = control->isCancelled();
    delete dialog;
    return !cancelled;
}

std::unique_ptr<Netlist> readNetlistWithDialog(QWidget *parent, const QString &path, QString *error,
                                               ReadOptions options, int showAfter)
{
    ReadControl ownControl;
    if (!options.control)
        options.control = &ownControl;
    std::unique_ptr<Netlist> netlist;
    QString problem;
    const auto read = [&] { netlist = readNetlist(path, &problem, options); };
    if (!readWithDialog(parent, path, options.control, read, showAfter) && netlist) {
        netlist.reset();
        problem = QObject::tr("Reading the netlist file was canceled.");
    }
    if (error && !netlist)
        *error = problem;
    return netlist;
}

Netlist *readNetlistFileWithDialog(QWidget *parent, const QString &path, QString *error,
                                   bool reread)
{
    Q_UNUSED(reread) // nothing is kept from one read to the next
    QString problem;
    std::unique_ptr<Netlist> netlist =
        readNetlistWithDialog(parent, path, &problem, {}, USUAL_DELAY);
    NetlistNotices::get()->report(path, netlist.get(), problem);
    if (error && !netlist)
        *error = problem;
    return netlist.release();
}

} // namespace NlsData
