#pragma once

#include <QStringList>

namespace Workbench {

/// `workbench names`: reviews what the names of a configuration mean, records it, and mends names.
/// Returns the exit status.
int runNames(const QStringList &arguments);

} // namespace Workbench
