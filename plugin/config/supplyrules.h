#pragma once

#include "config/limits.h"

#include <QString>

#include <array>
#include <optional>

namespace VLT {

/// Index of a supply in what follows.
enum SupplyId { VCC, VCCX, VCCLDO, SUPPLY_COUNT };

// What the voltage fields show; the digits beyond are lost when a file is opened.
constexpr int VOLTAGE_DECIMALS = 3;

/// A voltage as its field holds it: limited and rounded.
double voltageInField(double voltage);

/// What a chip allows on one supply, as its data has it: texts of voltages, all empty for a supply
/// that the chip does not have. A text that is no number counts as 0.
struct Supply
{
    QString minimum;
    QString maximum;
    QString defaultValue;

    bool exists() const { return !defaultValue.isEmpty(); }

    /// In V, as the field holds it: a voltage exactly at an end is inside.
    Range range() const;
    double defaultVoltage() const;

    /// Whether `voltage`, as its field holds it, is replaced by the default.
    bool isOutside(double voltage) const;
};

/// Two supplies that are one on a chip: the follower takes the leader's voltage.
struct SupplyTie
{
    SupplyId leader;
    SupplyId follower;
};

/// The supplies of one chip, and which of them are one.
struct Supplies
{
    std::array<Supply, SUPPLY_COUNT> supply;
    bool vccIsVccx = false;
    bool vccxIsVccLdo = false;
    bool vccIsVccLdo = false;

    /// The tie that is kept: of several only the first.
    std::optional<SupplyTie> tie() const;

    /// Whether the user sets the supply. VCC is always the user's; those that are one with another
    /// follow it.
    bool isOwn(SupplyId id) const;

    /// The supply that `id` is one with, for a supply that is not the user's own.
    SupplyId partner(SupplyId id) const;
};

/// The models whose VCCX the user may not set, whatever the supply data say.
bool hasFixedVccx(const QString &partName);

} // namespace VLT
