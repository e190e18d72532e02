#pragma once

#include <QDialog>
#include <QPointer>

namespace VLT {

/// Runs a dialog whose parent may be destroyed while it runs, for example a view that the
/// environment closes. The dialog lives on the heap and is deleted with this object, if its parent
/// has not deleted it.
///
///     GuardedDialog finder(new NlsDataFinderDialog(this, netlist, type));
///     if (!finder.exec())
///         return; // canceled, or `this` has been deleted
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

    /// True if it was accepted and its parent still exists. After false, check `ownerLives` before
    /// using a member of the parent.
    bool exec() { return m_dialog->exec() == QDialog::Accepted && m_dialog && m_owner; }

    bool ownerLives() const { return m_owner; }
    Dialog *operator->() const { return m_dialog; }
    Dialog &operator*() const { return *m_dialog; }

private:
    QPointer<Dialog> m_dialog;
    QPointer<QWidget> m_owner;
};

} // namespace VLT
