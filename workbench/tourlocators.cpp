#include "workbench/tourlocators.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QHeaderView>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <QTabWidget>
#include <QTableView>

#include <algorithm>

namespace Workbench {

namespace {

QMainWindow *mainWindow()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget *window : windows) {
        auto *result = qobject_cast<QMainWindow *>(window);
        if (result && result->isVisible())
            return result;
    }
    return nullptr;
}

QString withoutMnemonic(QString text)
{
    text = text.section(QLatin1Char('\t'), 0, 0);
    text.replace(QLatin1String("&&"), QString(QChar::Null));
    text.remove(QLatin1Char('&'));
    return text.replace(QChar::Null, QLatin1Char('&'));
}

Spot centerOf(QWidget *widget)
{
    return widget ? Spot{widget, widget->rect().center()} : Spot();
}

Spot buttonInside(const QWidget *container, const QString &text)
{
    if (!container)
        return Spot();
    const auto buttons = container->findChildren<QAbstractButton *>();
    for (QAbstractButton *button : buttons) {
        if (button->isVisible() && withoutMnemonic(button->text()) == text)
            return centerOf(button);
    }
    return Spot();
}

Spot menuEntry(const std::function<bool(const QString &)> &matches)
{
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    if (!menu)
        return Spot();
    const QList<QAction *> actions = menu->actions();
    for (QAction *action : actions) {
        if (action->isEnabled() && matches(withoutMnemonic(action->text())))
            return {menu, menu->actionGeometry(action).center()};
    }
    return Spot();
}

Spot itemSpot(QAbstractItemView *view, const QModelIndex &index)
{
    if (!view || !index.isValid())
        return Spot();
    view->scrollTo(index);
    return {view->viewport(), view->visualRect(index).center()};
}

Spot itemWithText(QAbstractItemView *view, const QString &text)
{
    if (!view || !view->model() || view->model()->rowCount() == 0)
        return Spot();
    const QModelIndexList found =
        view->model()->match(view->model()->index(0, 0), Qt::DisplayRole, text, 1,
                             Qt::MatchExactly | Qt::MatchCaseSensitive | Qt::MatchRecursive);
    return found.isEmpty() ? Spot() : itemSpot(view, found.constFirst());
}

} // namespace

QWidget *frontWidget()
{
    if (QWidget *popup = QApplication::activePopupWidget())
        return popup;
    if (QWidget *dialog = QApplication::activeModalWidget())
        return dialog;
    return mainWindow();
}

QWidget *findWidget(const QString &objectName)
{
    const QWidget *front = frontWidget();
    if (!front)
        return nullptr;
    const auto widgets = front->findChildren<QWidget *>(objectName);
    const auto shown = std::find_if(widgets.begin(), widgets.end(),
                                    [](const QWidget *widget) { return widget->isVisible(); });
    return shown == widgets.end() ? nullptr : *shown;
}

QTabWidget *viewTabs()
{
    const QMainWindow *window = mainWindow();
    return window ? window->findChild<QTabWidget *>(QStringLiteral("views")) : nullptr;
}

QString activeViewTitle()
{
    const QTabWidget *tabs = viewTabs();
    return tabs && tabs->currentWidget() ? tabs->currentWidget()->windowTitle() : QString();
}

QAction *findAction(const QString &objectName)
{
    const QMainWindow *window = mainWindow();
    return window ? window->findChild<QAction *>(objectName) : nullptr;
}

QAction *findShortcut(const QKeySequence &shortcut)
{
    const QMainWindow *window = mainWindow();
    const auto menus = window ? window->findChildren<QMenu *>() : QList<QMenu *>();
    for (const QMenu *menu : menus) {
        const QList<QAction *> actions = menu->actions();
        for (QAction *action : actions) {
            if (action->shortcut() == shortcut)
                return action;
        }
    }
    return nullptr;
}

Locator widgetNamed(const char *objectName)
{
    return [objectName] { return centerOf(findWidget(QLatin1String(objectName))); };
}

Locator button(const QString &text)
{
    return [text] { return buttonInside(frontWidget(), text); };
}

Locator buttonIn(const char *container, const QString &text)
{
    return [container, text] { return buttonInside(findWidget(QLatin1String(container)), text); };
}

Locator menu(const QString &title)
{
    return [title]() -> Spot {
        const QMainWindow *window = mainWindow();
        if (!window)
            return Spot();
        const QList<QAction *> actions = window->menuBar()->actions();
        for (QAction *action : actions) {
            if (withoutMnemonic(action->text()) == title)
                return {window->menuBar(), window->menuBar()->actionGeometry(action).center()};
        }
        return Spot();
    };
}

Locator menuItem(const QString &text)
{
    return [text] { return menuEntry([&](const QString &entry) { return entry == text; }); };
}

Locator menuItemWith(const QString &part)
{
    return [part] { return menuEntry([&](const QString &entry) { return entry.contains(part); }); };
}

Locator tab(const QString &text)
{
    return [text]() -> Spot {
        const QWidget *front = frontWidget();
        const auto bars = front ? front->findChildren<QTabBar *>() : QList<QTabBar *>();
        for (QTabBar *bar : bars) {
            for (int i = 0; bar->isVisible() && i < bar->count(); ++i) {
                if (withoutMnemonic(bar->tabText(i)) == text)
                    return {bar, bar->tabRect(i).center()};
            }
        }
        return Spot();
    };
}

Locator treeItem(const char *tree, const QString &text)
{
    return [tree, text] { return itemWithText(find<QAbstractItemView>(tree), text); };
}

Locator listItem(const char *list, const QString &text)
{
    return treeItem(list, text);
}

Locator cell(const char *table, int row, int column)
{
    return [table, row, column] {
        auto *view = find<QTableView>(table);
        return view ? itemSpot(view, view->model()->index(row, column)) : Spot();
    };
}

Locator columnHeader(const char *table, int column)
{
    return [table, column]() -> Spot {
        auto *view = find<QTableView>(table);
        if (!view)
            return Spot();
        QHeaderView *header = view->horizontalHeader();
        return {header->viewport(),
                QPoint(header->sectionViewportPosition(column) + header->sectionSize(column) / 2,
                       header->height() / 2)};
    };
}

} // namespace Workbench
