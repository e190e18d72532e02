#pragma once

#include "tables/column.h"
#include "tables/tablemodel.h"
#include "tables/textorder.h"

#include <QBrush>
#include <QHash>
#include <QList>
#include <QVector>

#include <algorithm>
#include <utility>
#include <vector>

namespace VLT {

/// Table model over a list of records that its page owns. A subclass supplies the columns:
///
///     DffModel::DffModel(VLTView *view, QList<VLT_Dff *> &records, QObject *parent)
///         : RecordModel(view, records, parent,
///                       {Column::text("Name", &VLT_Dff::name)
///                            .sortedBy(lessThanByName, greaterThanByName),
///                        Column::number("Value", &VLT_Dff::value, 100)
///                            .editable().sortedBy(lessThanByValue, greaterThanByValue)})
///
/// The model borrows the list: it sorts it in place, and deletes the records that it removes. The
/// page appends to the list and calls `reload()`; the list must outlive the model. Rows are
/// positions in the list. An index has its record's pointer, but sorting reorders rows without
/// updating indexes, so the model and its users must rely on the row only.
template<class Record>
class RecordModel : public TableModel
{
public:
    using RecordType = Record;
    using Ptr = Record *const &;

    /// For records with a name; case-insensitive.
    static bool lessThanByName(Ptr a, Ptr b) { return compareNames(a, b) < 0; }
    static bool greaterThanByName(Ptr a, Ptr b) { return compareNames(a, b) > 0; }

    int rowCount(const QModelIndex &parent = {}) const final
    {
        return parent.isValid() ? 0 : m_records.size();
    }

    int columnCount(const QModelIndex &parent = {}) const final
    {
        return parent.isValid() ? 0 : m_titleCount;
    }

    QModelIndex index(int row, int column, const QModelIndex &parent = {}) const final
    {
        return hasIndex(row, column, parent) ? createIndex(row, column, m_records.at(row))
                                             : QModelIndex();
    }

    QVariant headerData(int section, Qt::Orientation orientation, int role) const final
    {
        if (role != Qt::DisplayRole)
            return TableModel::headerData(section, orientation, role);
        if (orientation == Qt::Vertical)
            return section;
        if (section < 0 || section >= m_titleCount)
            return {};
        return QString::fromLatin1(m_columns[size_t(section)].title);
    }

    QVariant data(const QModelIndex &index, int role) const final
    {
        const Column *column = columnAt(index);
        if (!column)
            return {};
        const Record &record = *m_records.at(index.row());
        if (role != Qt::BackgroundRole)
            return column->data(record, role);
        return column->isGray && column->isGray(record) ? QBrush(Qt::gray) : QVariant();
    }

    Qt::ItemFlags flags(const QModelIndex &index) const final
    {
        const Qt::ItemFlags base = TableModel::flags(index);
        const Column *column = columnAt(index);
        const bool editable =
            column && column->isEditable && column->isEditable(*m_records.at(index.row()));
        return editable ? base | Qt::ItemIsEditable : base;
    }

    /// Does not check whether the cell is editable; views check `flags`. True for a cell that
    /// stores nothing, false for a value that is refused or unchanged.
    bool setData(const QModelIndex &index, const QVariant &value, int role) final
    {
        const Column *column = role == Qt::EditRole ? columnAt(index) : nullptr;
        if (!column)
            return false;
        if (!column->store)
            return true;
        if (!column->store(*m_records[index.row()], value))
            return false;
        if (column->editsName)
            emit nameEdited();
        markModified();
        return true;
    }

    /// Stable. It emits `dataChanged` with invalid indexes, and nothing for a column that does not
    /// sort.
    void sort(int column, Qt::SortOrder order) final
    {
        if (column < 0 || column >= int(m_columns.size()))
            return;
        const Column &key = m_columns[size_t(column)];
        const auto compare = order == Qt::AscendingOrder ? key.lessThan : key.greaterThan;
        if (!compare)
            return;
        emit aboutToSort();
        const PersistentRecords kept = persistentRecords();
        if (key.sortText && m_records.size() >= MANY_ROWS)
            sortByText(key.sortText, order);
        else
            std::stable_sort(m_records.begin(), m_records.end(), compare);
        restore(kept);
        emit sorted();
        emit dataChanged({}, {});
    }

    void remove(int row) final
    {
        if (row < 0 || row >= m_records.size())
            return;
        beginRemoveRows({}, row, row);
        delete m_records.takeAt(row);
        endRemoveRows();
    }

    /// A few rows are removed one by one, so that views keep their position. Each removal moves all
    /// later rows, so many rows are removed in one pass inside a reset.
    void removeRecords(const QVector<int> &rows) final
    {
        if (rows.size() < MANY_ROWS) {
            std::for_each(rows.rbegin(), rows.rend(), [this](int row) { remove(row); });
            return;
        }
        beginResetModel();
        auto next = rows.begin();
        int kept = 0;
        for (int row = 0; row < m_records.size(); ++row) {
            if (next != rows.end() && *next == row) {
                delete m_records.at(row);
                ++next;
            } else {
                m_records[kept++] = m_records.at(row);
            }
        }
        m_records.erase(m_records.begin() + kept, m_records.end());
        endResetModel();
    }

protected:
    using Column = VLT::Column<Record>;

    RecordModel(VLTView *view, QList<Record *> &records, QObject *parent,
                std::vector<Column> columns)
        : TableModel(view, parent)
        , m_records(records)
        , m_columns(std::move(columns))
        , m_titleCount(int(std::count_if(m_columns.begin(), m_columns.end(),
                                         [](const Column &column) { return column.title; })))
    {
    }

private:
    static constexpr int MANY_ROWS = 200;

    using PersistentRecords = QVector<std::pair<QModelIndex, const Record *>>;

    PersistentRecords persistentRecords() const
    {
        PersistentRecords records;
        const QModelIndexList indexes = persistentIndexList();
        for (const QModelIndex &index : indexes) {
            if (columnAt(index))
                records.append({index, m_records.at(index.row())});
        }
        return records;
    }

    /// Moves the persistent indexes with their records: a view has more of them than are visible,
    /// such as the anchor of a Shift selection.
    void restore(const PersistentRecords &kept)
    {
        QHash<const Record *, int> rows;
        for (const auto &[index, record] : kept)
            rows.insert(record, index.row());
        if (rows.isEmpty())
            return;
        for (int row = 0; row < m_records.size(); ++row) {
            if (const auto found = rows.find(m_records.at(row)); found != rows.end())
                *found = row;
        }
        for (const auto &[index, record] : kept)
            changePersistentIndex(index, this->index(rows.value(record), index.column()));
    }

    void sortByText(QString Record::*text, Qt::SortOrder order)
    {
        std::vector<const QString *> texts;
        texts.reserve(size_t(m_records.size()));
        for (const Record *record : qAsConst(m_records))
            texts.push_back(&(record->*text));
        const std::vector<int> places = textOrder(texts, order);
        const QList<Record *> before = m_records;
        std::transform(places.begin(), places.end(), m_records.begin(),
                       [&before](int place) { return before.at(place); });
    }

    /// The column of an existing cell, or null.
    const Column *columnAt(const QModelIndex &index) const
    {
        const bool there = index.isValid() && index.row() < m_records.size() &&
                           index.column() < int(m_columns.size());
        return there ? &m_columns[size_t(index.column())] : nullptr;
    }

    QList<Record *> &m_records;
    const std::vector<Column> m_columns;
    const int m_titleCount;
};

} // namespace VLT
