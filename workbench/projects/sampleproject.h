#pragma once

#include <QString>

namespace Workbench {

/// The sample project's file, in a folder that the user may write to: where the program is
/// installed, or else a copy in the user's data folder, which is made when it is not there yet.
/// Empty when there is no sample or it cannot be copied, then with one sentence in `error`.
QString sampleProject(QString *error);

} // namespace Workbench
