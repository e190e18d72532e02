#pragma once

#include <QStringList>

namespace Workbench {

/// `workbench scopes`: tells which scope of an activity file is which instance of the design.
/// Returns the exit status.
int runScopes(const QStringList &arguments);

} // namespace Workbench
