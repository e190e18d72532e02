#include "zum/voltage.h"

#include "host/dev/devicecatalogue.h"

namespace ZUM {

struct VoltageData
{
    DEV::SupplyData supplies;
};

Voltage::Voltage(const QString &device, const QString &package)
    : d(new VoltageData{DEV::DeviceCatalogue::get()->supplies(device, package)})
{
}

Voltage::~Voltage() = default;

QString Voltage::getVCCMin() const
{
    return d->supplies.vcc.min;
}

QString Voltage::getVCCMax() const
{
    return d->supplies.vcc.max;
}

QString Voltage::getVCCDefaultValue() const
{
    return d->supplies.vcc.defaultValue;
}

QString Voltage::getVCCXMin() const
{
    return d->supplies.vccx.min;
}

QString Voltage::getVCCXMax() const
{
    return d->supplies.vccx.max;
}

QString Voltage::getVCCXDefaultValue() const
{
    return d->supplies.vccx.defaultValue;
}

QString Voltage::getVCCLDOMin() const
{
    return d->supplies.vccldo.min;
}

QString Voltage::getVCCLDOMax() const
{
    return d->supplies.vccldo.max;
}

QString Voltage::getVCCLDODefaultValue() const
{
    return d->supplies.vccldo.defaultValue;
}

bool Voltage::isVCCVCCXShortCircuit() const
{
    return d->supplies.vccVccx;
}

bool Voltage::isVCCXVCCLDOShortCircuit() const
{
    return d->supplies.vccxVccldo;
}

bool Voltage::isVCCVCCLDOShortCircuit() const
{
    return d->supplies.vccVccldo;
}

} // namespace ZUM
