#include "workbench/checks/reviewdialog.h"

#include "check/activity/scopereview.h"
#include "check/names/designnames.h"
#include "workbench/checks/namecompletion.h"
#include "workbench/checks/reviewtree.h"
#include "workbench/checks/shareddesign.h"

#include "host/nlsdata/readcontrol.h"
#include "host/te/worker.h"
#include "host/utils/dialogs.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSplitter>
#include <QVBoxLayout>

namespace Workbench {

namespace {

constexpr int PREVIEW_DELAY = 150; // ms
constexpr int PREVIEW_LINES = 1000;

QString counted(int count, const QString &what)
{
    return QStringLiteral("%1 %2%3").arg(QString::number(count), what,
                                         QLatin1String(count == 1 ? "" : "s"));
}

} // namespace

ReviewDialog::ReviewDialog(const CheckJob &job, SharedDesign *design, bool writeMemory,
                           Subject subject, QWidget *parent)
    : QDialog(parent)
    , m_job(job)
    , m_design(design)
    , m_writeMemory(writeMemory)
    , m_subject(subject)
    , m_tree(new ReviewTree)
    , m_state(new QLabel)
    , m_changes(new QPlainTextEdit)
    , m_control(std::make_unique<NlsData::ReadControl>())
{
    setObjectName(QStringLiteral("reviewDialog"));
    setWindowTitle(
        (subject == Subject::Names ? tr("Review Names: %1") : tr("Review Activity Files: %1"))
            .arg(QFileInfo(job.path).fileName()));
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_state->setObjectName(QStringLiteral("reviewState"));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setWordWrap(true);
    m_changes->setObjectName(QStringLiteral("reviewChanges"));
    m_changes->setAccessibleName(tr("Changes"));
    m_changes->setReadOnly(true);
    m_changes->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_changes->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_changes->setPlaceholderText(tr("The changes of the ticked rows appear here."));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    m_apply = buttons->addButton(tr("&Apply"), QDialogButtonBox::AcceptRole);
    m_apply->setObjectName(QStringLiteral("applyReview"));
    m_apply->setEnabled(false);
    connect(buttons, &QDialogButtonBox::accepted, this, &ReviewDialog::apply);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_tree, &ReviewTree::editsChanged, this, &ReviewDialog::schedulePreview);
    m_later.setSingleShot(true);
    m_later.setInterval(PREVIEW_DELAY);
    connect(&m_later, &QTimer::timeout, this, &ReviewDialog::makePreview);

    auto *splitter = new QSplitter(Qt::Vertical);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(m_tree);
    splitter->addWidget(m_changes);
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(splitter, 1);
    layout->addWidget(m_state);
    layout->addWidget(buttons);
    const int character = fontMetrics().averageCharWidth();
    resize(character * 150, fontMetrics().height() * 34);
    read();
}

ReviewDialog::~ReviewDialog()
{
    m_control->cancel();
    m_worker.reset();
}

void ReviewDialog::setState(const QString &text, bool isError)
{
    QPalette colors = QApplication::palette(m_state);
    if (isError)
        colors.setColor(QPalette::WindowText, colors.color(QPalette::Window).lightness() < 128
                                                  ? QColor(255, 120, 110)
                                                  : QColor(176, 0, 0));
    m_state->setPalette(colors);
    m_state->setText(text);
}

void ReviewDialog::read()
{
    if (m_subject == Subject::ActivityFiles) {
        m_tree->setAccessibleName(tr("Activity files"));
        m_tree->setHeaderLabels({tr("Instance"), tr("New Instance"), tr("Certainty"), tr("Why")});
    }
    setState(m_subject == Subject::Names
                 ? tr("Comparing the names with the netlist\u2026")
                 : tr("Comparing the activity files with the netlist\u2026"));
    m_worker = std::make_unique<TE::Worker>([this](const TE::Worker &) {
        m_designInput = m_design->get(m_job.netlistPath, m_job.device, m_control.get());
        m_input = Check::readConfigurationInput(m_job.path);
        m_designInput.scopes = m_job.scopes;
        if (!m_designInput.names || !m_input.isUsable())
            return;
        m_review = m_subject == Subject::ActivityFiles
                       ? reviewScopes(m_input, m_designInput)
                       : reviewNames(m_input.configuration, m_input.names, *m_designInput.names);
    });
    connect(m_worker.get(), &TE::Worker::done, this, &ReviewDialog::onRead);
}

void ReviewDialog::onRead()
{
    m_worker.release()->deleteLater();
    QString error;
    if (!m_input.isUsable())
        error = m_input.readable ? m_input.report.error : m_input.error;
    else if (!m_designInput.names)
        error = m_designInput.netlistError.isEmpty() ? tr("no netlist is known")
                                                     : m_designInput.netlistError;
    else if (!m_input.namesError.isEmpty())
        error = tr("the memory of names cannot be read: %1").arg(m_input.namesError);
    if (!error.isEmpty())
        return setState((m_subject == Subject::Names
                             ? tr("The names cannot be reviewed: %1")
                             : tr("The activity files cannot be reviewed: %1"))
                            .arg(error),
                        true);
    m_tree->setCompletion(new NameCompletion(m_designInput, this));
    m_tree->setReview(m_review);
    m_tree->setFocus();
    if (m_tree->topLevelItemCount() > 0)
        m_tree->setCurrentItem(m_tree->topLevelItem(0));
}

void ReviewDialog::schedulePreview()
{
    m_apply->setEnabled(false);
    m_isStale = true;
    m_later.start();
}

void ReviewDialog::makePreview()
{
    if (m_worker)
        return; // once more when it is done
    m_isStale = false;
    m_plan = {{m_input.sha256, m_designInput.netlistSha256}, m_tree->edits()};
    m_worker =
        std::make_unique<TE::Worker>([this](const TE::Worker &) { m_preview = previewOf(m_plan); });
    connect(m_worker.get(), &TE::Worker::done, this, &ReviewDialog::onPreviewed);
}

ReviewDialog::Preview ReviewDialog::previewOf(const Check::NamePlan &plan) const
{
    Preview preview;
    int renamed = 0, removed = 0, kept = 0;
    QStringList lines;
    QVector<Check::RecordEdit> edits;
    for (const Check::RecordEdit &edit : plan.edits) {
        Check::ReviewedRecord place;
        place.section = edit.section;
        place.ordinal = edit.ordinal;
        const bool stays = !edit.remove && edit.to == edit.from;
        ++(edit.remove ? removed : stays ? kept : renamed);
        if (!stays)
            edits.append(edit);
        const QString name = ReviewTree::shownName(edit.from);
        if (lines.size() < PREVIEW_LINES)
            lines +=
                tr("line %1: %2")
                    .arg(lineOf(place, m_input.report.lines), 5)
                    .arg(edit.remove ? tr("%1 is removed").arg(name)
                         : stays ? tr("%1 stays, and is recorded as what it means now").arg(name)
                                 : tr("%1 becomes \"%2\"").arg(name, edit.to));
    }
    if (plan.edits.size() > lines.size())
        lines += tr("... and %1 more").arg(plan.edits.size() - lines.size());
    preview.text = lines.join(QLatin1Char('\n'));
    if (plan.edits.isEmpty()) {
        preview.summary = tr("Nothing is ticked.");
        return preview;
    }
    preview.summary = tr("To be applied: %1 replaced, %2 removed, %3 kept as now.")
                          .arg(counted(renamed, tr("name")), counted(removed, tr("record")),
                               counted(kept, tr("name")));
    QByteArray result;
    if (checkPlan(plan, m_input, *m_designInput.names, m_designInput.netlistSha256,
                  &preview.error) &&
        !edits.isEmpty())
        Check::editRecords(m_input.bytes, edits, &result, nullptr, &preview.error);
    return preview;
}

void ReviewDialog::onPreviewed()
{
    m_worker.release()->deleteLater();
    if (m_isStale)
        return makePreview();
    m_changes->setPlainText(m_preview.text);
    if (m_tree->topLevelItemCount() == 0)
        setState(m_subject == Subject::Names
                     ? tr("Every name that is recorded means what it meant.")
                     : tr("No activity file fits another instance than its own."));
    else if (!m_preview.error.isEmpty())
        setState(tr("This cannot be applied: %1.").arg(m_preview.error), true);
    else
        setState(m_preview.summary);
    m_apply->setEnabled(m_preview.error.isEmpty() && !m_plan.edits.isEmpty());
}

void ReviewDialog::apply()
{
    if (!m_apply->isEnabled())
        return;
    if (m_beforeApplying)
        m_beforeApplying();
    QString error;
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const bool isApplied = applyPlan(m_plan, m_input, *m_designInput.names,
                                     m_designInput.netlistSha256, m_writeMemory, nullptr, &error);
    QApplication::restoreOverrideCursor();
    // Also when the file was changed, but not its memory.
    const QByteArray now = Check::readConfigurationInput(m_job.path).sha256;
    m_isFileChanged = now != m_input.sha256;
    if (!isApplied)
        Utils::showMessage(this, QMessageBox::Warning, windowTitle(),
                           tr("%1: %2").arg(QDir::toNativeSeparators(m_job.path), error));
    if (isApplied || m_isFileChanged)
        accept();
}

} // namespace Workbench
