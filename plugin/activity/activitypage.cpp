#include "activity/activitypage.h"

#include "tables/document.h"
#include "widgets/guardeddialog.h"
#include "widgets/waitcursor.h"

namespace VLT {

void ActivityPage::modified()
{
    document()->setModified(true);
}

void ActivityPage::find(NlsDataFinderDialog::FindType type,
                        const std::function<void(const NlsDataFinderDialog &)> &add)
{
    // A synthesis run may replace the view's netlist while the finder is open.
    const auto netlist = document()->holdNetlist();
    GuardedDialog finder(new NlsDataFinderDialog(this, netlist.get(), type));
    if (!finder.exec())
        return;
    const WaitCursor wait;
    add(*finder);
}

} // namespace VLT
