#include "check/activity/timescale.h"

#include <QStringList>

#include <cmath>

namespace Check {

namespace {

const QStringList &units()
{
    static const QStringList list{QStringLiteral("s"),  QStringLiteral("ms"), QStringLiteral("us"),
                                  QStringLiteral("ns"), QStringLiteral("ps"), QStringLiteral("fs")};
    return list;
}

} // namespace

double Timescale::seconds() const
{
    return number / std::pow(10.0, -exponent);
}

QString Timescale::text() const
{
    return isValid() ? QString::number(number) + QLatin1Char(' ') + units().at(-exponent / 3)
                     : QString();
}

std::optional<int> exponentOfUnit(const QString &unit)
{
    const int index = units().indexOf(unit);
    return index < 0 ? std::nullopt : std::optional<int>(-3 * index);
}

Timescale parseTimescale(const QString &text)
{
    const QString plain = text.simplified().remove(QLatin1Char(' ')).toLower();
    int digits = 0;
    while (digits < plain.size() && plain.at(digits).isDigit())
        ++digits;
    const int number = digits == 0 ? 1 : plain.leftRef(digits).toInt();
    const std::optional<int> exponent = exponentOfUnit(plain.mid(digits));
    if (!exponent || (number != 1 && number != 10 && number != 100))
        return {};
    return {number, *exponent};
}

std::optional<double> ticksOf(const QString &text, const QString &unit, const Timescale &scale)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    const std::optional<int> exponent = exponentOfUnit(unit);
    if (!isNumber || !exponent || !scale.isValid())
        return std::nullopt;
    const int steps = *exponent - scale.exponent;
    const double power = std::pow(10.0, std::abs(steps));
    return (steps >= 0 ? value * power : value / power) / scale.number;
}

} // namespace Check
