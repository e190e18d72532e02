#pragma once

#include "config/supplyrules.h"

#include <QObject>

#include <array>
#include <optional>

class QDoubleSpinBox;
class QLabel;

namespace VLT {

/// Applies the chip's supply rules to the voltage fields of the operating conditions page. Until
/// supplies are set, the fields have no special rules.
class SupplyFields : public QObject
{
    Q_OBJECT

public:
    struct Field
    {
        QLabel *label;
        QDoubleSpinBox *spinBox;
    };

    /// In the order of SupplyId. `parent`, the page, owns the fields.
    SupplyFields(const std::array<Field, SUPPLY_COUNT> &fields, QWidget *parent);

    void setSupplies(const Supplies &supplies) { m_supplies = supplies; }

    void setDefaults();

    /// Shows the supplies that the chip has, and enables those that the user can set.
    void showExisting();

    /// Applies the chip's ranges. A shown supply that was outside gets its default.
    void applyRanges();

    /// Copies the voltage of the leading supply of a tie to its follower; true if that changed it.
    bool keepTie();

private:
    void explain();

    const std::array<Field, SUPPLY_COUNT> m_fields;
    std::optional<Supplies> m_supplies;
};

} // namespace VLT
