#include "workbench/checks/checks.h"

#include "workbench/checks/checkservice.h"
#include "workbench/checks/reviewdialog.h"
#include "workbench/panes/checkspane.h"
#include "workbench/panes/findingsmodel.h"

#include "host/core/ifileopener.h"
#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/utils/dialogs.h"

#include <QAction>
#include <QDir>
#include <QDockWidget>
#include <QMainWindow>
#include <QMenu>
#include <QPointer>
#include <QStatusBar>
#include <QStyle>
#include <QToolButton>

namespace Workbench {

Checks::Checks(QMainWindow *window)
    : QObject(window)
    , m_window(window)
    , m_service(new CheckService(this))
    , m_dock(new QDockWidget(tr("Checks"), window))
    , m_menu(new QMenu(tr("&Checks"), window))
    , m_status(new QToolButton(window))
    , m_review(new QAction(tr("&Review Names\u2026"), this))
{
    auto *pane = new ChecksPane(m_service, {m_review});
    m_dock->setObjectName(QStringLiteral("checksDock"));
    m_dock->setWidget(pane);
    m_status->setObjectName(QStringLiteral("checksStatus"));
    m_status->setAutoRaise(true);
    m_status->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_status->setFocusPolicy(Qt::NoFocus);
    m_status->setToolTip(tr("Show the checks"));
    createMenu();
    connect(m_status, &QToolButton::clicked, this, &Checks::showPane);
    connect(pane, &ChecksPane::recordWanted, this, &Checks::goTo);
    connect(pane, &ChecksPane::instanceWanted, this,
            [this] { review(ReviewDialog::Subject::ActivityFiles); });
    connect(m_service, &CheckService::changed, this, &Checks::update);
    connect(m_service, &CheckService::message, this, &Checks::message);
    connect(m_service, &CheckService::failed, this, &Checks::failed);
    update();
}

void Checks::createMenu()
{
    QAction *show = m_menu->addAction(tr("&Show Checks"), this, &Checks::showPane);
    show->setObjectName(QStringLiteral("showChecks"));
    m_review->setObjectName(QStringLiteral("reviewNames"));
    m_review->setStatusTip(tr("See which names are missing or mean something else, and mend them"));
    m_menu->addAction(m_review);
    connect(m_review, &QAction::triggered, this, [this] { review(ReviewDialog::Subject::Names); });
    m_menu->addSeparator();
    m_recording = m_menu->addAction(tr("Record &Meaning of Names on Save"));
    m_recording->setObjectName(QStringLiteral("recordNames"));
    m_recording->setCheckable(true);
    m_recording->setStatusTip(
        tr("Keep what the names mean beside the configuration, in a file with the suffix .names"));
    connect(m_recording, &QAction::triggered, this, [](bool records) {
        if (Core::ProjectFile *project = Core::ProjectFile::current())
            project->setRecordsNames(records);
    });
    connect(m_menu, &QMenu::aboutToShow, this, &Checks::updateRecording);
    connect(Core::ProjectSession::get(), &Core::ProjectSession::currentProjectChanged, this,
            &Checks::updateRecording);
    updateRecording();
}

void Checks::updateRecording()
{
    const Core::ProjectFile *project = Core::ProjectFile::current();
    m_recording->setEnabled(project);
    m_recording->setChecked(project && project->recordsNames());
}

void Checks::update()
{
    const CheckService::State *state = m_service->state(m_service->current());
    const bool isChecked = state && state->isChecked;
    m_review->setEnabled(state);
    m_status->setVisible(isChecked);
    if (!isChecked) {
        m_dock->setWindowTitle(tr("Checks"));
        return;
    }
    const Check::Counts counts = countsOf(state->result.findings);
    const bool isClean = counts.errors + counts.warnings + counts.notes == 0;
    const Check::Level worst = counts.errors     ? Check::Level::Error
                               : counts.warnings ? Check::Level::Warning
                                                 : Check::Level::Note;
    m_dock->setWindowTitle(tr("Checks (%1)").arg(summary(counts)));
    m_status->setText(QLatin1Char(' ') + summary(counts)); // away from the icon
    m_status->setIcon(isClean ? m_status->style()->standardIcon(QStyle::SP_DialogApplyButton)
                              : FindingsModel::icon(worst));
}

void Checks::showPane()
{
    m_dock->show();
    m_dock->raise();
    m_dock->widget()->setFocus();
}

void Checks::review(ReviewDialog::Subject subject)
{
    const bool isNames = subject == ReviewDialog::Subject::Names;
    const QString path = m_service->current();
    const QPointer<Checks> self(this);
    if (path.isEmpty() ||
        !saveFirst(path, isNames ? tr("Review Names") : tr("Review Activity Files"),
                   isNames ? tr("%1 has unsaved changes. Save them and review its names?")
                           : tr("%1 has unsaved changes. Save them and review its activity "
                                "files?")) ||
        !self)
        return;
    const Core::ProjectFile *project = Core::ProjectFile::current();
    Utils::GuardedDialog dialog(new ReviewDialog(CheckService::jobFor(path), m_service->design(),
                                                 project && project->recordsNames(), subject,
                                                 m_window));
    // A record written after the decisions would override them.
    dialog->setBeforeApplying([this] { m_service->finishRecording(); });
    if (dialog.exec() != QDialog::Accepted)
        return;
    const bool isChanged = dialog->isFileChanged();
    if (isChanged)
        emit reloadWanted(path);
    if (!self)
        return;
    if (!isNames)
        m_service->keepScopes(path);
    else if (!isChanged)
        m_service->recheck(path);
}

// Names are repaired in the file, so view and file must agree.
bool Checks::saveFirst(const QString &path, const QString &title, const QString &question)
{
    Core::IFileOpener *opener = Core::IFileOpener::forFile(path);
    if (!opener->isModified(path))
        return true;
    const auto answer = Utils::showMessage(
        m_window, QMessageBox::Question, title, question.arg(QDir::toNativeSeparators(path)),
        QMessageBox::Save | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Save && opener->save(path);
}

void Checks::goTo(const Check::Finding &finding, int occurrence)
{
    Core::IFileOpener *opener = Core::IFileOpener::forFile(finding.file);
    if (opener && !opener->showRecord(finding.file, finding.section, finding.name, occurrence))
        m_window->statusBar()->showMessage(tr("\"%1\" is no longer listed.").arg(finding.name));
}

} // namespace Workbench
