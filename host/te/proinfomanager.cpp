#include "te/proinfomanager.h"

#include "dev/chipinfo.h"
#include "host/core/project_p.h"
#include "host/core/projectmanager_p.h"
#include "host/dev/devicedb_p.h"
#include "host/qutil/eventmanager_p.h"
#include "host/te/proinfomanager_p.h"
#include "qutil/ievent.h"

namespace TE {

ProInfoManager *ProInfoManager::instance()
{
    static ProInfoManager manager;
    return &manager;
}

QString ProInfoManager::deviceID() const
{
    return ProInfoManagerPrivate::get()->deviceID();
}

DEV::ChipInfo ProInfoManager::chipInfo() const
{
    return DEV::DeviceDbPrivate::get()->chipInfo(deviceID());
}

ProInfoManagerPrivate *ProInfoManagerPrivate::get()
{
    static ProInfoManagerPrivate self;
    return &self;
}

QString ProInfoManagerPrivate::deviceID() const
{
    const auto *project = Core::ProjectPrivate::of(Core::ProjectManagerPrivate::get()->current());
    return project ? project->device() : m_device;
}

void ProInfoManagerPrivate::setDevice(const QString &id)
{
    if (auto *project = Core::ProjectPrivate::of(Core::ProjectManagerPrivate::get()->current()))
        project->setDevice(id);
    else
        m_device = id;
    QUtil::EventManagerPrivate::get()->deliver(
        QUtil::IEvent(QStringLiteral("TE.Device.Change"), {{QStringLiteral("device"), id}}));
}

} // namespace TE
