#include "widgets/pointspinbox.h"

#include <QKeyEvent>
#include <QLocale>
#include <QPointer>
#include <QWheelEvent>

namespace VLT {

PointSpinBox::PointSpinBox(QWidget *parent)
    : QDoubleSpinBox(parent)
{
    setLocale(QLocale::c());
    setFocusPolicy(Qt::StrongFocus);
}

QValidator::State PointSpinBox::validate(QString &input, int &pos) const
{
    // In the C locale a comma groups digits: 12,5 would be read as 125.
    input.replace(QLatin1Char(','), QLatin1Char('.'));
    return QDoubleSpinBox::validate(input, pos);
}

void PointSpinBox::keyPressEvent(QKeyEvent *event)
{
    const bool tracking = keyboardTracking();
    // A box that tracks the keyboard emits valueChanged() on every Enter.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        setKeyboardTracking(false);
    const QPointer<PointSpinBox> self(this);
    QDoubleSpinBox::keyPressEvent(event);
    if (self)
        setKeyboardTracking(tracking);
}

void PointSpinBox::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QDoubleSpinBox::wheelEvent(event);
    else
        event->ignore();
}

} // namespace VLT
