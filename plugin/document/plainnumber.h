#pragma once

#include <QString>

#include <cmath>

namespace VLT {

/// A number as the file has it: six significant digits, a point whatever the locale.
inline QString numberText(double value)
{
    // Most values are small whole numbers; the same text, several times faster.
    if (value > 0 && value < 100000 && value == int(value))
        return QString::number(int(value));
    return QString::number(value, 'g', 6);
}

/// The number that `text` holds; 0 for a text that is no number or not a finite one. A spin box
/// given a nan would jump to its maximum.
inline double numberFromText(const QString &text)
{
    const double value = text.toDouble();
    return std::isfinite(value) ? value : 0.0;
}

/// The same for the 32-bit numbers of the records.
inline float floatFromText(const QString &text)
{
    const float value = text.toFloat();
    return std::isfinite(value) ? value : 0.0F;
}

} // namespace VLT
