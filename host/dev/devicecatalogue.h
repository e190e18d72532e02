#pragma once

#include "dev/chipinfo.h"
#include "dev/devicearg.h"
#include "hostexport.h"

#include <QString>
#include <QStringList>

#include <deque>
#include <memory>

namespace DEV {

class DeviceDb;

/// Range and default of one supply, as texts in volts; empty if the chip does not have it.
struct Supply
{
    QString min;
    QString max;
    QString defaultValue;
};

/// Supply data of a chip; all empty if none is known.
struct SupplyData
{
    Supply vcc;
    Supply vccx;
    Supply vccldo;
    bool vccVccx = false; ///< the two are tied on this chip; likewise below
    bool vccxVccldo = false;
    bool vccVccldo = false;

    /// Whether configurations can be opened for the chip: they need VCC.
    bool isKnown() const { return !vcc.defaultValue.isEmpty(); }
};

struct Device
{
    DeviceArg arg;
    QString series;
    SupplyData supplies;
    int addition = 0; ///< grows with every entry read; a replacement is a new addition
};

/// The host's side of the device database: the built-in catalogue and the user's additions.
class HOST_EXPORT DeviceCatalogue
{
    Q_DISABLE_COPY(DeviceCatalogue)
public:
    static DeviceCatalogue *get();
    DeviceDb *dataBase() const { return m_dataBase; }

    /// In the order of the catalogue. Devices keep their addresses.
    const std::deque<Device> &devices() const { return m_devices; }
    const Device *find(const QString &id) const;
    ChipInfo chipInfo(const QString &id) const;

    /// Supply data of a chip, by DEV::ChipInfo's device and package. Of several entries, the newest
    /// one that has supply data counts.
    SupplyData supplies(const QString &device, const QString &package) const;

    /// Adds the devices of a catalogue file; a device with a known identifier replaces the earlier
    /// one. On failure adds nothing and returns false, with one sentence in `error`.
    bool addFile(const QString &path, QString *error);

    /// The user's own catalogue, read at startup if it exists.
    static QString userFile();

    /// The error in the user's file at startup; empty if there was none.
    QString userFileError() const { return m_userFileError; }

private:
    DeviceCatalogue();

    DeviceDb *const m_dataBase;
    std::deque<Device> m_devices;
    int m_additions = 0;
    QString m_userFileError;
};

} // namespace DEV
