#include "document/messages.h"

#include <QPointer>

namespace VLT {

QMessageBox::StandardButton showMessage(QWidget *parent, QMessageBox::Icon icon,
                                        const QString &title, const QString &text,
                                        QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton defaultButton)
{
    const QPointer<QMessageBox> box = new QMessageBox(icon, title, text, buttons, parent);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(defaultButton);
    box->exec();
    if (!box)
        return QMessageBox::NoButton;
    const QMessageBox::StandardButton pressed = box->standardButton(box->clickedButton());
    delete box;
    return pressed;
}

} // namespace VLT
