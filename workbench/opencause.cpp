#include "workbench/opencause.h"

#include "check/configurationinput.h"
#include "host/te/deviceselection.h"

#include "core/idecore.h"
#include "dev/chipinfo.h"
#include "dev/devicedb.h"
#include "te/proinfomanager.h"
#include "zum/voltage.h"

#include <QCoreApplication>

namespace Workbench {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("Workbench::OpenCause", text);
}

} // namespace

QString deviceProblem()
{
    const QString id = TE::DeviceSelection::get()->deviceID();
    if (id.isEmpty())
        return {};
    if (!Core::IdeCore::deviceDataBase()->findByID(id))
        return tr("The project's device %1 is not in the catalogue; choose another one with Device "
                  "> Choose device.")
            .arg(id);
    const DEV::ChipInfo chip = TE::ProInfoManager::instance()->chipInfo();
    if (ZUM::Voltage(chip.device, chip.package).getVCCMin().isEmpty())
        return tr("The catalogue has no supply data for the project's device %1.").arg(id);
    return {};
}

QString causeOfRefusal(const QString &path)
{
    const Check::ConfigurationInput input = Check::readConfigurationInput(path);
    if (!input.readable)
        return input.error + QLatin1Char('.');
    if (input.report.isRead())
        return deviceProblem();
    const QString error = input.report.error + QLatin1Char('.');
    const int line = input.report.errorLine;
    return line > 0 ? tr("line %1: %2").arg(QString::number(line), error) : error;
}

} // namespace Workbench
