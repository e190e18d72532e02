#pragma once

#include <QMessageBox>

namespace VLT {

/// Creates a message box that shows `text` as plain text, because it may contain names and paths
/// from files. Its texts can be selected, and long names wrap.
QMessageBox *newMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title,
                        const QString &text, QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                        QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

/// Adds further plain text below the text of `box`.
void setDetail(QMessageBox *box, const QString &detail);

/// Runs `box` modally and deletes it. Returns the pressed button, or NoButton if its parent was
/// destroyed while the box was open. Runs the event loop, so callers must check that they still
/// exist.
QMessageBox::StandardButton runMessage(QMessageBox *box);

/// Runs a new message box.
QMessageBox::StandardButton
showMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title, const QString &text,
            QMessageBox::StandardButtons buttons = QMessageBox::Ok,
            QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

} // namespace VLT
