#include "workbench/synthesis.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/te/flowcontrol.h"

#include <QAction>
#include <QProgressBar>

namespace Workbench {

Synthesis::Synthesis(QObject *parent)
    : QObject(parent)
    , m_run(new QAction(tr("&Run synthesis"), this))
    , m_stop(new QAction(tr("&Stop"), this))
    , m_progress(new QProgressBar)
{
    m_run->setObjectName(QStringLiteral("runSynthesis"));
    m_run->setShortcut(Qt::CTRL + Qt::Key_R);
    m_run->setStatusTip(tr("Run the project's synthesis command"));
    m_stop->setObjectName(QStringLiteral("stopSynthesis"));
    m_stop->setStatusTip(tr("Stop the running synthesis"));
    m_progress->setRange(0, 0);
    m_progress->setTextVisible(false);
    m_progress->setMaximumWidth(120);
    m_progress->setMaximumHeight(m_progress->fontMetrics().height());

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
    if (!TE::FlowControl::get()->start(&error))
        emit failed(error);
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
}

} // namespace Workbench
