#include "workbench/tour/tourlocators.h"
#include "workbench/tour/toursteps.h"

#include <QAbstractItemView>

namespace Workbench {

namespace {

int rowCount(const char *view)
{
    const auto *found = find<QAbstractItemView>(view);
    return found && found->model() ? found->model()->rowCount() : -1;
}

QString cellText(const char *view, int row, int column)
{
    const auto *found = find<QAbstractItemView>(view);
    return found ? found->model()->index(row, column).data().toString() : QString();
}

void expectRows(const Tour &tour, const char *view, int count)
{
    tour.driver.expect(QStringLiteral("%1 has %2 rows").arg(QLatin1String(view)).arg(count),
                       [=] { return rowCount(view) == count; });
}

void expectCell(const Tour &tour, const char *view, int row, int column, const QString &text)
{
    tour.driver.expect(
        QStringLiteral("row %1 of %2 shows \"%3\"").arg(row).arg(QLatin1String(view), text),
        [=] { return cellText(view, row, column) == text; });
}

// Opens the finder of a page, searches, and takes everything that is found.
void addFound(const Tour &tour, const char *addButton, const QString &finder,
              const QString &pattern, const char *picture = nullptr)
{
    TourDriver &driver = tour.driver;
    driver.click(QStringLiteral("Add"), widgetNamed(addButton));
    driver.expectDialog(finder);
    driver.fill(QStringLiteral("the filter"), widgetNamed("lineEditFilter"), pattern);
    driver.click(QStringLiteral("Search"), button(QStringLiteral("Search")));
    driver.expect(QStringLiteral("the finder lists something"),
                  [] { return rowCount("listWidget") > 0; });
    driver.click(QStringLiteral("the list"), widgetNamed("listWidget"));
    driver.press(Qt::Key_A, Qt::ControlModifier);
    if (picture)
        driver.picture(QLatin1String(picture));
    driver.click(QStringLiteral("OK"), button(QStringLiteral("OK")));
    driver.expectNoDialog();
}

} // namespace

void setClockEnables(const Tour &tour)
{
    TourDriver &driver = tour.driver;
    tour.showTab(QStringLiteral("Clock Setting"));
    driver.enter(QStringLiteral("the global enable"), widgetNamed("spinGlobalEnable"),
                 QStringLiteral("90"));
    driver.click(QStringLiteral("Add"), widgetNamed("Clock>btnAdd"));
    expectRows(tour, "Clock>tableView", 1);
    driver.editCell(QStringLiteral("the clock's name"), cell("Clock>tableView", 0, 0),
                    QStringLiteral("9clk"));
    expectCell(tour, "Clock>tableView", 0, 0, QString());
    driver.editCell(QStringLiteral("the clock's name"), cell("Clock>tableView", 0, 0),
                    QStringLiteral("clk_sys"));
    expectCell(tour, "Clock>tableView", 0, 0, QStringLiteral("clk_sys"));
    driver.editCell(QStringLiteral("the clock's enable"), cell("Clock>tableView", 0, 1),
                    QStringLiteral("75"));
    expectCell(tour, "Clock>tableView", 0, 1, QStringLiteral("75"));
}

void findAndEditPorts(const Tour &tour)
{
    TourDriver &driver = tour.driver;
    addFound(tour, "IO>btnAdd", QStringLiteral("Port Finder"), QStringLiteral("LEDS*"), "finder");
    expectRows(tour, "IO>tableView", 8);
    addFound(tour, "IO>btnAdd", QStringLiteral("Port Finder"), QStringLiteral("bus_drive*"));
    expectRows(tour, "IO>tableView", 12);
    // What is listed already is not listed twice.
    addFound(tour, "IO>btnAdd", QStringLiteral("Port Finder"), QStringLiteral("leds?1?"));
    expectRows(tour, "IO>tableView", 12);

    driver.editCell(QStringLiteral("the load capacity"), cell("IO>tableView", 0, 2),
                    QStringLiteral("7.5"));
    expectCell(tour, "IO>tableView", 0, 2, QStringLiteral("7.5pF"));
    driver.editCell(QStringLiteral("the load capacity"), cell("IO>tableView", 11, 2),
                    QStringLiteral("3"));
    expectCell(tour, "IO>tableView", 11, 2, QStringLiteral("3pF"));
}

void sortAndRemovePorts(const Tour &tour)
{
    TourDriver &driver = tour.driver;
    driver.click(QStringLiteral("the header of the names"), columnHeader("IO>tableView", 0));
    driver.expect(QStringLiteral("the names are sorted"), [] {
        for (int row = 1; row < rowCount("IO>tableView"); ++row) {
            if (cellText("IO>tableView", row - 1, 0)
                    .compare(cellText("IO>tableView", row, 0), Qt::CaseInsensitive) > 0)
                return false;
        }
        return true;
    });
    const auto removeSelected = [&driver](const QString &answer) {
        driver.click(QStringLiteral("the sixth row"), cell("IO>tableView", 5, 0));
        driver.click(QStringLiteral("the seventh row"), cell("IO>tableView", 6, 0), Qt::LeftButton,
                     Qt::ControlModifier);
        driver.click(QStringLiteral("Remove"), widgetNamed("IO>btnRemove"));
        driver.answer(QStringLiteral("Confirm"), QStringLiteral("Sure to remove?"), answer);
    };
    removeSelected(QStringLiteral("No"));
    expectRows(tour, "IO>tableView", 12);
    removeSelected(QStringLiteral("Yes"));
    expectRows(tour, "IO>tableView", 10);
}

void findFlipFlopsAndMemories(const Tour &tour)
{
    addFound(tour, "DFF>btnAdd", QStringLiteral("DFF Finder"), QStringLiteral("control_*"));
    expectRows(tour, "DFF>tableView", 8);
    tour.driver.editCell(QStringLiteral("the flip-flop's enable"), cell("DFF>tableView", 0, 1),
                         QStringLiteral("12.5"));
    expectCell(tour, "DFF>tableView", 0, 1, QStringLiteral("12.5"));
    addFound(tour, "B-SRAM>btnAdd", QStringLiteral("BSRAM Finder"), QStringLiteral("*"));
    expectRows(tour, "B-SRAM>tableView", 9);
    tour.driver.click(QStringLiteral("a memory"), cell("B-SRAM>tableView", 2, 0));
    tour.driver.picture(QStringLiteral("activity"));
}

} // namespace Workbench
