#pragma once

#include "hostexport.h"

#include <QString>

namespace Utils {

/// Whether `a` comes before `b` when runs of digits count as the numbers that they are, and other
/// characters by their code: "d[2]" before "d[10]".
HOST_EXPORT bool naturalLess(const QString &a, const QString &b);

} // namespace Utils
