#include "tables/guardeddialog.h"

#include <QCoreApplication>

namespace VLT {

Answer confirm(QWidget *owner, const QString &text)
{
    const QPointer<QWidget> guard(owner);
    const QPointer<QMessageBox> box(
        new QMessageBox(QMessageBox::Question, QCoreApplication::translate("VLT", "Confirm"), text,
                        QMessageBox::Yes | QMessageBox::No, owner));
    box->setDefaultButton(QMessageBox::No);
    const int button = box->exec();
    delete box;
    if (!guard)
        return Answer::OwnerGone;
    return button == QMessageBox::Yes ? Answer::Yes : Answer::No;
}

} // namespace VLT
