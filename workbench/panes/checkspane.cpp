#include "workbench/panes/checkspane.h"

#include "check/report/report.h"
#include "workbench/checks/checkservice.h"
#include "workbench/panes/findingsmodel.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QToolButton>
#include <QTreeView>

#include <algorithm>

namespace Workbench {

namespace {

constexpr Check::Level LEVELS[] = {Check::Level::Error, Check::Level::Warning, Check::Level::Note};

} // namespace

ChecksPane::ChecksPane(CheckService *service, const QList<QAction *> &commands, QWidget *parent)
    : QWidget(parent)
    , m_service(service)
    , m_model(new FindingsModel(this))
    , m_filter(new FindingsFilter(m_model, this))
    , m_commands(commands)
    , m_goTo(new QAction(tr("&Go to Record"), this))
    , m_copy(new QAction(tr("&Copy"), this))
    , m_bind(new QAction(this))
    , m_bindButton(new QToolButton)
    , m_list(new QTreeView)
    , m_state(new QLabel)
{
    setObjectName(QStringLiteral("checks"));
    auto *bar = new QHBoxLayout;
    bar->setContentsMargins(4, 2, 4, 2);
    for (const Check::Level level : LEVELS) {
        auto *button = new QToolButton;
        button->setObjectName(levelName(level) + QStringLiteral("Level"));
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
        button->setCheckable(true);
        button->setChecked(true);
        button->setToolTip(tr("Show or hide findings of this level"));
        connect(button, &QToolButton::toggled, m_filter,
                [this, level](bool shown) { m_filter->setShown(level, shown); });
        bar->addWidget(button);
        m_levels.append(button);
    }
    m_state->setObjectName(QStringLiteral("checksState"));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    bar->addSpacing(fontMetrics().averageCharWidth() * 2);
    bar->addWidget(m_state, 1);
    m_bind->setToolTip(tr("Bind the activity file to the instance that it fits"));
    m_bindButton->setObjectName(QStringLiteral("bindActivityFile"));
    m_bindButton->setDefaultAction(m_bind);
    bar->addWidget(m_bindButton);
    for (QAction *command : commands) {
        auto *button = new QToolButton;
        button->setDefaultAction(command);
        bar->addWidget(button);
    }

    m_list->setObjectName(QStringLiteral("findings"));
    m_list->setAccessibleName(tr("Findings"));
    m_list->setModel(m_filter);
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setAllColumnsShowFocus(true);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setMinimumHeight(fontMetrics().height()); // leaves room for the views
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setTextElideMode(Qt::ElideMiddle);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    m_list->header()->setSortIndicator(-1, Qt::AscendingOrder);
    m_list->setSortingEnabled(true);
    const int character = fontMetrics().averageCharWidth();
    m_list->setColumnWidth(FindingsModel::LevelColumn, character * 14);
    m_list->setColumnWidth(FindingsModel::RuleColumn, character * 22);
    m_list->setColumnWidth(FindingsModel::ObjectColumn, character * 38);
    connect(m_list, &QTreeView::activated, this, &ChecksPane::activate);
    connect(m_list, &QTreeView::customContextMenuRequested, this, &ChecksPane::showMenu);

    m_copy->setShortcut(QKeySequence::Copy);
    m_copy->setShortcutContext(Qt::WidgetShortcut);
    m_list->addAction(m_copy);
    connect(m_copy, &QAction::triggered, this, &ChecksPane::copy);
    connect(m_bind, &QAction::triggered, this, &ChecksPane::instanceWanted);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &ChecksPane::updateBinding);
    connect(m_goTo, &QAction::triggered, this, [this] { activate(m_list->currentIndex()); });

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(bar);
    layout->addWidget(m_list);
    connect(m_service, &CheckService::changed, this, &ChecksPane::update);
    update();
    updateButtons();
    updateBinding();
}

void ChecksPane::update()
{
    const CheckService::State *state = m_service->state(m_service->current());
    const QVector<Check::Finding> findings =
        state ? state->result.findings : QVector<Check::Finding>();
    // Keeps position and selection if nothing has changed.
    if (m_path != m_service->current() || !m_model->isOf(findings)) {
        m_path = m_service->current();
        m_model->setFindings(findings);
        updateButtons();
        updateBinding();
    }
    updateState();
}

void ChecksPane::updateState()
{
    const CheckService::State *state = m_service->state(m_path);
    const QString name = QFileInfo(m_path).fileName();
    QString text;
    if (!state)
        text = tr("Open a configuration to see its checks.");
    else if (!state->isChecked)
        text = tr("Checking %1\u2026").arg(name);
    else if (state->isModified)
        text = tr("Checked as saved: the changes in %1 are not included.").arg(name);
    else if (state->isWaiting)
        text = tr("Checking %1 again\u2026").arg(name);
    else
        text = tr("%1, as saved").arg(name);
    m_state->setText(text);
    m_state->setToolTip(text.toHtmlEscaped());
}

void ChecksPane::updateButtons()
{
    const CheckService::State *state = m_service->state(m_path);
    const Check::Counts counts = state ? countsOf(state->result.findings) : Check::Counts();
    const QStringList texts = summary(counts).split(QStringLiteral(", "));
    for (int i = 0; i < m_levels.size(); ++i) {
        m_levels.at(i)->setIcon(FindingsModel::icon(LEVELS[i]));
        m_levels.at(i)->setText(QLatin1Char(' ') + texts[i]);
    }
}

/// Offers the instance that the activity file of the current row fits.
void ChecksPane::updateBinding()
{
    const QModelIndex current = m_list->currentIndex();
    QString instance;
    if (current.isValid()) {
        const Check::Finding &finding = m_model->finding(m_filter->mapToSource(current).row());
        if (finding.rule == Check::findRule(QStringLiteral("scope-misfit")))
            instance = finding.proposal;
    }
    // A name may have the mark of a mnemonic.
    m_bind->setText(tr("&Bind to %1\u2026")
                        .arg(QString(instance).replace(QLatin1Char('&'), QLatin1String("&&"))));
    m_bind->setVisible(!instance.isEmpty());
    m_bindButton->setVisible(!instance.isEmpty());
}

void ChecksPane::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::StyleChange)
        updateButtons();
}

void ChecksPane::activate(const QModelIndex &index)
{
    const CheckService::State *state = m_service->state(m_path);
    if (!index.isValid() || !state)
        return;
    const Check::Finding finding = m_model->finding(m_filter->mapToSource(index).row());
    emit recordWanted(finding, state->result.occurrence(finding));
}

QVector<Check::Finding> ChecksPane::chosen() const
{
    QModelIndexList rows = m_list->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    QVector<Check::Finding> findings;
    for (const QModelIndex &row : qAsConst(rows))
        findings.append(m_model->finding(m_filter->mapToSource(row).row()));
    for (int row = 0; rows.isEmpty() && row < m_filter->rowCount(); ++row)
        findings.append(m_model->finding(m_filter->mapToSource(m_filter->index(row, 0)).row()));
    return findings;
}

void ChecksPane::copy()
{
    QString text;
    const QVector<Check::Finding> findings = chosen();
    for (const Check::Finding &finding : findings)
        text += textLine(finding) + QLatin1Char('\n');
    if (!text.isEmpty())
        QApplication::clipboard()->setText(text);
}

void ChecksPane::showMenu(const QPoint &position)
{
    QMenu menu(this);
    m_goTo->setEnabled(m_list->indexAt(position).isValid());
    m_copy->setText(m_list->selectionModel()->hasSelection() ? tr("&Copy") : tr("&Copy All"));
    m_copy->setEnabled(m_filter->rowCount() > 0);
    menu.addActions({m_goTo, m_bind, m_copy});
    menu.addSeparator();
    menu.addActions(m_commands);
    menu.exec(m_list->viewport()->mapToGlobal(position));
}

} // namespace Workbench
