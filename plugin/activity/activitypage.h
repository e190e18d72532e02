#pragma once

#include "tables/nlsdatafinderdialog.h"
#include "tables/page.h"
#include "tables/recordpage.h"

#include <functional>

namespace VLT {

/// What the pages that give numbers to named objects have in common.
class ActivityPage : public TablePage, public Page
{
    Q_OBJECT

public:
    /// Nothing to check: whatever the tables take can be saved.
    bool checkData() override { return true; }

public slots:
    void modified() override;

protected:
    using TablePage::TablePage;

    /// Runs the finder, and `add` on it when the user has chosen. The page may be gone when it
    /// returns; it is there while `add` runs.
    void find(NlsDataFinderDialog::FindType type,
              const std::function<void(const NlsDataFinderDialog &)> &add);
};

} // namespace VLT
