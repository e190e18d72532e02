#include "tables/decimalspinbox.h"

#include <QLocale>
#include <QRegularExpression>

namespace VLT {

DecimalSpinBox::DecimalSpinBox(QWidget *parent)
    : QDoubleSpinBox(parent)
{
    setLocale(QLocale::c());
}

QValidator::State DecimalSpinBox::validate(QString &input, int &pos) const
{
    static const QRegularExpression unitBehindNumber(QStringLiteral("(?<=[0-9.])\\s*(%|pF)\\s*$"));
    input.replace(QLatin1Char(','), QLatin1Char('.'));
    input.remove(unitBehindNumber);
    pos = qMin(pos, input.size());
    return QDoubleSpinBox::validate(input, pos);
}

void DecimalSpinBox::fixup(QString &input) const
{
    bool ok = false;
    const double number = locale().toDouble(input.trimmed(), &ok);
    if (ok && number >= minimum() && number <= maximum())
        input = textFromValue(number);
}

} // namespace VLT
