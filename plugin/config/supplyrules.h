#pragma once

#include "config/limits.h"

#include <QString>

#include <array>
#include <optional>

namespace VLT {

/// Index of a supply in the arrays below.
enum SupplyId { VCC, VCCX, VCCLDO, SUPPLY_COUNT };

// Decimals of the voltage fields; further digits are lost when a file is opened.
constexpr int VOLTAGE_DECIMALS = 3;

/// A voltage as stored in its field: limited and rounded.
double voltageInField(double voltage);

/// The limits and default of one supply as texts from the chip's data, all empty for a supply that
/// the chip does not have. An invalid number counts as 0.
struct Supply
{
    QString minimum;
    QString maximum;
    QString defaultValue;

    bool exists() const { return !defaultValue.isEmpty(); }

    /// In V, as stored in the field; both ends are included.
    Range range() const;
    double defaultVoltage() const;

    /// Whether `voltage`, as stored in its field, is replaced by the default.
    bool isOutside(double voltage) const;
};

/// Two supplies that are connected on a chip: the follower takes the leader's voltage.
struct SupplyTie
{
    SupplyId leader;
    SupplyId follower;
};

/// The supplies of one chip and their ties.
struct Supplies
{
    std::array<Supply, SUPPLY_COUNT> supply;
    bool vccIsVccx = false;
    bool vccxIsVccLdo = false;
    bool vccIsVccLdo = false;

    /// The tie that applies: only the first of several.
    std::optional<SupplyTie> tie() const;

    /// Whether the user can set the supply. VCC can always be set; tied supplies follow their
    /// leader.
    bool isOwn(SupplyId id) const;

    /// The leader of `id`, a supply that the user cannot set.
    SupplyId partner(SupplyId id) const;
};

/// Whether the user may not set VCCX on this model, whatever the supply data says.
bool hasFixedVccx(const QString &partName);

} // namespace VLT
