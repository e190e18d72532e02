#pragma once

#include <QFileInfo>

namespace VLT {

/// Whether there is something at the path that can be read as a simulation activity file.
inline bool isActivityFile(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

} // namespace VLT
