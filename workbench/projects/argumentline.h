#pragma once

#include <QString>
#include <QStringList>

namespace Workbench {

/// Converts between arguments and a line that the user edits. Spaces separate arguments; double
/// quotes enclose one, with `\"` and `\\` as escapes; so do single quotes, without escapes. No
/// other character is special: commands run without a shell.
QString joinArguments(const QStringList &arguments);

/// False if a quote is not closed.
bool splitArguments(const QString &line, QStringList *arguments);

} // namespace Workbench
