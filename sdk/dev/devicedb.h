#pragma once

#include "dev/devicearg.h"
#include "hostexport.h"

namespace DEV {

/// The environment's devices.
class HOST_EXPORT DeviceDb
{
public:
    /// The device with the identifier `id`, owned by the database; null if it is unknown.
    const DeviceArg *findByID(const QString &id) const;

private:
    friend class DeviceCatalogue;
    explicit DeviceDb(class DeviceCatalogue *d);

    class DeviceCatalogue *const d;
};

} // namespace DEV
