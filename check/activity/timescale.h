#pragma once

#include <QString>

#include <optional>

namespace Check {

/// The unit of the times in a file.
struct Timescale
{
    int number = 0;   ///< 1, 10 or 100; 0 when the file does not give one
    int exponent = 0; ///< of ten: 0 for seconds to -15 for femtoseconds

    bool isValid() const { return number > 0; }
    double seconds() const;
    QString text() const; ///< "10 ns"; empty when not valid
};

/// Reads "1ns", "10 ps" and the like; not valid when it is none.
Timescale parseTimescale(const QString &text);

/// Exponent of the unit "s", "ms" to "fs".
std::optional<int> exponentOfUnit(const QString &unit);

/// The time in ticks of `scale` that a decimal text in `unit` gives; nothing when it is none, or
/// the scale is not valid.
std::optional<double> ticksOf(const QString &text, const QString &unit, const Timescale &scale);

} // namespace Check
