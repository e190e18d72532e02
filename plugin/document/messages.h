#pragma once

#include <QMessageBox>

namespace VLT {

/// Shows a message box, modally on `parent`, and returns the button pressed. The text is shown as
/// plain text, since names in it come from files. It runs the event loop: the parent may be gone
/// when it returns (then with NoButton), so a caller looks whether it is itself still there.
QMessageBox::StandardButton
showMessage(QWidget *parent, QMessageBox::Icon icon, const QString &title, const QString &text,
            QMessageBox::StandardButtons buttons = QMessageBox::Ok,
            QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

} // namespace VLT
