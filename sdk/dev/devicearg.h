#pragma once

#include <QString>

namespace DEV {

/// A selected device, passed by value.
class DeviceArg
{
public:
    QString id;          ///< key in the device database
    QString partName;    ///< device model, for example "QF1-05"
    QString packageName; ///< for example "LQ144"
    QString grade;       ///< temperature and speed grade as ordered
};

} // namespace DEV
