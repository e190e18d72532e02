#include "frame/vltsettingplugin.h"

namespace VLT {

bool VLTSettingPlugin::initialize()
{
    return true;
}

void VLTSettingPlugin::extensionsInitialized() {}

void VLTSettingPlugin::shutDown() {}

} // namespace VLT
