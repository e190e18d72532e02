#pragma once

#include <QHash>
#include <QString>

namespace Workbench {

/// A family of devices, as far as a new project needs to know it.
struct DesignFamily
{
    const char *name;
    const char *series;    ///< beginning of the catalogue's name of it
    const char *device;    ///< a common part of it, in the catalogue
    const char *synthesis; ///< the synthesis tool's command for it
};

/// The family that cells of these types, with their numbers, are made for; null when none of them
/// is known to be of one. Lives as long as the program.
const DesignFamily *familyOfCells(const QHash<QString, int> &cellTypes);

/// The family of a device of the catalogue; null when there is none for it.
const DesignFamily *familyOfDevice(const QString &id);

} // namespace Workbench
