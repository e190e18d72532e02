#pragma once

#include <QColor>
#include <QMetaType>
#include <QVector>

class QPalette;
class QRect;
class QPainter;

namespace Workbench {

/// What a bar shows: parts of a whole, from the left; the rest stays empty.
struct CoverageBar
{
    enum Part { Covered, Constant, Rate, File, DefaultIo, DefaultRest };

    QVector<QPair<Part, quint32>> parts;
    quint32 whole = 0;

    /// Readable on the palette's base color, be it light or dark.
    static QColor color(Part part, const QPalette &palette);

    /// Paints the bar on a ground of its own, so that a selection below it does not matter.
    void paint(QPainter *painter, const QRect &rect, const QPalette &palette) const;
};

} // namespace Workbench

Q_DECLARE_METATYPE(Workbench::CoverageBar)
