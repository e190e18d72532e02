#include "config/supplyrules.h"

#include "config/plainnumber.h"

#include <algorithm>

namespace VLT {

namespace {

// A 32-bit number: the margin in use is 1.0000000168623835e-16.
constexpr float MARGIN = 1e-16F;

bool lessThan(double a, double b)
{
    return a - b < -static_cast<double>(MARGIN);
}

bool greaterThan(double a, double b)
{
    return a - b > static_cast<double>(MARGIN);
}

double rounded(double voltage)
{
    return QString::number(voltage, 'f', VOLTAGE_DECIMALS).toDouble();
}

} // namespace

double voltageInField(double voltage)
{
    return rounded(std::clamp(voltage, VOLTAGE.minimum, VOLTAGE.maximum));
}

Range Supply::range() const
{
    const double lowest = rounded(numberFromText(minimum));
    return {lowest, std::max(lowest, rounded(numberFromText(maximum)))};
}

double Supply::defaultVoltage() const
{
    return rounded(numberFromText(defaultValue));
}

bool Supply::isOutside(double voltage) const
{
    return lessThan(voltage, range().minimum) || greaterThan(voltage, range().maximum);
}

std::optional<SupplyTie> Supplies::tie() const
{
    if (vccIsVccx)
        return SupplyTie{VCC, VCCX};
    if (vccxIsVccLdo)
        return SupplyTie{VCCX, VCCLDO};
    if (vccIsVccLdo)
        return SupplyTie{VCC, VCCLDO};
    return std::nullopt;
}

bool Supplies::isOwn(SupplyId id) const
{
    if (id == VCCX)
        return !vccIsVccx;
    return id == VCC || (!vccxIsVccLdo && !vccIsVccLdo);
}

SupplyId Supplies::partner(SupplyId id) const
{
    return id == VCCLDO && vccxIsVccLdo ? VCCX : VCC;
}

bool hasFixedVccx(const QString &partName)
{
    static const std::array<QLatin1String, 8> models = {
        QLatin1String("QF1-01"), QLatin1String("QF1-02"), QLatin1String("QF1-03"),
        QLatin1String("QF1-04"), QLatin1String("QF1-05"), QLatin1String("QF1-06"),
        QLatin1String("QF1-07"), QLatin1String("QF1-08")};
    return std::any_of(models.begin(), models.end(),
                       [&partName](QLatin1String model) { return partName == model; });
}

} // namespace VLT
