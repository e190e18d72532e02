#pragma once

#include "hostexport.h"

#include <QDialog>
#include <QMessageBox>
#include <QPointer>

namespace Utils {

/// Runs a dialog whose parent may be destroyed while it runs, and with it the dialog. The dialog is
/// on the heap and is deleted with this object, if it still exists.
///
///     GuardedDialog dialog(new DeviceDialog(id, this));
///     if (dialog.exec() != QDialog::Accepted)
///         return; // canceled, or `this` has been deleted
template<class Dialog>
class GuardedDialog
{
public:
    explicit GuardedDialog(Dialog *dialog)
        : m_dialog(dialog)
    {
    }
    ~GuardedDialog() { delete m_dialog; }
    Q_DISABLE_COPY(GuardedDialog)

    /// The dialog's result; QDialog::Rejected if it was destroyed with its parent.
    int exec()
    {
        const int result = m_dialog->exec();
        return m_dialog ? result : QDialog::Rejected;
    }

    /// Null if the dialog has been destroyed.
    Dialog *get() const { return m_dialog; }
    Dialog *operator->() const { return m_dialog; }

private:
    QPointer<Dialog> m_dialog;
};

/// Shows a message as plain text, because many contain names from files. Returns the pressed
/// button, or NoButton if the box was destroyed with its parent, which then must not be used.
HOST_EXPORT QMessageBox::StandardButton
showMessage(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text,
            QMessageBox::StandardButtons buttons = QMessageBox::Ok,
            QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

} // namespace Utils
