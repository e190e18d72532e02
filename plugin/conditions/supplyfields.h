#pragma once

#include "config/supplyrules.h"

#include <QObject>

#include <array>
#include <optional>

class QDoubleSpinBox;
class QLabel;

namespace VLT {

/// The voltage fields of the operating conditions page, by the rules of the chip's supplies. Until
/// supplies are set, they are fields like others.
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

    /// Shows the supplies that the chip has, and enables those that the user sets.
    void showExisting();

    /// Applies the chip's ranges. A shown supply that was outside gets its default.
    void applyRanges();

    /// Lets the supply that is one with another show what that one shows; true when it changed.
    bool keepTie();

private:
    void explain();

    const std::array<Field, SUPPLY_COUNT> m_fields;
    std::optional<Supplies> m_supplies;
};

} // namespace VLT
