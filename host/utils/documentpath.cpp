#include "host/utils/documentpath.h"

#include <QDir>
#include <QFileInfo>

namespace Utils {

QString documentPath(const QString &path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath());
}

} // namespace Utils
