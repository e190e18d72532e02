#pragma once

#include "config/records.h"

namespace VLT {

/// The range of a field of the editor, both ends included.
struct Range
{
    double minimum;
    double maximum;
};

constexpr Range PERCENT = {0, 100};
constexpr Range CAPACITY = {0, 100};         // pF
constexpr Range TOGGLE_RATE = {0, 200};      // %
constexpr Range SIGNAL_RATE = {0, 99999999}; // transitions/s
constexpr Range TEMPERATURE = {-60, 160};    // ℃, ambient and board
constexpr Range THETA = {0.001, 100};        // ℃/W
constexpr Range VOLTAGE = {0, 50};           // V, before the device's own range applies

constexpr Range rateRange(RateUnit unit)
{
    return unit == RateUnit::Toggle ? TOGGLE_RATE : SIGNAL_RATE;
}

/// The junction temperatures in ℃ that a grade allows, by the name of the grade.
inline Range junctionRange(const QString &grade)
{
    if (grade == QLatin1String("Commercial"))
        return {0, 85};
    if (grade == QLatin1String("Industrial"))
        return {-40, 100};
    return {-40, 125};
}

/// The field's range before a grade has been chosen.
constexpr Range ANY_JUNCTION = {-40, 150};

} // namespace VLT
