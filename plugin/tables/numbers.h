#pragma once

#include <QString>

#include <cmath>

namespace VLT {

/// `number`, or 0 when it is not finite: "inf" and "nan" are no numbers to the user.
template<class Number>
Number finiteOrZero(Number number)
{
    return std::isfinite(number) ? number : Number(0);
}

/// Reads a number of the file: a point as decimal sign, 0 for text that is no finite number.
inline double toNumber(const QString &text)
{
    return finiteOrZero(text.toDouble());
}

/// Writes a number as the file has it: six significant digits, a point as decimal sign.
inline QString fileText(double number)
{
    return QString::number(number, 'g', 6);
}

} // namespace VLT
