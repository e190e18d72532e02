#include "workbench/panes/coveragelegend.h"

#include "workbench/panes/coveragetexts.h"

#include <QPainter>

namespace Workbench {

CoverageLegend::CoverageLegend(QWidget *parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("coverageLegend"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setCounts(nullptr);
}

void CoverageLegend::setCounts(const Check::InstanceCoverage *counts)
{
    m_texts.clear();
    for (const ShownSource &shown : SHOWN_SOURCES) {
        const QString text = sourceText(shown.source);
        m_texts +=
            counts ? QStringLiteral("%1 %2").arg(text).arg(counts->sources[size_t(shown.source)])
                   : text;
    }
    setAccessibleName(m_texts.join(QLatin1String(", ")));
    updateGeometry();
    update();
}

QSize CoverageLegend::sizeHint() const
{
    const int height = fontMetrics().height();
    int width = height;
    for (const QString &text : m_texts)
        width += fontMetrics().horizontalAdvance(text) + 2 * height;
    return {width, height * 3 / 2};
}

// The rest is cut off where there is no room.
QSize CoverageLegend::minimumSizeHint() const
{
    return {0, sizeHint().height()};
}

void CoverageLegend::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const int size = fontMetrics().height();
    const int square = size * 5 / 8;
    int x = size / 2;
    for (int i = 0; i < m_texts.size(); ++i) {
        CoverageBar bar;
        bar.parts.append({SHOWN_SOURCES[i].part, 1});
        bar.whole = 1;
        bar.paint(&painter, QRect(x, (height() - square) / 2, square, square), palette());
        x += size;
        const int width = fontMetrics().horizontalAdvance(m_texts.at(i));
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(QRect(x, 0, width + 1, height()), Qt::AlignVCenter, m_texts.at(i));
        x += width + size;
    }
}

} // namespace Workbench
