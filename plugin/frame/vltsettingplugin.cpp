#include "frame/vltsettingplugin.h"

#include "frame/vltviewmanager.h"
#include "frame/vlxwizardfactory.h"

namespace VLT {

bool VLTSettingPlugin::initialize()
{
    addAutoReleasedObject(new VLXWizardFactory);
    VLTViewManager::instance()->initialize();
    return true;
}

void VLTSettingPlugin::extensionsInitialized() {}

void VLTSettingPlugin::shutDown()
{
    VLTViewManager::instance()->deinit();
}

} // namespace VLT
