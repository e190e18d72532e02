#include "te/proinfomanager.h"

#include "dev/chipinfo.h"
#include "host/core/projectfile.h"
#include "host/dev/devicecatalogue.h"
#include "host/qutil/eventbus.h"
#include "host/te/deviceselection.h"
#include "qutil/ievent.h"

namespace TE {

ProInfoManager *ProInfoManager::instance()
{
    static ProInfoManager manager;
    return &manager;
}

QString ProInfoManager::deviceID() const
{
    return DeviceSelection::get()->deviceID();
}

DEV::ChipInfo ProInfoManager::chipInfo() const
{
    return DEV::DeviceCatalogue::get()->chipInfo(deviceID());
}

DeviceSelection *DeviceSelection::get()
{
    static DeviceSelection self;
    return &self;
}

QString DeviceSelection::deviceID() const
{
    const auto *project = Core::ProjectFile::current();
    return project ? project->device() : m_device;
}

void DeviceSelection::setDevice(const QString &id)
{
    if (auto *project = Core::ProjectFile::current())
        project->setDevice(id);
    else
        m_device = id;
    QUtil::EventBus::get()->deliver(
        QUtil::IEvent(QStringLiteral("TE.Device.Change"), {{QStringLiteral("device"), id}}));
}

} // namespace TE
