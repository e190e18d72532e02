#pragma once

#include <QString>

namespace DEV {

/// Texts that identify a chip: supply data is keyed by the first two.
class ChipInfo
{
public:
    QString device;  ///< device model
    QString package; ///< package name
    QString series;  ///< device family
};

} // namespace DEV
