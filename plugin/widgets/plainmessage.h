#pragma once

#include <QMessageBox>

namespace VLT {

/// A message box, not shown yet, that shows `text` as plain text, since it may hold names and paths
/// from files. Its texts can be selected, and a name without a break wraps.
QMessageBox *newMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title,
                        const QString &text, QMessageBox::StandardButtons buttons = QMessageBox::Ok,
                        QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

/// Adds further plain text below the text of `box`.
void setDetail(QMessageBox *box, const QString &detail);

/// Runs `box` modally and deletes it. Returns the pressed button, or NoButton when its parent was
/// destroyed while the box was open: it runs the event loop, so the caller checks that it is itself
/// still there.
QMessageBox::StandardButton runMessage(QMessageBox *box);

/// Runs a new message box.
QMessageBox::StandardButton
showMessage(QMessageBox::Icon icon, QWidget *parent, const QString &title, const QString &text,
            QMessageBox::StandardButtons buttons = QMessageBox::Ok,
            QMessageBox::StandardButton defaultButton = QMessageBox::NoButton);

} // namespace VLT
