#pragma once

class QString;

namespace Workbench {

/// Drives the program through its main job on a copy of the project in `sampleFolder`, with the
/// plug-ins of `pluginFolder` (empty: those beside the program). Leaves a picture of each step and
/// the configuration in `folder`. Returns the exit status: 0, or 1 at the first unexpected result,
/// which is reported on standard error.
int runTour(const QString &folder, const QString &sampleFolder, const QString &pluginFolder);

} // namespace Workbench
