#pragma once

#include <QProxyStyle>

namespace Workbench {

/// The user's style with the icons that close and detach drawn in the color of the text: the usual
/// pictures are black or a few pixels wide, which shows little on dark windows and large scales.
class IconStyle : public QProxyStyle
{
    Q_OBJECT

public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    QIcon standardIcon(StandardPixmap which, const QStyleOption *option,
                       const QWidget *widget) const override;
};

} // namespace Workbench
