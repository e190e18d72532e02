#include "widgets/wheelguard.h"

#include <QEvent>
#include <QWidget>

namespace VLT {

namespace {

class WheelGuard : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() != QEvent::Wheel || static_cast<QWidget *>(watched)->hasFocus())
            return QObject::eventFilter(watched, event);
        // Ignored, so that the page scrolls.
        event->ignore();
        return true;
    }
};

} // namespace

void ignoreWheelWithoutFocus(QWidget *widget)
{
    widget->setFocusPolicy(Qt::StrongFocus);
    widget->installEventFilter(new WheelGuard(widget));
}

} // namespace VLT
