#pragma once

#include "extsys/iplugin.h"

namespace VLT {

/// The plug-in object that the environment loads.
class VLTSettingPlugin : public ExtSys::IPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "VLT.VLTSettingPlugin/1.0")
    Q_INTERFACES(ExtSys::IPlugin)

public:
    /// Registers the wizard and the view manager's action.
    bool initialize() override;
    void extensionsInitialized() override;

    /// Deletes the view manager; views that are still open stay with the environment.
    void shutDown() override;
};

} // namespace VLT
