#include "widgets/plainmessage.h"

#include <QPointer>

namespace VLT {

QMessageBox::StandardButton showMessage(QMessageBox::Icon icon, QWidget *parent,
                                        const QString &title, const QString &text,
                                        QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton defaultButton)
{
    QPointer<QMessageBox> box = new QMessageBox(icon, title, text, buttons, parent);
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(defaultButton);
    const int pressed = box->exec();
    delete box.data();
    return static_cast<QMessageBox::StandardButton>(pressed);
}

} // namespace VLT
