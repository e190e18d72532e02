#pragma once

#include <QStringList>

namespace Workbench {

/// Names of the modules in Verilog sources that could be the top of the design: those that no other
/// module instantiates, as far as a text search can tell. Modules without ports are taken for test
/// benches and are listed only if there are no others. Sorted. Skips files that cannot be read, and
/// everything after the first mebibyte of a file.
QStringList topModulesOf(const QStringList &paths);

} // namespace Workbench
