#include "host/utils/dialogs.h"

namespace Utils {

QMessageBox::StandardButton showMessage(QWidget *parent, QMessageBox::Icon icon,
                                        const QString &title, const QString &text,
                                        QMessageBox::StandardButtons buttons,
                                        QMessageBox::StandardButton defaultButton)
{
    GuardedDialog box(new QMessageBox(icon, title, text, buttons, parent));
    box->setTextFormat(Qt::PlainText);
    box->setDefaultButton(defaultButton);
    const int button = box.exec();
    return box.get() ? static_cast<QMessageBox::StandardButton>(button) : QMessageBox::NoButton;
}

} // namespace Utils
