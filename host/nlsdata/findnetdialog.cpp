#include "nlsdata/findnetdialog.h"

#include "host/nlsdata/netpickerdialog.h"

#include <QPointer>

namespace NlsData {

QList<Net *> FindNetDialog::getList(const QList<Net *> &nets, QWidget *parent)
{
    // On the heap: the parent may be deleted, and the dialog with it, while the dialog runs.
    const QPointer<NetPickerDialog> dialog = new NetPickerDialog(nets, parent);
    const bool accepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return {};
    const QList<Net *> chosen = accepted ? dialog->selected() : QList<Net *>();
    delete dialog;
    return chosen;
}

} // namespace NlsData
