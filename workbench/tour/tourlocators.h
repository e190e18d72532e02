#pragma once

#include "workbench/tour/tourdriver.h"

#include <QWidget>

class QAction;
class QTabWidget;

namespace Workbench {

// What a person finds on the screen by its name or text: in the popup or dialog that stands in
// front, else in the main window. Only what is visible is found; what is scrolled out of sight is
// scrolled to. GUI thread only, except for the functions that give a Locator, which only make one.
//
// A name is an object name. Where several widgets share it, the title of their group box stands in
// front: "IO>tableView".

/// The active popup, the active modal dialog, or the main window.
QWidget *frontWidget();

QWidget *findWidget(const QString &name);

template<typename T>
T *find(const char *name)
{
    QWidget *widget = findWidget(QLatin1String(name));
    T *result = qobject_cast<T *>(widget);
    return result || !widget ? result : widget->findChild<T *>();
}

/// The tab widget of the main window that holds the views.
QTabWidget *viewTabs();
QString activeViewTitle();

/// The current entry of the list that a combo box has opened.
QString popupEntry();

/// The command that the menus show with this shortcut.
QAction *findShortcut(const QKeySequence &shortcut);

Locator widgetNamed(const char *name);
/// A button, by its text without the mnemonic's mark.
Locator button(const QString &text);
Locator menu(const QString &title);
Locator menuItem(const QString &text);
/// An item of the menu in front whose text has `part` in it.
Locator menuItemWith(const QString &part);
Locator tab(const QString &text);
/// An item of a tree, a list or a table, by its whole text.
Locator item(const char *view, const QString &text);
Locator cell(const char *table, int row, int column);
Locator columnHeader(const char *table, int column);

} // namespace Workbench
