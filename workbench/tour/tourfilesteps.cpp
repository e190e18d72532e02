#include "workbench/tour/tourlocators.h"
#include "workbench/tour/toursteps.h"

#include <QAction>
#include <QFileInfo>
#include <QLabel>
#include <QTabWidget>

namespace Workbench {

namespace {

const QByteArray EMPTY_FILE = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                              "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n"
                              "<Config/>";

bool saveIsEnabled()
{
    const QAction *save = findShortcut(QKeySequence::Save);
    return save && save->isEnabled();
}

} // namespace

void createFileByWizard(const Tour &tour)
{
    TourDriver &driver = tour.driver;
    driver.picture(QStringLiteral("project"));
    driver.click(QStringLiteral("the File menu"), menu(QStringLiteral("File")));
    driver.click(QStringLiteral("New"), menuItem(QStringLiteral("New")));
    driver.click(QStringLiteral("the wizard"), menuItem(QStringLiteral("VLR Config File")));
    driver.expectDialog(QStringLiteral("New VLR Config File"));

    driver.click(QStringLiteral("OK"), button(QStringLiteral("OK")));
    driver.expect(QStringLiteral("a missing name is refused"), [] {
        const auto *info = find<QLabel>("labelInfo");
        return info && info->text() == QLatin1String("Please enter a name.");
    });
    driver.fill(QStringLiteral("the name"), widgetNamed("editName"), tour.fileName);
    driver.fill(QStringLiteral("the folder"), widgetNamed("editCreateIn"), tour.folder);
    driver.picture(QStringLiteral("wizard"));
    driver.click(QStringLiteral("OK"), button(QStringLiteral("OK")));
    driver.expectNoDialog();
    driver.expect(QStringLiteral("the empty configuration is on disk"),
                  [&] { return tour.fileText() == EMPTY_FILE; });
}

void openFileFromProjectTree(const Tour &tour)
{
    const QString name = QFileInfo(tour.file()).fileName();
    tour.driver.doubleClick(QStringLiteral("the file in the project tree"),
                            item("projectTree", name));
    tour.driver.expect(QStringLiteral("its view is shown, unmodified"),
                       [&] { return activeViewTitle() == name; });
    tour.driver.expectNoDialog();
    tour.driver.expect(QStringLiteral("there is nothing to save"), [] { return !saveIsEnabled(); });
    tour.driver.picture(QStringLiteral("opened"));
}

void Tour::showTab(const QString &title) const
{
    driver.click(QStringLiteral("the tab \"%1\"").arg(title), tab(title));
}

void Tour::save() const
{
    const QString name = QFileInfo(file()).fileName();
    driver.press(Qt::Key_S, Qt::ControlModifier);
    driver.expect(QStringLiteral("the document is saved"),
                  [&] { return activeViewTitle() == name && !saveIsEnabled(); });
    driver.expectNoDialog();
}

void Tour::expectSaved(const char *text) const
{
    driver.expect(QStringLiteral("the file holds %1").arg(QLatin1String(text)),
                  [&] { return fileText().contains(text); });
}

void saveFile(const Tour &tour)
{
    tour.save();
    for (const char *text : {"<Version>1.0</Version>", "<GlobalEnable value=\"90\">",
                             "<Clock name=\"clk_sys\" value=\"75\"/>", "value=\"12.5\""}) {
        tour.expectSaved(text);
    }
}

void closeFile(const Tour &tour)
{
    tour.driver.press(Qt::Key_W, Qt::ControlModifier);
    tour.driver.expect(QStringLiteral("no view is open"),
                       [] { return viewTabs() && viewTabs()->count() == 0; });
    tour.driver.expectNoDialog();
}

void reopenFileFromRecentFiles(const Tour &tour)
{
    const QString name = QFileInfo(tour.file()).fileName();
    tour.driver.click(QStringLiteral("the File menu"), menu(QStringLiteral("File")));
    tour.driver.click(QStringLiteral("Open recent"), menuItem(QStringLiteral("Open recent")));
    tour.driver.click(QStringLiteral("the file"), menuItemWith(name));
    tour.driver.expect(QStringLiteral("its view is shown again, unmodified"),
                       [&] { return activeViewTitle() == name; });
    tour.driver.picture(QStringLiteral("reopened"));

    // What was read is what had been saved: writing it again changes nothing.
    const QByteArray saved = tour.fileText();
    tour.showTab(QStringLiteral("Clock Setting"));
    const auto setGlobalEnable = [&tour](const QString &value) {
        tour.driver.enter(QStringLiteral("the global enable"), widgetNamed("spinGlobalEnable"),
                          value);
        tour.save();
    };
    setGlobalEnable(QStringLiteral("91"));
    tour.expectSaved("<GlobalEnable value=\"91\">");
    setGlobalEnable(QStringLiteral("90"));
    tour.driver.expect(QStringLiteral("the file is as it was saved before"),
                       [&] { return tour.fileText() == saved; });
}

} // namespace Workbench
