#include "workbench/tour/tourlocators.h"
#include "workbench/tour/toursteps.h"

#include <QAbstractItemView>
#include <QDir>
#include <QLineEdit>

namespace Workbench {

namespace {

QAbstractItemModel *modelOf(const char *view)
{
    const auto *found = find<QAbstractItemView>(view);
    return found ? found->model() : nullptr;
}

// Tries to finish the activity file dialog, and expects the refusal.
void expectRefusal(const Tour &tour, const QString &text)
{
    tour.driver.click(QStringLiteral("OK"), button(QStringLiteral("OK")));
    tour.driver.answer(QStringLiteral("Warning"), text, QStringLiteral("OK"));
    tour.driver.expectDialog(QStringLiteral("Add Vcd File"));
}

void openActivityFileDialog(const Tour &tour)
{
    tour.driver.click(QStringLiteral("Add"), widgetNamed("VCD File>btnAdd"));
    tour.driver.expectDialog(QStringLiteral("Add Vcd File"));
}

void chooseInstance(const Tour &tour, const QString &path)
{
    TourDriver &driver = tour.driver;
    driver.click(QStringLiteral("the instance button"), widgetNamed("btnSelectInstance"));
    driver.expectDialog(QStringLiteral("Select Instance"));
    driver.fill(QStringLiteral("the filter"), widgetNamed("lineEditFilter"), path.toUpper());
    driver.click(path, item("listWidget", path));
    driver.click(QStringLiteral("OK"), button(QStringLiteral("OK")));
    driver.expectDialog(QStringLiteral("Add Vcd File"));
    driver.expect(QStringLiteral("the instance is taken"), [&] {
        const auto *edit = find<QLineEdit>("editInstance");
        return edit && edit->text() == path;
    });
}

QString activityFile(const Tour &tour)
{
    return tour.project + QLatin1String("/activity.vcd");
}

} // namespace

void giveNetsRates(const Tour &tour)
{
    TourDriver &driver = tour.driver;
    tour.showTab(QStringLiteral("Rate Setting"));
    driver.click(QStringLiteral("Add"), widgetNamed("Net Rate>btnAdd"));
    driver.expectDialog(QStringLiteral("Net Finder"));
    driver.fill(QStringLiteral("the filter"), widgetNamed("lineEditFilter"),
                QStringLiteral("reply_valid"));
    driver.click(QStringLiteral("the net"), item("listView", QStringLiteral("reply_valid")));
    driver.picture(QStringLiteral("nets"));
    driver.click(QStringLiteral("OK"), button(QStringLiteral("OK")));
    driver.expectNoDialog();
    driver.expect(QStringLiteral("the net is listed"), [] {
        const auto *model = modelOf("tableviewNet");
        return model && model->rowCount() == 1;
    });

    // A net without a rate cannot be saved.
    driver.press(Qt::Key_S, Qt::ControlModifier);
    driver.answer(QStringLiteral("Warning"),
                  QStringLiteral("Rate value of Net 'reply_valid' is empty."),
                  QStringLiteral("OK"));
    driver.editCell(QStringLiteral("the net's rate"), cell("tableviewNet", 0, 1),
                    QStringLiteral("18.75"));
    driver.expect(QStringLiteral("the rate is shown in percent"), [] {
        const auto *model = modelOf("tableviewNet");
        return model && model->index(0, 1).data().toString() == QLatin1String("18.75%");
    });
}

void refuseUnusableActivityFiles(const Tour &tour)
{
    TourDriver &driver = tour.driver;
    openActivityFileDialog(tour);
    expectRefusal(tour, QStringLiteral("No vcd file. Please select vcd file."));

    const QString missing = tour.folder + QLatin1String("/missing.vcd");
    driver.fill(QStringLiteral("the file"), widgetNamed("editFile"), missing);
    expectRefusal(
        tour,
        QStringLiteral("Vcd file '%1' doesn't exist.").arg(QDir::toNativeSeparators(missing)));

    driver.fill(QStringLiteral("the file"), widgetNamed("editFile"), activityFile(tour));
    expectRefusal(tour, QStringLiteral("Module instance name is empty. Please select instance."));

    chooseInstance(tour, QStringLiteral("u_uart"));
    driver.fill(QStringLiteral("the end time"), widgetNamed("editEndTime"), QStringLiteral("0"));
    expectRefusal(tour, QStringLiteral("End time value cannot be 0."));

    driver.fill(QStringLiteral("the start time"), widgetNamed("editStartTime"),
                QStringLiteral("5"));
    driver.fill(QStringLiteral("the end time"), widgetNamed("editEndTime"), QStringLiteral("5"));
    expectRefusal(tour, QStringLiteral("End time value must be greater than start time value."));
    driver.press(Qt::Key_Escape);
    driver.expectNoDialog();
}

void bindActivityFiles(const Tour &tour)
{
    TourDriver &driver = tour.driver;
    openActivityFileDialog(tour);
    driver.fill(QStringLiteral("the file"), widgetNamed("editFile"), activityFile(tour));
    chooseInstance(tour, QStringLiteral("u_uart"));
    driver.choose(QStringLiteral("the time unit"), widgetNamed("comboTimeUnit"),
                  QStringLiteral("us"));
    driver.fill(QStringLiteral("the start time"), widgetNamed("editStartTime"),
                QStringLiteral("5"));
    driver.fill(QStringLiteral("the end time"), widgetNamed("editEndTime"), QStringLiteral("25.5"));
    driver.picture(QStringLiteral("activity-file"));
    driver.click(QStringLiteral("OK"), button(QStringLiteral("OK")));
    driver.expectNoDialog();

    // The design's own name stands for the top.
    openActivityFileDialog(tour);
    driver.fill(QStringLiteral("the file"), widgetNamed("editFile"), activityFile(tour));
    chooseInstance(tour, QStringLiteral("sample"));
    driver.click(QStringLiteral("OK"), button(QStringLiteral("OK")));
    driver.expectNoDialog();
    driver.expect(QStringLiteral("both files are listed"), [] {
        const auto *model = modelOf("VCD File>tableView");
        return model && model->rowCount() == 2 &&
               model->index(1, 0).data().toString() == QLatin1String("sample");
    });
    driver.click(QStringLiteral("the glitch filter"), widgetNamed("checkGlitch"));
    driver.click(QStringLiteral("the net's name"), cell("tableviewNet", 0, 0));
    driver.picture(QStringLiteral("rates"));

    tour.save();
    for (const char *text :
         {"<Net name=\"reply_valid\" value=\"18.75\"/>",
          "entity=\"u_uart\" start_time=\"5\" end_time=\"25.5\" time_unit=\"us\"", "entity=\"\"/>",
          "<FilterGlitch>TRUE</FilterGlitch>"}) {
        tour.expectSaved(text);
    }
}

} // namespace Workbench
