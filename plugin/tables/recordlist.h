#pragma once

#include "tables/tablemodel.h"

#include <QHash>
#include <QList>
#include <QString>

#include <memory>

namespace VLT {

/// The records of a page, which owns them: what is still listed is deleted with the list. It
/// answers in constant time whether a name is listed; a file may list one more than once.
template<class Record>
class RecordList
{
public:
    RecordList() = default;
    ~RecordList() { qDeleteAll(m_list); }
    Q_DISABLE_COPY(RecordList)

    /// For the model and for reading. Append by `append`, which keeps the names known, or call the
    /// model's `reload()` before the next `contains`.
    QList<Record *> &list() { return m_list; }
    const QList<Record *> &list() const { return m_list; }

    /// Makes room for `count` more records.
    void reserve(int count)
    {
        m_list.reserve(m_list.size() + count);
        m_names.reserve(m_list.size() + count);
    }

    void append(std::unique_ptr<Record> record)
    {
        if (m_counted)
            ++m_names[record->name];
        m_list.append(record.release());
    }

    bool contains(const QString &name) const
    {
        if (!m_counted)
            countNames();
        return m_names.contains(name);
    }

    /// Follows what `model` removes from the list. To be called once, on the model of this list.
    void follow(TableModel *model)
    {
        QObject::connect(model, &TableModel::rowsAboutToBeRemoved, model,
                         [this](const QModelIndex &, int first, int last) {
                             for (int row = first; m_counted && row <= last; ++row)
                                 forget(m_list.at(row)->name);
                         });
        QObject::connect(model, &TableModel::modelReset, model, [this] {
            m_counted = false;
            m_names.clear();
        });
    }

private:
    void countNames() const
    {
        m_names.reserve(m_list.size());
        for (const Record *record : m_list)
            ++m_names[record->name];
        m_counted = true;
    }

    void forget(const QString &name)
    {
        const auto count = m_names.find(name);
        if (count != m_names.end() && --*count == 0)
            m_names.erase(count);
    }

    QList<Record *> m_list;
    // Made at the first question after a reset, so that reading a file does not pay for it.
    mutable QHash<QString, int> m_names;
    mutable bool m_counted = false;
};

} // namespace VLT
