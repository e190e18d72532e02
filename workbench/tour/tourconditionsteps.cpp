#include "workbench/tour/tourlocators.h"
#include "workbench/tour/toursteps.h"

namespace Workbench {

void setConditions(const Tour &tour)
{
    TourDriver &driver = tour.driver;
    tour.showTab(QStringLiteral("General Setting"));
    driver.choose(QStringLiteral("the grade"), widgetNamed("comboGrade"),
                  QStringLiteral("Industrial"));
    driver.choose(QStringLiteral("the process"), widgetNamed("comboProcess"),
                  QStringLiteral("Worst"));
    driver.enter(QStringLiteral("the ambient temperature"), widgetNamed("spinAmbTemp"),
                 QStringLiteral("42.5"));
    driver.click(QStringLiteral("the heat sink"), widgetNamed("radioHeatMedium"));
    driver.choose(QStringLiteral("the air flow"), widgetNamed("comboAirFlow"),
                  QStringLiteral("200"));
    driver.click(QStringLiteral("the board model"), widgetNamed("radioBoardCustom"));
    driver.enter(QStringLiteral("theta JB"), widgetNamed("lineEditJB"), QStringLiteral("7.25"));
    driver.expect(QStringLiteral("the document is modified"),
                  [] { return activeViewTitle().endsWith(QLatin1Char('*')); });
    driver.picture(QStringLiteral("conditions"));

    tour.save();
    for (const char *text :
         {"<TempGrade>Industrial</TempGrade>", "<Process>Worst</Process>",
          "<AmbientTemp>42.5</AmbientTemp>", "<HeatSink>Medium Profile</HeatSink>",
          "<AirFlow>200</AirFlow>", "<BoardThermalModel>Custom</BoardThermalModel>",
          "<CustomThetaJB>7.25</CustomThetaJB>"}) {
        tour.expectSaved(text);
    }
}

} // namespace Workbench
