#include "host/utils/tableclipboard_p.h"

#include "host/utils/celltyper_p.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QStringList>
#include <QVector>

#include <algorithm>

namespace Utils {

namespace {

/// Shown columns from left to right.
QVector<int> shownColumns(const QTableView *table)
{
    const QHeaderView *header = table->horizontalHeader();
    QVector<int> columns;
    for (int visual = 0; visual < header->count(); ++visual) {
        const int column = header->logicalIndex(visual);
        if (!header->isSectionHidden(column))
            columns.append(column);
    }
    return columns;
}

struct Area
{
    QVector<int> rows;    ///< ascending
    QVector<int> columns; ///< those shown, from left to right
};

Area selectedArea(const QTableView *table)
{
    Area area;
    const QItemSelection selection = table->selectionModel()->selection();
    for (const QItemSelectionRange &range : selection) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            area.rows.append(row);
    }
    std::sort(area.rows.begin(), area.rows.end());
    area.rows.erase(std::unique(area.rows.begin(), area.rows.end()), area.rows.end());
    area.columns = shownColumns(table);
    const auto isSelected = [&selection](int column) {
        return std::any_of(selection.begin(), selection.end(),
                           [column](const QItemSelectionRange &range) {
                               return column >= range.left() && column <= range.right();
                           });
    };
    area.columns.erase(std::remove_if(area.columns.begin(), area.columns.end(),
                                      [&](int column) { return !isSelected(column); }),
                       area.columns.end());
    return area;
}

QString quoted(QString text)
{
    const auto isSpecial = [](QChar c) {
        return c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
    };
    if (!text.startsWith(QLatin1Char('"')) && std::none_of(text.begin(), text.end(), isSpecial))
        return text;
    text.replace(QLatin1Char('"'), QLatin1String("\"\""));
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QVector<QStringList> parse(const QString &text)
{
    QVector<QStringList> rows;
    QStringList row;
    QString cell;
    bool inQuotes = false;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const bool isQuote = c == QLatin1Char('"');
        if (inQuotes && isQuote && i + 1 < text.size() && text.at(i + 1) == c) {
            cell += c;
            ++i;
        } else if (isQuote && (inQuotes || cell.isEmpty())) {
            inQuotes = !inQuotes;
        } else if (!inQuotes && c == QLatin1Char('\t')) {
            row.append(cell);
            cell.clear();
        } else if (!inQuotes && c == QLatin1Char('\n')) {
            row.append(cell);
            cell.clear();
            rows.append(row);
            row.clear();
        } else if (inQuotes || c != QLatin1Char('\r')) {
            cell += c;
        }
    }
    if (!row.isEmpty() || !cell.isEmpty()) {
        row.append(cell);
        rows.append(row);
    }
    return rows;
}

} // namespace

QString EditCount::text() const
{
    const auto cells = [](int count) {
        return count == 1 ? QCoreApplication::translate("Utils::TableView", "1 cell")
                          : QCoreApplication::translate("Utils::TableView", "%1 cells").arg(count);
    };
    QString text =
        QCoreApplication::translate("Utils::TableView", "%1 changed").arg(cells(changed));
    if (refused > 0)
        text += QCoreApplication::translate("Utils::TableView", ", %1 refused").arg(cells(refused));
    if (outside > 0)
        text += QCoreApplication::translate("Utils::TableView", ", %1 outside the table")
                    .arg(cells(outside));
    return text + QLatin1Char('.');
}

QString selectionText(const QTableView *table)
{
    const Area area = selectedArea(table);
    QString text;
    for (const int row : area.rows) {
        for (const int column : area.columns) {
            const QModelIndex index = table->model()->index(row, column);
            text += quoted(shownText(table, index));
            text += QLatin1Char(column == area.columns.last() ? '\n' : '\t');
        }
    }
    return text;
}

EditCount pasteText(QTableView *table, const QString &text)
{
    const QVector<QStringList> texts = parse(text);
    const QModelIndex current = table->currentIndex();
    const Area area = selectedArea(table);
    if (texts.isEmpty() || (area.rows.isEmpty() && !current.isValid()))
        return {};

    QVector<int> columns = shownColumns(table);
    const bool wholeRows = columns.size() > 1 && texts.first().size() == columns.size() &&
                           table->selectionBehavior() == QAbstractItemView::SelectRows;
    if (!wholeRows) {
        const int first = current.isValid() ? columns.indexOf(current.column()) : 0;
        columns = columns.mid(qMax(0, first));
    }

    QVector<int> rows = area.rows;
    const bool repeated = texts.size() == 1 && !rows.isEmpty();
    if (!repeated && rows.size() != texts.size()) {
        const int first = rows.isEmpty() ? current.row() : rows.first();
        rows.clear();
        for (int row = first; row < table->model()->rowCount() && rows.size() < texts.size(); ++row)
            rows.append(row);
    }

    EditCount count;
    CellTyper typer(table);
    for (int i = 0; i < rows.size(); ++i) {
        const QStringList &cells = texts.at(repeated ? 0 : i);
        for (int j = 0; j < qMin(cells.size(), columns.size()); ++j)
            typer.type(table->model()->index(rows.at(i), columns.at(j)), cells.at(j));
        count.outside += qMax(0, cells.size() - columns.size());
    }
    for (int i = rows.size(); i < texts.size(); ++i)
        count.outside += texts.at(i).size();
    count.changed = typer.changed();
    count.refused = typer.refused();
    return count;
}

EditCount fillDown(QTableView *table)
{
    Area area = selectedArea(table);
    const QModelIndex current = table->currentIndex();
    if (table->selectionBehavior() == QAbstractItemView::SelectRows)
        area.columns = QVector<int>(current.isValid() ? 1 : 0, current.column());
    if (area.rows.size() == 1 && area.rows.first() > 0)
        area.rows.prepend(area.rows.first() - 1);
    if (area.rows.size() < 2)
        return {};

    CellTyper typer(table);
    for (const int column : qAsConst(area.columns)) {
        const QString text = shownText(table, table->model()->index(area.rows.first(), column));
        for (int i = 1; i < area.rows.size(); ++i)
            typer.type(table->model()->index(area.rows.at(i), column), text);
    }
    return {typer.changed(), typer.refused(), 0};
}

EditCount fillSelection(QTableView *table)
{
    const QModelIndex current = table->currentIndex();
    if (!current.isValid())
        return {};
    const QString text = shownText(table, current);
    CellTyper typer(table);
    const QVector<int> rows = selectedArea(table).rows;
    for (const int row : rows) {
        if (row != current.row())
            typer.type(current.siblingAtRow(row), text);
    }
    return {typer.changed(), typer.refused(), 0};
}

} // namespace Utils
