#pragma once

#include <QMessageBox>

namespace VLT {

/// Runs a modal message box that shows `text` as plain text, since it may hold names and paths
/// from files. Returns the pressed button, or NoButton when `parent` was destroyed while the box
/// was open: it runs the event loop, so the caller checks that it is itself still there.
QMessageBox::StandardButton
showMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title, const QString &text,
            QMessageBox::StandardButtons buttons = QMessageBox::Ok,
            QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

} // namespace VLT
