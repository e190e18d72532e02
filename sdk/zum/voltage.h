#pragma once

#include "hostexport.h"

#include <QString>

#include <memory>

namespace ZUM {

/// Supply voltages of one chip. Values are texts in volts with a decimal point; all texts are
/// empty for a supply that the chip does not have, and for a chip without supply data.
class HOST_EXPORT Voltage
{
public:
    /// `device` and `package` as in DEV::ChipInfo.
    Voltage(const QString &device, const QString &package);
    ~Voltage();

    QString getVCCMin() const;
    QString getVCCMax() const;
    QString getVCCDefaultValue() const;

    QString getVCCXMin() const;
    QString getVCCXMax() const;
    QString getVCCXDefaultValue() const;

    QString getVCCLDOMin() const;
    QString getVCCLDOMax() const;
    QString getVCCLDODefaultValue() const;

    /// Whether the two supplies are connected on this chip.
    bool isVCCVCCXShortCircuit() const;
    bool isVCCXVCCLDOShortCircuit() const;
    bool isVCCVCCLDOShortCircuit() const;

private:
    const std::unique_ptr<struct VoltageData> d;
};

} // namespace ZUM
