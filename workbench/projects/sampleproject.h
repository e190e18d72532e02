#pragma once

#include <QString>

class QDir;

namespace Workbench {

/// The sample project's file, in a folder that the user may write to: where the program is
/// installed, or else a copy in the user's data folder, which is made when it is not there yet.
/// Empty when there is no sample or it cannot be copied, then with one sentence in `error`.
QString sampleProject(QString *error);

/// The project's file in `own`, a copy of the folder `installed` that can be written to. Files that
/// are already there stay as they are. Empty with a sentence in `error` if it cannot be copied.
QString ownSample(const QDir &installed, const QDir &own, QString *error);

} // namespace Workbench
