#include "host/utils/columnsharing.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QSettings>
#include <QTableView>
#include <QToolTip>

#include <algorithm>
#include <numeric>

namespace Utils {

namespace {

bool sharingEnabled = false;

// In characters of average width.
constexpr int SMALLEST_VALUE = 5;
constexpr int SMALLEST_NAME = 14;

} // namespace

void ColumnSharing::setEnabled(bool enabled)
{
    sharingEnabled = enabled;
}

ColumnSharing::ColumnSharing(QTableView *table)
    : QObject(table)
    , m_table(table)
    , m_header(table->horizontalHeader())
    , m_headerViewport(m_header->viewport())
{
    m_table->viewport()->installEventFilter(this);
    m_headerViewport->installEventFilter(this);
    connect(m_header, &QHeaderView::sectionResized, this, [this] {
        if (m_pressed && !m_sharing)
            m_moved = true;
    });
}

bool ColumnSharing::eventFilter(QObject *watched, QEvent *event)
{
    if (!sharingEnabled)
        return false;
    const bool onHeader = watched == m_headerViewport;
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Resize:
        if (!onHeader && m_table->isVisible())
            share();
        break;
    case QEvent::ToolTip:
        if (onHeader)
            showTitle(static_cast<QHelpEvent *>(event));
        return onHeader;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        m_pressed = onHeader;
        break;
    case QEvent::MouseButtonRelease:
        if (onHeader && m_pressed && m_moved)
            remember();
        m_pressed = false;
        break;
    default:
        break;
    }
    return false;
}

/// The full title of a column that is too narrow for it.
void ColumnSharing::showTitle(const QHelpEvent *event) const
{
    const int column = m_header->logicalIndexAt(event->pos());
    if (column < 0 || m_header->sectionSize(column) >= m_header->sectionSizeHint(column)) {
        QToolTip::hideText();
        return;
    }
    QToolTip::showText(event->globalPos(),
                       m_table->model()->headerData(column, Qt::Horizontal).toString(), m_header);
}

void ColumnSharing::start()
{
    for (int column = 0; column < m_header->count(); ++column)
        m_start.append(m_header->sectionSize(column));
    // A stretched last section does not show the width it needs.
    if (m_header->stretchLastSection())
        m_start.last() = std::max(m_header->defaultSectionSize(),
                                  m_header->sectionSizeHint(m_header->count() - 1));

    auto *resetAction = new QAction(tr("Reset column widths"), this);
    connect(resetAction, &QAction::triggered, this, &ColumnSharing::reset);
    m_header->addAction(resetAction);
    m_header->setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto again = [this] { share(); };
    connect(m_table->model(), &QAbstractItemModel::modelReset, this, again);
    connect(m_table->model(), &QAbstractItemModel::rowsInserted, this, again);

    const QStringList moved = QSettings().value(settingsKey()).toStringList();
    if (moved.size() != m_start.size())
        return;
    QVector<int> widths;
    for (const QString &width : moved)
        widths.append(std::max(width.toInt(), m_header->minimumSectionSize()));
    m_moved = true;
    apply(widths);
}

void ColumnSharing::share()
{
    if (!m_table->model() || m_header->count() == 0)
        return;
    if (m_start.isEmpty())
        start();
    if (!m_moved && m_start.size() == m_header->count())
        apply(sharedWidths());
}

QVector<int> ColumnSharing::sharedWidths() const
{
    const int total = m_table->viewport()->width();
    const QAbstractItemView *contents = m_table;
    const int character = m_table->fontMetrics().averageCharWidth();
    QVector<int> needed(m_start.size(), 0);
    for (int column = 1; column < m_start.size(); ++column)
        needed[column] = std::min(m_start.at(column), std::max(contents->sizeHintForColumn(column),
                                                               SMALLEST_VALUE * character));
    const int startSum = std::accumulate(m_start.begin() + 1, m_start.end(), 0);
    const int neededSum = std::accumulate(needed.begin() + 1, needed.end(), 0);
    const int names =
        std::min({m_start.first(), total / 3,
                  std::max(contents->sizeHintForColumn(0), SMALLEST_NAME * character)});
    const int values = std::min(std::max(total - names, neededSum), startSum);

    QVector<int> widths = needed;
    for (int column = 1; column < widths.size() && startSum > neededSum; ++column)
        widths[column] += int(qint64(m_start.at(column) - needed.at(column)) *
                              (values - neededSum) / (startSum - neededSum));
    const int used = std::accumulate(widths.begin() + 1, widths.end(), 0);
    widths.first() = std::max(total - used, SMALLEST_NAME * character / 2);
    return widths;
}

void ColumnSharing::apply(const QVector<int> &widths)
{
    m_sharing = true;
    for (int column = 0; column < widths.size(); ++column)
        m_header->resizeSection(column, widths.at(column));
    m_sharing = false;
}

void ColumnSharing::remember()
{
    QStringList widths;
    for (int column = 0; column < m_header->count(); ++column)
        widths.append(QString::number(m_header->sectionSize(column)));
    QSettings().setValue(settingsKey(), widths);
}

void ColumnSharing::reset()
{
    QSettings().remove(settingsKey());
    m_moved = false;
    share();
}

/// The kind of a table: its page and its titles.
QString ColumnSharing::settingsKey() const
{
    const QObject *page = m_table->parent();
    while (page && page->metaObject()->className()[0] == 'Q')
        page = page->parent();
    QString key = QStringLiteral("columns/");
    if (page)
        key += QString::fromLatin1(page->metaObject()->className());
    for (int column = 0; column < m_header->count(); ++column)
        key += QLatin1Char('|') + m_table->model()->headerData(column, Qt::Horizontal).toString();
    return key;
}

} // namespace Utils
