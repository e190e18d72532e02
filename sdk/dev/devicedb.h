#pragma once

#include "dev/devicearg.h"
#include "hostexport.h"

namespace DEV {

/// The devices that the environment knows.
class HOST_EXPORT DeviceDb
{
public:
    /// The device with the identifier `id`, owned by the database; null when it is not known.
    const DeviceArg *findByID(const QString &id) const;

private:
    friend class DeviceCatalogue;
    explicit DeviceDb(class DeviceCatalogue *d);

    class DeviceCatalogue *const d;
};

} // namespace DEV
