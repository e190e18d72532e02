#pragma once

#include <QDialog>
#include <QPointer>

namespace VLT {

/// Runs a dialog whose parent may be destroyed while it runs, as a view closed by the environment
/// is, and with it the dialog. The dialog is on the heap and is deleted with this object, if it is
/// still there.
///
///     GuardedDialog finder(new NlsDataFinderDialog(this, netlist, type));
///     if (!finder.exec())
///         return; // cancelled, or `this` is gone
///     use(finder->getBuff());
template<class Dialog>
class GuardedDialog
{
public:
    explicit GuardedDialog(Dialog *dialog)
        : m_dialog(dialog)
        , m_owner(dialog->parentWidget())
    {
    }
    ~GuardedDialog() { delete m_dialog; }
    Q_DISABLE_COPY(GuardedDialog)

    /// True when it was accepted and its parent is still there; after false touch no member of the
    /// parent without asking `ownerLives`.
    bool exec() { return m_dialog->exec() == QDialog::Accepted && m_dialog && m_owner; }

    bool ownerLives() const { return m_owner; }
    Dialog *operator->() const { return m_dialog; }
    Dialog &operator*() const { return *m_dialog; }

private:
    QPointer<Dialog> m_dialog;
    QPointer<QWidget> m_owner;
};

} // namespace VLT
