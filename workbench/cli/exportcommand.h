#pragma once

#include <QStringList>

namespace Workbench {

/// `workbench export`: writes the activity of a configuration for another tool. Returns the exit
/// status.
int runExport(const QStringList &arguments);

} // namespace Workbench
