#include "config/configuration.h"

#include <algorithm>

namespace VLT {

namespace {

auto fields(const Theta &t)
{
    return std::tie(t.given, t.value);
}

auto fields(const DefaultRate &r)
{
    return std::tie(r.unit, r.value);
}

template<class Value>
bool same(const std::optional<Value> &left, const std::optional<Value> &right)
{
    return left.has_value() == right.has_value() && (!left || fields(*left) == fields(*right));
}

template<class Record>
bool same(const QVector<Record> &left, const QVector<Record> &right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](const Record &a, const Record &b) { return fields(a) == fields(b); });
}

/// The parts of a section beside its records.
auto head(const Conditions &c)
{
    return std::tie(c.tempGrade, c.process, c.junctionTemp, c.ambientTemp, c.vcc, c.vccx, c.vccLdo,
                    c.heatSink, c.airFlow, c.boardThermalModel, c.boardTemp);
}

auto head(const BSRamSection &s)
{
    return std::tie(s.present, s.defaults.clockEnable, s.defaults.readProbability,
                    s.defaults.writeProbability);
}

} // namespace

bool operator==(const Configuration &a, const Configuration &b)
{
    const Conditions &left = a.conditions;
    const Conditions &right = b.conditions;
    const auto heads = [](const Configuration &c) {
        return std::tie(c.rates.present, c.rates.unit, c.defaultRates.present, c.files.present,
                        c.files.filterGlitch, c.clocks.present, c.clocks.value, c.ports.present,
                        c.dffs.present);
    };
    return head(left) == head(right) && same(left.thetaJA, right.thetaJA) &&
           same(left.thetaSA, right.thetaSA) && same(left.thetaJB, right.thetaJB) &&
           heads(a) == heads(b) && head(a.bsrams) == head(b.bsrams) &&
           same(a.defaultRates.io, b.defaultRates.io) &&
           same(a.defaultRates.remaining, b.defaultRates.remaining) &&
           same(a.rates.records, b.rates.records) && same(a.files.records, b.files.records) &&
           same(a.clocks.records, b.clocks.records) && same(a.ports.records, b.ports.records) &&
           same(a.bsrams.records, b.bsrams.records) && same(a.dffs.records, b.dffs.records);
}

} // namespace VLT
