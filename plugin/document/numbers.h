#pragma once

#include <QString>

#include <cmath>

namespace VLT {

/// The number in a text of the file, with a point as the decimal sign whatever the locale; 0 when
/// the text is no finite number.
inline double toNumber(const QString &text)
{
    const double number = text.toDouble();
    return std::isfinite(number) ? number : 0.0;
}

} // namespace VLT
