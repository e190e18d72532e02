#include "workbench/panes/coveragebar.h"

#include <QPainter>
#include <QPalette>

namespace Workbench {

QColor CoverageBar::color(Part part, const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < 128;
    switch (part) {
    case Covered:
    case File:
        return isDark ? QColor(62, 165, 130) : QColor(34, 139, 102);
    case Rate:
        return isDark ? QColor(92, 150, 230) : QColor(44, 105, 190);
    case Constant:
        return isDark ? QColor(150, 150, 150) : QColor(120, 120, 120);
    case DefaultIo:
        return isDark ? QColor(222, 150, 60) : QColor(226, 140, 40);
    default:
        return isDark ? QColor(120, 92, 60) : QColor(250, 218, 170);
    }
}

void CoverageBar::paint(QPainter *painter, const QRect &rect, const QPalette &palette) const
{
    painter->save();
    painter->fillRect(rect, palette.color(QPalette::Active, QPalette::Base));
    quint64 before = 0;
    for (const auto &[part, count] : parts) {
        const auto at = [&](quint64 nets) {
            return rect.left() + int(nets * quint64(rect.width()) / qMax(1U, whole));
        };
        const int begin = at(before);
        before += count;
        // The least of it is to be seen.
        const int end = count == 0 ? begin : qMax(at(before), begin + 1);
        painter->fillRect(
            QRect(begin, rect.top(), qMin(end, rect.right() + 1) - begin, rect.height()),
            color(part, palette));
    }
    QColor frame = palette.color(QPalette::Active, QPalette::Text);
    frame.setAlpha(110);
    painter->setPen(frame);
    painter->drawRect(rect.adjusted(0, 0, -1, -1));
    painter->restore();
}

} // namespace Workbench
