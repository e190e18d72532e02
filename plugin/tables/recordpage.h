#pragma once

#include "config/sections.h"
#include "tables/document.h"
#include "tables/recordlist.h"
#include "tables/tablepage.h"

#include <memory>
#include <type_traits>
#include <utility>

namespace VLT {

/// A page with its records and their model; `Base` is TablePage or derived from it.
template<class Model, class Base = TablePage>
class RecordPage : public Base
{
public:
    using Record = typename Model::RecordType;

    /// Whether an object of exactly this name is listed.
    bool isExist(QString name) const { return m_records.contains(name); }

protected:
    RecordPage(VLTView *view, QWidget *parent)
        : Base(view, parent)
        , m_model(makeModel(view, this))
    {
        m_records.follow(&m_model);
    }

    /// Appends a record for every object that is not listed yet, and shows the new rows. `pathOf`
    /// returns an object's name; `fill` sets the other fields of a new record.
    template<class Objects, class PathOf, class Fill>
    void addRecords(const Objects &objects, PathOf pathOf, Fill fill)
    {
        const int oldCount = m_model.rowCount();
        m_records.reserve(objects.size());
        for (const auto &object : objects) {
            const QString name = pathOf(object);
            if (isExist(name))
                continue;
            auto record = std::make_unique<Record>();
            record->name = name;
            fill(*record, object);
            m_records.append(std::move(record));
            this->document()->setModified(true);
        }
        this->showAdded(oldCount);
    }

    /// Appends the records that a reader finds, without notifying the model.
    RecordSink<Record> adopt()
    {
        return [this](Record &&record, const QDomElement &) {
            m_records.append(std::make_unique<Record>(std::move(record)));
        };
    }

    // The model is destroyed before the list that it borrows.
    RecordList<Record> m_records;
    Model m_model;

private:
    /// Some models take the view that their edits modify; others are read-only or get their
    /// document later.
    static Model makeModel(VLTView *view, RecordPage *page)
    {
        QList<Record *> &list = page->m_records.list();
        if constexpr (std::is_constructible_v<Model, VLTView *, QList<Record *> &, QObject *>)
            return Model(view, list, page);
        else
            return Model(list, page);
    }
};

} // namespace VLT
