#include "workbench/tour/tourlocators.h"
#include "workbench/tour/toursteps.h"

#include <QDockWidget>
#include <QLabel>
#include <QMainWindow>
#include <QToolButton>
#include <QTreeView>

namespace Workbench {

void seeCoverage(const Tour &tour)
{
    TourDriver &driver = tour.driver;
    driver.click(QStringLiteral("the Checks menu"), menu(QStringLiteral("Checks")));
    driver.click(QStringLiteral("Show Coverage"), menuItem(QStringLiteral("Show Coverage")));
    driver.expect(QStringLiteral("the activity file covers all sources"), [] {
        const auto *state = find<QLabel>("coverageState");
        return state && state->text().contains(QLatin1String("sources 241 of 241 (100 %)"));
    });
    driver.expect(QStringLiteral("toggles can be counted"), [] {
        const auto *count = find<QToolButton>("countToggles");
        return count && count->isEnabled();
    });
    driver.click(QStringLiteral("Count Toggles"), widgetNamed("countToggles"));
    driver.expect(QStringLiteral("the toggles are counted"), [] {
        const auto *tree = find<QTreeView>("instances");
        return tree && !tree->isColumnHidden(tree->model()->columnCount() - 1);
    });
    driver.click(QStringLiteral("an instance"), item("instances", QStringLiteral("u_uart")));
    driver.picture(QStringLiteral("coverage"));
    driver.act([] {
        auto *coverage = find<QDockWidget>("coverageDock");
        auto *messages = find<QDockWidget>("messagesDock");
        auto *window = coverage ? qobject_cast<QMainWindow *>(coverage->window()) : nullptr;
        if (!window || !messages)
            return false;
        coverage->close();
        messages->raise();
        window->resizeDocks({messages}, {1}, Qt::Vertical); // the room is for the tables
        return true;
    });
}

} // namespace Workbench
