#pragma once

#include <QPair>
#include <QStyle>
#include <QVector>

class QAction;
class QMenu;

namespace Workbench {

using MenuIcons = QVector<QPair<QAction *, QStyle::StandardPixmap>>;

/// Gives the actions of `menu` their icons when it is first opened: the style decodes several
/// pictures for each, which would delay the start.
void setIconsWhenShown(QMenu *menu, const MenuIcons &icons);

} // namespace Workbench
