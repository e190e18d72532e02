#pragma once

#include "tables/nlsdatafinderdialog.h"
#include "tables/page.h"
#include "tables/recordpage.h"

#include <functional>

namespace VLT {

/// Base of the pages that assign numbers to named objects.
class ActivityPage : public TablePage, public Page
{
    Q_OBJECT

public:
    /// Nothing to check: every value that the tables accept can be saved.
    bool checkData() override { return true; }

public slots:
    void modified() override;

protected:
    using TablePage::TablePage;

    /// Runs the finder, and calls `add` with it if the user accepts. The page exists while `add`
    /// runs, but may have been deleted when this returns.
    void find(NlsDataFinderDialog::FindType type,
              const std::function<void(const NlsDataFinderDialog &)> &add);
};

} // namespace VLT
