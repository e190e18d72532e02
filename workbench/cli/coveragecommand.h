#pragma once

#include <QStringList>

namespace Workbench {

/// `workbench coverage`: tells where the rates of a design's nets come from. Returns the exit
/// status.
int runCoverage(const QStringList &arguments);

} // namespace Workbench
