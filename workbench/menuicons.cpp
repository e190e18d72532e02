#include "workbench/menuicons.h"

#include <QAction>
#include <QMenu>

namespace Workbench {

void setIconsWhenShown(QMenu *menu, const MenuIcons &icons)
{
    QObject::connect(menu, &QMenu::aboutToShow, menu, [menu, icons] {
        for (const auto &[action, icon] : icons) {
            if (action->icon().isNull())
                action->setIcon(menu->style()->standardIcon(icon));
        }
    });
}

} // namespace Workbench
