#include "dev/devicedb.h"

#include "host/dev/catalogue.h"
#include "host/dev/devicecatalogue.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include <algorithm>

namespace DEV {

DeviceDb::DeviceDb(DeviceCatalogue *d)
    : d(d)
{
}

const DeviceArg *DeviceDb::findByID(const QString &id) const
{
    const Device *device = d->find(id);
    return device ? &device->arg : nullptr;
}

DeviceCatalogue *DeviceCatalogue::get()
{
    // Intentionally leaked, like every service that others refer to.
    static DeviceCatalogue *const self = new DeviceCatalogue;
    return self;
}

DeviceCatalogue::DeviceCatalogue()
    : m_dataBase(new DeviceDb(this))
{
    addFile(QStringLiteral(":/host/devices.json"), nullptr);
    if (QFile::exists(userFile()))
        addFile(userFile(), &m_userFileError);
}

const Device *DeviceCatalogue::find(const QString &id) const
{
    const auto it = std::find_if(m_devices.cbegin(), m_devices.cend(),
                                 [&id](const Device &device) { return device.arg.id == id; });
    return it == m_devices.cend() ? nullptr : &*it;
}

ChipInfo DeviceCatalogue::chipInfo(const QString &id) const
{
    const Device *device = find(id);
    return device ? ChipInfo{device->arg.partName, device->arg.packageName, device->series}
                  : ChipInfo();
}

SupplyData DeviceCatalogue::supplies(const QString &device, const QString &package) const
{
    const Device *best = nullptr;
    for (const Device &known : m_devices) {
        if (known.arg.partName == device && known.arg.packageName == package &&
            known.supplies.isKnown() && (!best || best->addition < known.addition))
            best = &known;
    }
    return best ? best->supplies : SupplyData();
}

bool DeviceCatalogue::addFile(const QString &path, QString *error)
{
    QString cause;
    std::vector<Device> added;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        cause = file.errorString();
    else if (parseCatalogue(file.readAll(), &added, &cause))
        cause.clear();
    if (!cause.isEmpty()) {
        if (error)
            *error = QCoreApplication::translate("DEV::DeviceDb",
                                                 "Cannot read the device catalogue %1: %2")
                         .arg(QDir::toNativeSeparators(path), cause);
        return false;
    }
    for (Device &device : added) {
        device.addition = ++m_additions;
        const auto known =
            std::find_if(m_devices.begin(), m_devices.end(),
                         [&device](const Device &other) { return other.arg.id == device.arg.id; });
        if (known == m_devices.end())
            m_devices.push_back(device);
        else
            *known = device;
    }
    return true;
}

QString DeviceCatalogue::userFile()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QLatin1String("/devices.json");
}

} // namespace DEV
