#pragma once

#include <QFileInfo>

namespace VLT {

/// Whether a readable file or device exists at the path.
inline bool isActivityFile(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

} // namespace VLT
