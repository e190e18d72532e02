#pragma once

#include "hostexport.h"

namespace DEV {
class DeviceDb;
}

namespace Core {

/// The environment's global services.
class HOST_EXPORT IdeCore
{
public:
    /// The device database, owned by the environment; never null.
    static DEV::DeviceDb *deviceDataBase();
};

} // namespace Core
