#include "workbench/synthesis.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/te/flowcontrol.h"

#include <QAction>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QToolButton>

namespace Workbench {

namespace {

QString duration(qint64 milliseconds)
{
    constexpr qint64 minute = 60000;
    const QString seconds = QString::number(double(milliseconds % minute) / 1000, 'f', 1);
    return milliseconds < minute
               ? Synthesis::tr("%1 s").arg(seconds)
               : Synthesis::tr("%1 min %2 s").arg(milliseconds / minute).arg(seconds);
}

} // namespace

Synthesis::Synthesis(QObject *parent)
    : QObject(parent)
    , m_run(new QAction(tr("&Run synthesis"), this))
    , m_stop(new QAction(tr("&Stop"), this))
    , m_progress(new QWidget)
{
    m_run->setObjectName(QStringLiteral("runSynthesis"));
    m_run->setShortcut(Qt::CTRL + Qt::Key_R);
    m_run->setStatusTip(tr("Run the project's synthesis command"));
    m_stop->setObjectName(QStringLiteral("stopSynthesis"));
    m_stop->setStatusTip(tr("Stop the running synthesis"));
    auto *bar = new QProgressBar;
    bar->setRange(0, 0);
    bar->setTextVisible(false);
    bar->setMaximumWidth(120);
    bar->setMaximumHeight(bar->fontMetrics().height());
    auto *stop = new QToolButton;
    stop->setObjectName(QStringLiteral("stopButton"));
    stop->setDefaultAction(m_stop);
    stop->setAutoRaise(true);
    auto *layout = new QHBoxLayout(m_progress);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(bar);
    layout->addWidget(stop);

    auto *flow = TE::FlowControl::get();
    connect(m_run, &QAction::triggered, this, &Synthesis::start);
    connect(m_stop, &QAction::triggered, flow, [flow] { flow->stop(); });
    connect(flow, &TE::FlowControl::output, this, &Synthesis::output);
    connect(flow, &TE::FlowControl::message, this, &Synthesis::onMessage);
    connect(flow, &TE::FlowControl::statusChanged, this, &Synthesis::update);
    connect(Core::ProjectSession::get(), &Core::ProjectSession::currentProjectChanged, this,
            &Synthesis::update);
    update();
}

void Synthesis::start()
{
    QString error;
    m_clock.start();
    if (!TE::FlowControl::get()->start(&error)) {
        m_clock.invalidate();
        emit failed(error);
    }
}

void Synthesis::update()
{
    const bool running = TE::FlowControl::get()->isRunning();
    m_run->setEnabled(!running && Core::ProjectFile::current());
    m_stop->setEnabled(running);
    m_progress->setVisible(running && m_progress->parentWidget());
}

void Synthesis::onMessage(const QString &text)
{
    if (TE::FlowControl::get()->status() == TE::FlowControl::Failed)
        emit failed(text);
    else
        emit message(text);
    if (TE::FlowControl::get()->isRunning() || !m_clock.isValid())
        return;
    emit message(tr("The run took %1.").arg(duration(m_clock.elapsed())));
    m_clock.invalidate();
}

} // namespace Workbench
