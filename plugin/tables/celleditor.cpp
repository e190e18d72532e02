#include "tables/celleditor.h"

#include <QFocusEvent>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpression>

namespace VLT {

CellEditor::Content CellEditor::contentOf(const QDoubleSpinBox &box)
{
    QString text = box.text();
    if (text.trimmed().isEmpty())
        return Content::Unset;
    bool ok = false;
    const double number = box.locale().toDouble(text.trimmed(), &ok);
    if (ok && number < qMin(0.0, box.minimum()))
        return Content::Unset;
    int pos = 0;
    if (box.validate(text, pos) != QValidator::Acceptable)
        box.fixup(text);
    return box.validate(text, pos) == QValidator::Acceptable ? Content::Number
                                                             : Content::Unfinished;
}

double CellEditor::valueFromText(const QString &text) const
{
    const double value = PointSpinBox::valueFromText(text);
    return value == 0.0 ? 0.0 : value;
}

QValidator::State CellEditor::validate(QString &input, int &pos) const
{
    static const QRegularExpression unit(QStringLiteral("(?<=[0-9.,])\\s*(%|pF)\\s*$"));
    input.remove(unit);
    pos = qMin(pos, input.size());
    const QValidator::State state = PointSpinBox::validate(input, pos);
    if (state != QValidator::Invalid || !input.startsWith(QLatin1Char('-')))
        return state;
    // Intermediate rather than acceptable, so that pasting it over a cell is still refused.
    QString magnitude = input.mid(1);
    if (magnitude.startsWith(QLatin1Char('-')) || magnitude.startsWith(QLatin1Char('+')))
        return QValidator::Invalid;
    int end = magnitude.size();
    return qMin(PointSpinBox::validate(magnitude, end), QValidator::Intermediate);
}

void CellEditor::fixup(QString &input) const
{
    bool ok = false;
    const double number = locale().toDouble(input.trimmed(), &ok);
    if (ok && number >= minimum() && number <= maximum())
        input = textFromValue(number);
}

// The next two bypass QDoubleSpinBox, which would interpret its text.

void CellEditor::focusOutEvent(QFocusEvent *event)
{
    lineEdit()->event(event);
    QWidget::focusOutEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

void CellEditor::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

} // namespace VLT
