#pragma once

#include "config/records.h"

#include <QVector>

#include <optional>

namespace VLT {

/// A thermal resistance in ℃/W, which a file may declare as not given.
struct Theta
{
    bool given = true;
    double value = 0;
};

/// The operating conditions. Absent members are not in the file: the editor does not write entries
/// that another one overrides, and keeps its own value for those it does not read. Temperatures are
/// in ℃, voltages in V.
struct Conditions
{
    std::optional<QString> tempGrade;
    std::optional<QString> process;
    std::optional<double> junctionTemp;
    std::optional<double> ambientTemp;
    std::optional<double> vcc;
    std::optional<double> vccx;
    std::optional<double> vccLdo;
    std::optional<Theta> thetaJA;
    std::optional<QString> heatSink;
    std::optional<QString> airFlow;
    std::optional<Theta> thetaSA;
    std::optional<QString> boardThermalModel;
    std::optional<Theta> thetaJB;
    std::optional<double> boardTemp;
};

/// Toggle rates of nets, in one unit.
struct RateSection
{
    bool present = false;
    RateUnit unit = RateUnit::Toggle;
    QVector<VLT_Rate> records;
};

struct DefaultRate
{
    RateUnit unit = RateUnit::Toggle;
    double value = 12.5;
};

/// The rates of signals that have no rate of their own and are not in an activity file.
struct DefaultRates
{
    bool present = false;
    std::optional<DefaultRate> io;
    std::optional<DefaultRate> remaining;
};

/// Simulation activity files. An empty `entity` is the design itself.
struct FileSection
{
    bool present = false;
    QVector<VLT_VcdFile> records;
    std::optional<bool> filterGlitch;
};

/// Clocks, and the enable rate of those that are not listed, in percent.
struct ClockSection
{
    bool present = false;
    double value = 100;
    QVector<VLT_ClkEnable> records;
};

struct PortSection
{
    bool present = false;
    QVector<VLT_Port> records;
};

/// Defaults for the block SRAMs that are not listed, in percent.
struct BSRamDefaults
{
    double clockEnable = 100;
    double readProbability = 100;
    double writeProbability = 100;
};

struct BSRamSection
{
    bool present = false;
    BSRamDefaults defaults;
    QVector<VLT_BSRam> records;
};

struct DffSection
{
    bool present = false;
    QVector<VLT_Dff> records;
};

/// A power analysis configuration, section by section in the file's order. Numbers are as read,
/// even where the editor would limit them. `present` says whether the file has the section's
/// element; for an absent section the editor keeps its defaults.
struct Configuration
{
    Conditions conditions;
    RateSection rates;
    DefaultRates defaultRates;
    FileSection files;
    ClockSection clocks;
    PortSection ports;
    BSRamSection bsrams;
    DffSection dffs;
};

bool operator==(const Configuration &left, const Configuration &right);

inline bool operator!=(const Configuration &left, const Configuration &right)
{
    return !(left == right);
}

} // namespace VLT
