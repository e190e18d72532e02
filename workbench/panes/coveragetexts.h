#pragma once

#include "check/activity/coverage.h"
#include "workbench/panes/coveragebar.h"

namespace Workbench {

/// A source of rates, and how it is shown.
struct ShownSource
{
    Check::NetSource source;
    CoverageBar::Part part;
};

/// What covers a net first.
constexpr ShownSource SHOWN_SOURCES[] = {
    {Check::NetSource::Constant, CoverageBar::Constant},
    {Check::NetSource::Rate, CoverageBar::Rate},
    {Check::NetSource::File, CoverageBar::File},
    {Check::NetSource::DefaultIo, CoverageBar::DefaultIo},
    {Check::NetSource::DefaultRest, CoverageBar::DefaultRest},
};

QString sourceText(Check::NetSource source); ///< "file", "IO default"
QString kindText(Check::NetKind kind);       ///< "Flip-flops"

/// "17 %"; empty without nets. Nothing but all is 100 %.
QString percentText(quint32 covered, quint32 nets);
/// "35 of 206 (17 %)", or that there are none.
QString shareText(quint32 covered, quint32 nets);
/// "3 rate, 276 file, 210 default"; sources without nets are left out.
QString sourcesText(const Check::InstanceCoverage &counts);

} // namespace Workbench
