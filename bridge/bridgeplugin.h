#pragma once

#include "extsys/iplugin.h"

/// Registers the power analysis configuration's plug-in as the embedded host's opener of ".vlr"
/// files. A separate plug-in, because the other one knows nothing of this host.
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
