#pragma once

#include "extsys/iplugin.h"

namespace VLT {

/// What the environment loads.
class VLTSettingPlugin : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "VLT.VLTSettingPlugin/1.0")
    Q_INTERFACES(ExtSys::IPlugin)

public:
    bool initialize() override;
    void extensionsInitialized() override;
    void shutDown() override;
};

} // namespace VLT
