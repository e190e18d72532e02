#include "extsys/iplugin.h"

namespace ExtSys {

IPlugin::IPlugin() = default;

IPlugin::~IPlugin() = default;

void IPlugin::addAutoReleasedObject(QObject *) {}

} // namespace ExtSys
