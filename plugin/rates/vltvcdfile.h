#pragma once

#include <QFileInfo>
#include <QString>

namespace VLT {

/// A simulation activity file. Times are decimal texts as typed; an empty one is no limit.
struct VLT_VcdFile
{
    QString file;   ///< full path as chosen
    QString entity; ///< path of the instance that the file describes, or the design's name
    bool isVcd = true;
    QString startTime;
    QString endTime;
    QString timeUnit;
};

/// Whether there is something at the path that can be read as a file.
inline bool isActivityFile(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() && !info.isDir();
}

} // namespace VLT
