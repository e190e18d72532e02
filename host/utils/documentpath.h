#pragma once

#include "hostexport.h"

#include <QString>

namespace Utils {

/// The path under which a document is known and compared: absolute, without "." and "..". The file
/// need not exist, and links are not followed.
HOST_EXPORT QString documentPath(const QString &path);

} // namespace Utils
