#pragma once

#include "hostexport.h"

#include <QString>

namespace TE {

/// The host's side of the project information. The device is the open project's; without a project
/// it is kept here until the process ends.
class HOST_EXPORT DeviceSelection
{
public:
    static DeviceSelection *get();

    QString deviceID() const;

    /// Chooses the device and raises "TE.Device.Change" with its identifier as value "device", also
    /// when it is the present one. An identifier that the device database does not know is taken
    /// as it is: the chip is then unknown.
    void setDevice(const QString &id);

private:
    QString m_device;
};

} // namespace TE
