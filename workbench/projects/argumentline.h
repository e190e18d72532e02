#pragma once

#include <QString>
#include <QStringList>

namespace Workbench {

/// A command line as text for the user, and the arguments that it stands for. Blanks separate
/// arguments; double quotes keep them together, with `\"` and `\\` inside, and so do single quotes,
/// inside which every character stands for itself. No other character has a meaning: commands run
/// without a shell.
QString joinArguments(const QStringList &arguments);

/// False when a quote is not closed.
bool splitArguments(const QString &line, QStringList *arguments);

} // namespace Workbench
