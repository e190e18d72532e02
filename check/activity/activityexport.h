#pragma once

#include "check/activity/coverage.h"

#include <QByteArray>
#include <QPair>

namespace Check {

struct ConfigurationInput;

/// What is exported.
struct ExportInput
{
    const ConfigurationInput &input;
    const Coverage &coverage;
    const DesignTree &design;
    const DesignNames &names;
    QVector<QPair<QString, double>> clocks; ///< with their periods in s
};

/// A file for another tool.
struct Exported
{
    QByteArray bytes;
    QString error;      ///< why there is none; empty when there is
    int unresolved = 0; ///< names that are not in the netlist
};

/// Every net with its rate: path, kind, source, value, unit.
Exported exportCsv(const ExportInput &input);

/// Commands for the open static timing analyzer. Without a period there is none when rates are in
/// transitions per second and the clock that they relate to is not plain.
Exported exportSta(const ExportInput &input);

} // namespace Check
