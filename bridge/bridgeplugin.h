#pragma once

#include "extsys/iplugin.h"

/// Makes the plug-in of the power analysis configuration the embedded host's opener of ".vlr"
/// files. A plug-in of its own, because the other one knows nothing of this host.
class BridgePlugin : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "VLT.BridgePlugin/1.0")
    Q_INTERFACES(ExtSys::IPlugin)

public:
    bool initialize() override;
    void extensionsInitialized() override;
    void shutDown() override;
};
