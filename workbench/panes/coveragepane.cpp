#include "workbench/panes/coveragepane.h"

#include "workbench/coverage/coverageservice.h"
#include "workbench/panes/coveragedelegate.h"
#include "workbench/panes/coveragelegend.h"
#include "workbench/panes/coveragemodel.h"
#include "workbench/panes/uncoveredpane.h"

#include "host/utils/naturalorder.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QSortFilterProxyModel>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>

namespace Workbench {

namespace {

constexpr int POLL = 100; // ms

/// Names with the numbers in them counted, everything else by value.
class InstanceOrder : public QSortFilterProxyModel
{
public:
    using QSortFilterProxyModel::QSortFilterProxyModel;

protected:
    bool lessThan(const QModelIndex &left, const QModelIndex &right) const override
    {
        if (left.column() == CoverageModel::InstanceColumn)
            return Utils::naturalLess(left.data().toString(), right.data().toString());
        return left.data(CoverageModel::SortRole).toDouble() <
               right.data(CoverageModel::SortRole).toDouble();
    }
};

} // namespace

CoveragePane::CoveragePane(CoverageService *service, QWidget *parent)
    : QWidget(parent)
    , m_service(service)
    , m_model(new CoverageModel(this))
    , m_sorted(new InstanceOrder(this))
    , m_tree(new QTreeView)
    , m_uncovered(new UncoveredPane)
    , m_legend(new CoverageLegend)
    , m_state(new QLabel)
    , m_nested(new QCheckBox(tr("&With Nested Instances")))
    , m_count(new QToolButton)
    , m_stop(new QToolButton)
    , m_progress(new QProgressBar)
{
    setObjectName(QStringLiteral("coverage"));
    createTree();
    auto *left = new QWidget;
    auto *leftLayout = new QVBoxLayout(left);
    leftLayout->setContentsMargins(0, 0, 0, 0);
    leftLayout->setSpacing(0);
    leftLayout->addWidget(m_tree);
    leftLayout->addWidget(m_legend);
    auto *splitter = new QSplitter;
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(left);
    splitter->addWidget(m_uncovered);
    splitter->setStretchFactor(0, 7);
    splitter->setStretchFactor(1, 3);
    splitter->setSizes({700, 300}); // a proportion
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(createBar());
    layout->addWidget(splitter, 1);

    m_poll.setInterval(POLL);
    connect(&m_poll, &QTimer::timeout, this,
            [this] { m_progress->setValue(m_service->permille()); });
    connect(m_uncovered, &UncoveredPane::ratesWanted, this, &CoveragePane::ratesWanted);
    connect(m_service, &CoverageService::changed, this, &CoveragePane::update);
    update();
}

QWidget *CoveragePane::createBar()
{
    m_state->setObjectName(QStringLiteral("coverageState"));
    m_state->setTextFormat(Qt::PlainText);
    m_state->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_nested->setObjectName(QStringLiteral("coverageNested"));
    m_nested->setChecked(true);
    m_nested->setToolTip(tr("Count the nets of an instance with those of what is inside it"));
    m_count->setObjectName(QStringLiteral("countToggles"));
    m_count->setText(tr("Count &Toggles"));
    m_count->setToolTip(tr("Read the values of the activity files, which may take long"));
    m_stop->setObjectName(QStringLiteral("stopCounting"));
    m_stop->setText(tr("&Stop"));
    m_stop->setToolTip(tr("Stop counting toggles"));
    m_progress->setObjectName(QStringLiteral("countProgress"));
    m_progress->setAccessibleName(tr("Progress of counting toggles"));
    m_progress->setRange(0, 1000);
    m_progress->setFormat(QStringLiteral("%p %"));
    m_progress->setFixedWidth(fontMetrics().averageCharWidth() * 20);
    m_progress->setMaximumHeight(m_count->sizeHint().height());
    connect(m_nested, &QCheckBox::toggled, this, &CoveragePane::setNested);
    connect(m_count, &QToolButton::clicked, m_service, &CoverageService::countToggles);
    connect(m_stop, &QToolButton::clicked, m_service, &CoverageService::stop);
    auto *widget = new QWidget;
    auto *bar = new QHBoxLayout(widget);
    bar->setContentsMargins(4, 2, 4, 2);
    bar->addWidget(m_state, 1);
    bar->addWidget(m_nested);
    bar->addWidget(m_progress);
    bar->addWidget(m_stop);
    bar->addWidget(m_count);
    return widget;
}

void CoveragePane::createTree()
{
    m_sorted->setSourceModel(m_model);
    m_tree->setObjectName(QStringLiteral("instances"));
    m_tree->setAccessibleName(tr("Coverage by instance"));
    m_tree->setModel(m_sorted);
    m_tree->setItemDelegate(new CoverageDelegate(m_tree));
    m_tree->setUniformRowHeights(true);
    m_tree->setAllColumnsShowFocus(true);
    m_tree->setFrameShape(QFrame::NoFrame);
    m_tree->setMinimumHeight(fontMetrics().height());
    m_tree->setTextElideMode(Qt::ElideMiddle);
    m_tree->header()->setStretchLastSection(false);
    m_tree->header()->setSortIndicator(-1, Qt::AscendingOrder); // as the netlist has them
    m_tree->setSortingEnabled(true);
    const int character = fontMetrics().averageCharWidth();
    for (int column = 0; column < CoverageModel::ColumnCount; ++column)
        m_tree->setColumnWidth(column, character * 12);
    m_tree->setColumnWidth(CoverageModel::InstanceColumn, character * 20);
    m_tree->setColumnWidth(CoverageModel::NetsColumn, character * 8);
    m_tree->setColumnWidth(CoverageModel::SourceColumn, character * 16);
    m_tree->setColumnWidth(CoverageModel::TogglesColumn, character * 9);
    connect(m_tree->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &CoveragePane::updateInstance);
}

void CoveragePane::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_service->setWatched(true);
    update();
}

void CoveragePane::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    m_service->setWatched(false);
}

void CoveragePane::update()
{
    const CoverageService::State *state = m_service->state();
    const auto data = state ? state->result.data : nullptr;
    if (data != m_model->coverage() || m_path != m_service->current()) {
        // The same instance stays selected where the design still has it.
        const QModelIndex current = m_sorted->mapToSource(m_tree->currentIndex());
        const QString selected = current.isValid() && m_path == m_service->current()
                                     ? m_model->coverage()->tree->path(m_model->scope(current))
                                     : QString();
        m_path = m_service->current();
        m_model->setCoverage(data);
        updateColumns();
        const quint32 scope = data ? data->tree->findScope(selected) : 0;
        if (data) {
            m_tree->expandToDepth(0);
            m_tree->setCurrentIndex(m_sorted->mapFromSource(
                m_model->indexOf(scope == Check::DesignTree::NONE ? 0 : scope)));
        }
        updateInstance();
    }
    updateState();
}

void CoveragePane::updateColumns()
{
    for (int column = 0; column < CoverageModel::ColumnCount; ++column)
        m_tree->setColumnHidden(column, !m_model->hasColumn(column));
}

void CoveragePane::updateInstance()
{
    const QModelIndex current = m_sorted->mapToSource(m_tree->currentIndex());
    const quint32 scope = current.isValid() ? m_model->scope(current) : 0;
    const auto data = current.isValid() ? m_model->coverage() : nullptr;
    m_uncovered->setInstance(data, scope, m_nested->isChecked());
    m_legend->setCounts(data ? &m_model->counts(scope) : nullptr);
}

void CoveragePane::setNested(bool nested)
{
    m_model->setNested(nested);
    updateInstance();
}

QString CoveragePane::stateText() const
{
    const CoverageService::State *state = m_service->state();
    const QString name = QFileInfo(m_path).fileName();
    if (!state || m_path.isEmpty())
        return tr("Open a configuration to see what it covers.");
    if (!state->result.error.isEmpty())
        return tr("%1: %2").arg(name, state->result.error);
    if (!state->result.data)
        return tr("Looking at what %1 covers\u2026").arg(name);
    const Check::Coverage &coverage = state->result.data->coverage;
    QString text = tr("%1: %2").arg(name, coverage.whole().front().kinds.headline());
    if (m_service->isModified())
        text += tr("; as saved, without the changes since then");
    if (coverage.overlaps() > 0)
        text += tr("; %1 nets with two sources").arg(coverage.overlaps());
    int neverToggle = 0;
    for (const Check::CoveringFile &file : coverage.files())
        neverToggle += file.isStatic.size();
    if (neverToggle > 0)
        text += tr("; %1 flip-flops never toggle").arg(neverToggle);
    if (state->isStopped)
        text += tr("; counting was stopped");
    for (const QString &problem : state->result.data->problems)
        text += QLatin1String("; ") + problem;
    return text;
}

void CoveragePane::updateState()
{
    const CoverageService::State *state = m_service->state();
    const QString text = stateText();
    m_state->setText(text);
    m_state->setToolTip(QLatin1String("<p>") + text.toHtmlEscaped() + QLatin1String("</p>"));
    const bool isCounting = state && (state->isCounting || state->wantsCount);
    const bool hasFiles =
        state && state->result.data && !state->result.data->coverage.files().empty();
    m_count->setEnabled(hasFiles && !state->result.data->coverage.hasToggles());
    m_count->setVisible(!isCounting);
    m_stop->setVisible(isCounting);
    m_progress->setVisible(isCounting);
    if (isCounting && !m_poll.isActive()) {
        m_progress->setValue(0);
        m_poll.start();
    } else if (!isCounting) {
        m_poll.stop();
    }
}

} // namespace Workbench
