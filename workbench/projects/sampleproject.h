#pragma once

#include <QString>

class QDir;

namespace Workbench {

/// The sample project's file in a writable folder: the installed one, or else a copy in the user's
/// data folder, which is created if missing. Empty if there is no sample or it cannot be copied,
/// with one sentence in `error`.
QString sampleProject(QString *error);

/// The project's file in `own`, a copy of the folder `installed` that can be written to. Files that
/// are already there stay as they are. Empty with a sentence in `error` if it cannot be copied.
QString ownSample(const QDir &installed, const QDir &own, QString *error);

} // namespace Workbench
