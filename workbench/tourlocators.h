#pragma once

#include "workbench/tourdriver.h"

class QAction;
class QAbstractItemView;
class QTabWidget;

namespace Workbench {

// What a person finds on the screen by its name or text: in the popup or dialog that stands in
// front, else in the main window. Only what is visible is found. GUI thread only, except for the
// functions that give a Locator, which only make one.

/// The active popup, the active modal dialog, or the main window.
QWidget *frontWidget();

QWidget *findWidget(const QString &objectName);

template<typename T>
T *find(const char *objectName)
{
    return qobject_cast<T *>(findWidget(QLatin1String(objectName)));
}

/// The tab widget of the main window that holds the views.
QTabWidget *viewTabs();
QString activeViewTitle();

/// An action of the main window's menus, by the identifier it has as object name.
QAction *findAction(const QString &objectName);

/// The command that the menus show with this shortcut.
QAction *findShortcut(const QKeySequence &shortcut);

Locator widgetNamed(const char *objectName);
/// A button, by its text without the mnemonic's mark.
Locator button(const QString &text);
/// The same, when several look alike: the one inside the visible widget of that name.
Locator buttonIn(const char *container, const QString &text);
Locator menu(const QString &title);
Locator menuItem(const QString &text);
/// An item of the menu in front whose text has `part` in it.
Locator menuItemWith(const QString &part);
Locator tab(const QString &text);
Locator treeItem(const char *tree, const QString &text);
Locator listItem(const char *list, const QString &text);
Locator cell(const char *table, int row, int column);
Locator columnHeader(const char *table, int column);

} // namespace Workbench
