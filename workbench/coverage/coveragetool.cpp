#include "workbench/coverage/coveragetool.h"

#include "workbench/coverage/coverageservice.h"
#include "workbench/panes/coveragepane.h"

#include "host/core/ifileopener.h"

#include <QAction>
#include <QDockWidget>
#include <QMainWindow>
#include <QStatusBar>

namespace Workbench {

CoverageTool::CoverageTool(CheckService *checks, QMainWindow *window)
    : QObject(window)
    , m_window(window)
    , m_service(new CoverageService(checks))
    , m_dock(new QDockWidget(tr("Coverage"), window))
    , m_show(new QAction(tr("Show &Coverage"), this))
{
    auto *pane = new CoveragePane(m_service);
    m_dock->setObjectName(QStringLiteral("coverageDock"));
    m_dock->setWidget(pane);
    m_show->setObjectName(QStringLiteral("showCoverage"));
    m_show->setStatusTip(tr("See where the rates of the nets come from, and which have none"));
    connect(m_show, &QAction::triggered, this, &CoverageTool::showPane);
    connect(pane, &CoveragePane::ratesWanted, this, &CoverageTool::addRates);
}

void CoverageTool::showPane()
{
    m_dock->show();
    m_dock->raise();
    m_dock->widget()->setFocus();
    // At the start the panes leave their room to the views.
    const int useful = m_dock->fontMetrics().height() * 14;
    if (m_dock->height() < useful)
        m_window->resizeDocks({m_dock}, {useful}, Qt::Vertical);
}

void CoverageTool::addRates(const QStringList &nets)
{
    const QString path = m_service->current();
    Core::IFileOpener *opener = Core::IFileOpener::forFile(path);
    const int added = opener ? opener->addNetRates(path, nets) : -1;
    if (added == 0)
        m_window->statusBar()->showMessage(tr("The nets are already listed."));
    else if (added > 0)
        m_window->statusBar()->showMessage(
            added == 1 ? tr("1 net was added: enter its rate.")
                       : tr("%1 nets were added: enter their rates.").arg(added));
}

} // namespace Workbench
