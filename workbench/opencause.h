#pragma once

#include <QString>

namespace Workbench {

/// Why the configuration at `path` does not open for the current project's device, as one sentence;
/// empty if neither the file nor the device is the cause.
QString causeOfRefusal(const QString &path);

/// What is wrong with the current project's device, as one sentence; empty for a known one.
QString deviceProblem();

} // namespace Workbench
