#include "workbench/coverage/coveragetool.h"

#include "workbench/coverage/coverageservice.h"
#include "workbench/panes/coveragepane.h"

#include "host/core/ifileopener.h"
#include "host/utils/dialogs.h"

#include <QAction>
#include <QDockWidget>
#include <QFileInfo>
#include <QMainWindow>
#include <QPointer>
#include <QStatusBar>

namespace Workbench {

namespace {

constexpr int MANY = 1000; ///< nets that are not added without a question

} // namespace

CoverageTool::CoverageTool(CheckService *checks, QMainWindow *window)
    : QObject(window)
    , m_window(window)
    , m_service(new CoverageService(checks))
    , m_dock(new QDockWidget(tr("Coverage"), window))
    , m_show(new QAction(tr("Show &Coverage"), this))
{
    m_dock->setObjectName(QStringLiteral("coverageDock"));
    m_show->setObjectName(QStringLiteral("showCoverage"));
    m_show->setStatusTip(tr("See where the rates of the nets come from, and which have none"));
    connect(m_show, &QAction::triggered, this, &CoverageTool::showPane);
    connect(m_dock, &QDockWidget::visibilityChanged, this, [this](bool isVisible) {
        if (isVisible)
            createPane();
    });
}

void CoverageTool::createPane()
{
    if (m_dock->widget())
        return;
    auto *pane = new CoveragePane(m_service);
    m_dock->setWidget(pane);
    connect(pane, &CoveragePane::ratesWanted, this, &CoverageTool::addRates);
}

void CoverageTool::showPane()
{
    createPane();
    m_dock->show();
    m_dock->raise();
    m_dock->widget()->setFocus();
}

void CoverageTool::addRates(const QStringList &nets)
{
    const QString path = m_service->current();
    const QPointer<CoverageTool> self(this);
    if (nets.size() > MANY &&
        Utils::showMessage(
            m_window, QMessageBox::Question, tr("Add to Net Rates"),
            tr("Add %1 nets to the net rates of %2? Each of them needs a rate before "
               "you can save.")
                .arg(QString::number(nets.size()), QFileInfo(path).fileName()),
            QMessageBox::Yes | QMessageBox::Cancel, QMessageBox::Cancel) != QMessageBox::Yes)
        return;
    if (!self)
        return;
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
