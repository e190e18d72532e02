#pragma once

#include <QString>

#include <cmath>

namespace VLT {

/// Formats a number for the file: six significant digits, a decimal point in every locale.
inline QString numberText(double value)
{
    // What the editors take, two decimals at most, is written by whole numbers: the same text,
    // several times faster; saving misses its goal by a fifth without it. Any other value is
    // further away than half of the sixth digit.
    const int hundredths = value >= 0.01 && value < 1000 ? qRound(value * 100) : 0;
    if (hundredths > 0 && std::abs(value - hundredths / 100.0) < value * 4e-7) {
        QString text = QString::number(hundredths / 100);
        if (const int rest = hundredths % 100) {
            text += QLatin1Char('.');
            text += QLatin1Char(char('0' + rest / 10));
            if (rest % 10)
                text += QLatin1Char(char('0' + rest % 10));
        }
        return text;
    }
    return QString::number(value, 'g', 6);
}

/// Parses `text`; 0 if it is not a finite number, because a spin box set to NaN jumps to its
/// maximum.
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
