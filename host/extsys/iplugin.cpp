#include "extsys/iplugin.h"

#include "host/extsys/pluginmanager.h"

namespace ExtSys {

IPlugin::IPlugin() = default;

IPlugin::~IPlugin() = default;

void IPlugin::addAutoReleasedObject(QObject *object)
{
    PluginManager::instance()->addAutoReleasedObject(object, this);
}

} // namespace ExtSys
