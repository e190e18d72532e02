#pragma once

#include "hostexport.h"

#include <QString>

namespace TE {

/// The host's side of the project information. The device is the open project's; without a project
/// it is stored here until the process ends.
class HOST_EXPORT DeviceSelection
{
public:
    static DeviceSelection *get();

    QString deviceID() const;

    /// Sets the device and raises "TE.Device.Change" with its identifier as value "device", even if
    /// it is unchanged. An identifier that is not in the device database is accepted; its chip is
    /// unknown.
    void setDevice(const QString &id);

private:
    QString m_device;
};

} // namespace TE
