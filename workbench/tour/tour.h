#pragma once

class QString;

namespace Workbench {

/// Drives the program through its main job on a copy of the sample project, with the plug-ins of
/// `pluginFolder` (empty: those beside the program). Leaves a picture of each step and the
/// configuration in `folder`. Gives the exit status: 0, or 1 at the first thing that is not as it
/// should be, which is told on standard error.
int runTour(const QString &folder, const QString &pluginFolder);

} // namespace Workbench
