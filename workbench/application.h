#pragma once

#include <QString>

namespace Workbench {

/// Exit status after invalid arguments.
constexpr int BAD_USAGE_STATUS = 2;

/// Whether windows can be shown: on a display, or on a platform that needs none.
bool hasDisplay();

/// Sets the program's name and the attributes of all windows. Call before creating QApplication.
void prepareApplication();

/// Where the plug-ins are: beside the program, or where an installation has them.
QString pluginFolder();

/// The sample project that is installed with the program: in `share/workbench/sample` beside the
/// program's `bin`.
QString sampleFolder();

} // namespace Workbench
