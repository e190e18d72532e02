#include "activity/activitypage.h"

#include "document/vltview.h"
#include "tables/guardeddialog.h"

#include <QApplication>

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
    QApplication::setOverrideCursor(Qt::WaitCursor); // a million objects take a second
    add(*finder);
    QApplication::restoreOverrideCursor();
}

} // namespace VLT
