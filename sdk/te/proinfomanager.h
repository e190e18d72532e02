#pragma once

#include "hostexport.h"

#include <QString>

namespace DEV {
class ChipInfo;
}

namespace TE {

/// The project's device.
class HOST_EXPORT ProInfoManager
{
public:
    static ProInfoManager *instance();

    /// Identifier of the project's device in the device database; empty if none is chosen.
    QString deviceID() const;

    /// The chip of the project's device; empty texts if none is chosen.
    DEV::ChipInfo chipInfo() const;

private:
    ProInfoManager() = default;
};

} // namespace TE
