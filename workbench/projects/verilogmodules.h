#pragma once

#include <QStringList>

namespace Workbench {

/// Names of the modules in Verilog sources that could be the top of the design: those that no other
/// module instantiates, as far as a look over the text can tell. Modules without ports are test
/// benches: they count only where all are such. Sorted. Files that cannot be read are left out, and
/// so is what a file has beyond its first mebibyte.
QStringList topModulesOf(const QStringList &paths);

} // namespace Workbench
