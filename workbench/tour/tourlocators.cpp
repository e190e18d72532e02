#include "workbench/tour/tourlocators.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollArea>
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

// Where to click on a widget.
Spot centerOf(QWidget *widget)
{
    if (!widget)
        return Spot();
    for (QWidget *parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto *area = qobject_cast<QScrollArea *>(parent))
            area->ensureWidgetVisible(widget);
    }
    // Check boxes and radio buttons may be wider than what they react on.
    const bool marked = qobject_cast<QCheckBox *>(widget) || qobject_cast<QRadioButton *>(widget);
    const QPoint center = widget->rect().center();
    return {widget, marked ? QPoint(widget->height() / 2, center.y()) : center};
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

QWidget *findWidget(const QString &name)
{
    const QWidget *front = frontWidget();
    if (!front)
        return nullptr;
    const QString group =
        name.contains(QLatin1Char('>')) ? name.section(QLatin1Char('>'), 0, 0) : QString();
    const auto isMeant = [&group](const QWidget *widget) {
        if (!widget->isVisible())
            return false;
        const QWidget *box = widget;
        while (box && !qobject_cast<const QGroupBox *>(box))
            box = box->parentWidget();
        return group.isEmpty() || (box && static_cast<const QGroupBox *>(box)->title() == group);
    };
    const auto widgets = front->findChildren<QWidget *>(name.section(QLatin1Char('>'), -1));
    const auto found = std::find_if(widgets.begin(), widgets.end(), isMeant);
    return found == widgets.end() ? nullptr : *found;
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

QString popupEntry()
{
    const QWidget *popup = QApplication::activePopupWidget();
    const auto *view = popup ? popup->findChild<QAbstractItemView *>() : nullptr;
    return view ? view->currentIndex().data().toString() : QString();
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

Locator widgetNamed(const char *name)
{
    return [name] { return centerOf(findWidget(QLatin1String(name))); };
}

Locator button(const QString &text)
{
    return [text] { return buttonInside(frontWidget(), text); };
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

Locator item(const char *view, const QString &text)
{
    return [view, text] { return itemWithText(find<QAbstractItemView>(view), text); };
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
        view->scrollTo(view->model()->index(0, column));
        QHeaderView *header = view->horizontalHeader();
        // Away from the edges, which resize the column.
        const int left = qMax(0, header->sectionViewportPosition(column));
        return {header->viewport(), QPoint(left + header->height(), header->height() / 2)};
    };
}

} // namespace Workbench
