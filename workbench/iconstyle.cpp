#include "workbench/iconstyle.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QStyleOption>

#include <iterator>

namespace Workbench {

namespace {

/// In the middle of a square `area`, with lines as wide as those of letters.
void drawCross(QPainter *painter, const QRectF &area, const QColor &color)
{
    const qreal reach = area.width() * 0.25;
    const QPointF center = area.center();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, area.width() / 10, Qt::SolidLine, Qt::RoundCap));
    painter->drawLine(center - QPointF(reach, reach), center + QPointF(reach, reach));
    painter->drawLine(center - QPointF(reach, -reach), center + QPointF(reach, -reach));
}

/// Two windows, one before the other.
void drawWindows(QPainter *painter, const QRectF &area, const QColor &color)
{
    const qreal side = area.width() * 0.4;
    const QRectF front(area.center() - QPointF(side * 0.7, side * 0.3), QSizeF(side, side));
    const QRectF back = front.translated(side * 0.4, -side * 0.4);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(color, area.width() / 12));
    painter->drawRect(front);
    const QPointF outline[] = {QPointF(back.left(), front.top()), back.topLeft(), back.topRight(),
                               back.bottomRight(), QPointF(front.right(), back.bottom())};
    painter->drawPolyline(outline, int(std::size(outline)));
}

/// Paints in the color that the text has at the time.
class LineIcon : public QIconEngine
{
public:
    using Draw = void (*)(QPainter *, const QRectF &, const QColor &);

    explicit LineIcon(Draw draw)
        : m_draw(draw)
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        m_draw(painter, rect, QGuiApplication::palette().color(group, QPalette::WindowText));
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap result(size);
        result.fill(Qt::transparent);
        QPainter painter(&result);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return result;
    }

    QIconEngine *clone() const override { return new LineIcon(*this); }

private:
    Draw m_draw;
};

} // namespace

void IconStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                              QPainter *painter, const QWidget *widget) const
{
    if (element != PE_IndicatorTabClose)
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool pointed = option->state.testFlag(State_MouseOver);
    const qreal side = qMin(option->rect.width(), option->rect.height());
    QRectF area(0, 0, side, side);
    area.moveCenter(QRectF(option->rect).center());
    QColor color = option->palette.color(QPalette::WindowText);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    color.setAlphaF(0.15);
    if (pointed) {
        painter->setPen(Qt::NoPen);
        painter->setBrush(color);
        painter->drawRoundedRect(area, side / 6, side / 6);
    }
    color.setAlphaF(pointed ? 1 : 0.75);
    drawCross(painter, area, color);
    painter->restore();
}

QIcon IconStyle::standardIcon(StandardPixmap which, const QStyleOption *option,
                              const QWidget *widget) const
{
    switch (which) {
    case SP_TitleBarCloseButton:
    case SP_DialogCloseButton:
        return QIcon(new LineIcon(drawCross));
    case SP_TitleBarNormalButton:
        return QIcon(new LineIcon(drawWindows));
    default:
        return QProxyStyle::standardIcon(which, option, widget);
    }
}

} // namespace Workbench
