#pragma once

#include <QStringList>

namespace Workbench {

/// `workbench check`: reports what is wrong with configurations. Returns the exit status.
int runCheck(const QStringList &arguments);

} // namespace Workbench
