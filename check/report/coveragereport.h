#pragma once

#include "check/activity/coverage.h"

#include <QByteArray>

namespace Check {

struct ConfigurationInput;

/// What a coverage report is about.
struct CoverageReport
{
    const ConfigurationInput &input;
    const Coverage &coverage;
    const DesignTree &design;
    int depth; ///< levels of instances below the design; negative for all
};

QByteArray coverageText(const CoverageReport &report);
QByteArray coverageJson(const CoverageReport &report);
/// One instance per line.
QByteArray coverageCsv(const CoverageReport &report);

} // namespace Check
