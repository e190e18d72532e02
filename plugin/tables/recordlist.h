#pragma once

#include "config/records.h"
#include "tables/tablemodel.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QVector>

#include <memory>

namespace VLT {

/// The records of a page; they are owned and deleted with the list. Looking up a name takes
/// constant time; a file may list a name more than once.
template<class Record>
class RecordList
{
public:
    RecordList() = default;
    ~RecordList() { qDeleteAll(m_list); }
    Q_DISABLE_COPY(RecordList)

    /// For the model and for reading. Append with `append`, which updates the name counts, or call
    /// the model's `reload()` before the next `contains`. Exchange all records with `replace`.
    QList<Record *> &list() { return m_list; }
    const QList<Record *> &list() const { return m_list; }

    /// Takes ownership of `records` and releases the present ones to the caller.
    void replace(const QList<Record *> &records)
    {
        m_list = records;
        forgetAll();
    }

    /// Copies of the records.
    QVector<Record> values() const
    {
        QVector<Record> values;
        values.reserve(m_list.size());
        for (const Record *record : m_list)
            values.append(*record);
        return values;
    }

    /// Reserves space for `count` more records.
    void reserve(int count)
    {
        m_list.reserve(m_list.size() + count);
        m_names.reserve(m_list.size() + count);
    }

    void append(std::unique_ptr<Record> record)
    {
        if (m_counted >= 0) {
            ++m_names[nameOf(*record)];
            ++m_counted;
        }
        m_list.append(record.release());
    }

    bool contains(const QString &name) const
    {
        if (m_counted < 0)
            countNames();
        return m_names.contains(name);
    }

    /// Tracks what `model` removes from the list. Call once, with the model of this list.
    void follow(TableModel *model)
    {
        QObject::connect(model, &TableModel::rowsAboutToBeRemoved, model,
                         [this](const QModelIndex &, int first, int last) {
                             for (int row = first; m_counted >= 0 && row <= last; ++row)
                                 forget(nameOf(*m_list.at(row)));
                         });
        QObject::connect(model, &TableModel::nameEdited, model, [this] { forgetAll(); });
        // Counting again takes longer than appending did, so not after a reset that announces
        // appended records.
        QObject::connect(model, &TableModel::modelReset, model, [this] {
            if (m_counted != m_list.size())
                forgetAll();
        });
    }

private:
    void countNames() const
    {
        m_names.reserve(m_list.size());
        for (const Record *record : m_list)
            ++m_names[nameOf(*record)];
        m_counted = m_list.size();
    }

    void forget(const QString &name)
    {
        const auto count = m_names.find(name);
        if (count != m_names.end() && --*count == 0)
            m_names.erase(count);
        --m_counted;
    }

    void forgetAll()
    {
        m_counted = -1;
        m_names.clear();
    }

    QList<Record *> m_list;
    // Filled by the first lookup, so that reading a file does not pay for it.
    mutable QHash<QString, int> m_names;
    mutable int m_counted = -1; // records counted in m_names: all, or none if negative
};

} // namespace VLT
