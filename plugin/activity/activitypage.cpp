#include "activity/activitypage.h"

#include "document/vltview.h"
#include "widgets/guardeddialog.h"
#include "widgets/waitcursor.h"

namespace VLT {

void ActivityPage::modified()
{
    view()->setModified(true);
}

void ActivityPage::find(NlsDataFinderDialog::FindType type,
                        const std::function<void(const NlsDataFinderDialog &)> &add)
{
    // A synthesis run may give the view another netlist while the finder is open.
    const auto netlist = view()->holdNetlist();
    GuardedDialog finder(new NlsDataFinderDialog(this, netlist.get(), type));
    if (!finder.exec())
        return;
    const WaitCursor wait;
    add(*finder);
}

} // namespace VLT
