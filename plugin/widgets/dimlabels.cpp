#include "widgets/dimlabels.h"

#include <QEvent>
#include <QLabel>

namespace VLT {

namespace {

/// A child of the label that it dims.
class Dimmer : public QObject
{
public:
    Dimmer(QLabel *label, QWidget *field)
        : QObject(label)
        , m_label(label)
        , m_field(field)
    {
        field->installEventFilter(this);
        label->installEventFilter(this);
        dim();
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const bool fieldChanged = watched == m_field && event->type() == QEvent::EnabledChange;
        if (fieldChanged || event->type() == QEvent::ApplicationPaletteChange)
            dim();
        return false;
    }

private:
    void dim()
    {
        QPalette palette; // the label's own inherits the rest
        if (!m_field->isEnabled()) {
            const QBrush text = m_field->palette().brush(QPalette::Disabled, QPalette::WindowText);
            palette.setBrush(QPalette::Active, QPalette::WindowText, text);
            palette.setBrush(QPalette::Inactive, QPalette::WindowText, text);
        } else {
            palette.resolve(0);
        }
        m_label->setPalette(palette);
    }

    QLabel *const m_label;
    QWidget *const m_field;
};

} // namespace

void dimLabelsWithFields(QWidget *widget)
{
    const auto labels = widget->findChildren<QLabel *>();
    for (QLabel *label : labels) {
        if (QWidget *field = label->buddy())
            new Dimmer(label, field);
    }
}

} // namespace VLT
