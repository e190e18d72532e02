#include "bridgeplugin.h"

#include "vlropener.h"

bool BridgePlugin::initialize()
{
    addAutoReleasedObject(new VlrOpener);
    return true;
}

void BridgePlugin::extensionsInitialized() {}

void BridgePlugin::shutDown() {}
