#pragma once

#include "config/sections.h"
#include "tables/nlsdatafinderdialog.h"
#include "tables/recordlist.h"
#include "tables/tablepage.h"

#include <QString>

#include <functional>
#include <memory>
#include <utility>

namespace VLT {

/// What the pages that give numbers to named objects have in common.
class ActivityPage : public TablePage
{
    Q_OBJECT

public:
    /// Nothing to check: whatever the tables take can be saved.
    bool checkData() { return true; }

public slots:
    /// Marks the document as modified.
    void modified();

protected:
    using TablePage::TablePage;

    /// Runs the finder, and `add` on it when the user has chosen. The page may be gone when it
    /// returns; it is there while `add` runs.
    void find(NlsDataFinderDialog::FindType type,
              const std::function<void(const NlsDataFinderDialog &)> &add);
};

/// An activity page with its records and their model.
template<class Model>
class RecordPage : public ActivityPage
{
public:
    using Record = typename Model::RecordType;

    /// Whether an object of exactly this name is listed.
    bool isExist(QString name) const { return m_records.contains(name); }

protected:
    RecordPage(VLTView *view, QWidget *parent)
        : ActivityPage(view, parent)
        , m_model(view, m_records.list(), this)
    {
        m_records.follow(&m_model);
    }

    /// Appends a record for every object that is not listed yet, and shows the new rows.
    /// `nameOf` gives an object's name; `fill` sets what else a new record derives from it.
    template<class Objects, class NameOf, class Fill>
    void addRecords(const Objects &objects, NameOf nameOf, Fill fill)
    {
        const int oldCount = m_model.rowCount();
        m_records.reserve(objects.size());
        for (const auto &object : objects) {
            const QString name = nameOf(object);
            if (isExist(name))
                continue;
            auto record = std::make_unique<Record>();
            record->name = name;
            fill(*record, object);
            m_records.append(std::move(record));
            modified();
        }
        showAdded(oldCount);
    }

    /// Appends the records that a reader finds, without telling the model.
    RecordSink<Record> adopt()
    {
        return [this](Record &&record, const QDomElement &) {
            m_records.append(std::make_unique<Record>(std::move(record)));
        };
    }

    // The model goes before the list that it borrows.
    RecordList<Record> m_records;
    Model m_model;
};

} // namespace VLT
