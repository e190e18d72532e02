#pragma once

#include <QString>

namespace Workbench {

/// Exit status of a program that was called with arguments that it does not take.
constexpr int BAD_USAGE_STATUS = 2;

/// Whether windows can be shown: there is a display, or a platform without one was chosen.
bool hasDisplay();

/// Names the program and sets what holds for all of its windows; before any QApplication.
void prepareApplication();

/// Where the plug-ins are: beside the program, or where an installation has them.
QString pluginFolder();

/// The sample project that is installed with the program: in `share/workbench/sample` beside the
/// program's `bin`.
QString sampleFolder();

} // namespace Workbench
