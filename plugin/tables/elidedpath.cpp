#include "tables/elidedpath.h"

#include <QFontMetrics>

namespace VLT {

QString elidedPath(const QString &path, const QFontMetrics &metrics, int width)
{
    const int slash = path.lastIndexOf(QLatin1Char('/'));
    if (slash < 0 || metrics.horizontalAdvance(path) <= width)
        return path;
    const QString last = path.mid(slash);
    const QString front = metrics.elidedText(path.left(slash), Qt::ElideRight,
                                             width - metrics.horizontalAdvance(last));
    return metrics.elidedText(front + last, Qt::ElideLeft, width);
}

} // namespace VLT
