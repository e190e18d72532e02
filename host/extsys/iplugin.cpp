#include "extsys/iplugin.h"

#include "host/extsys/pluginmanager_p.h"

namespace ExtSys {

IPlugin::IPlugin() = default;

IPlugin::~IPlugin() = default;

void IPlugin::addAutoReleasedObject(QObject *object)
{
    PluginManager::instance()->addAutoReleasedObject(object, this);
}

} // namespace ExtSys
