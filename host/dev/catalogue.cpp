#include "host/dev/catalogue.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>

namespace DEV {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("DEV::Catalogue", text);
}

QString volts(const QJsonValue &value)
{
    return value.isDouble() ? QString::number(value.toDouble(), 'g', 6) : value.toString();
}

bool isRange(const Supply &supply)
{
    bool ok[3] = {};
    const double min = supply.min.toDouble(&ok[0]);
    const double start = supply.defaultValue.toDouble(&ok[1]);
    const double max = supply.max.toDouble(&ok[2]);
    return ok[0] && ok[1] && ok[2] && 0 <= min && min <= start && start <= max && max <= 50;
}

/// As numbers: "1.2" and "1.200" are the same.
bool isSameRange(const Supply &a, const Supply &b)
{
    const auto same = [](const QString &x, const QString &y) {
        return x.toDouble() == y.toDouble();
    };
    return same(a.min, b.min) && same(a.max, b.max) && same(a.defaultValue, b.defaultValue);
}

bool readSupply(const QJsonObject &voltage, const QString &name, Supply *supply, QString *error)
{
    const QJsonValue value = voltage[name];
    if (value.isUndefined())
        return true;
    const QJsonObject object = value.toObject();
    *supply = {volts(object[QLatin1String("min")]), volts(object[QLatin1String("max")]),
               volts(object[QLatin1String("default")])};
    if (isRange(*supply))
        return true;
    *error = tr("the supply \"%1\" needs \"min\", \"max\" and \"default\" in volts, from 0 to 50, "
                "with the default between the other two")
                 .arg(name);
    return false;
}

bool readTies(const QJsonValue &value, SupplyData *supplies, QString *error)
{
    struct Tie
    {
        QLatin1String name;
        bool *flag;
        const Supply *first;
        const Supply *second;
    };
    const Tie known[] = {
        {QLatin1String("vcc-vccx"), &supplies->vccVccx, &supplies->vcc, &supplies->vccx},
        {QLatin1String("vccx-vccldo"), &supplies->vccxVccldo, &supplies->vccx, &supplies->vccldo},
        {QLatin1String("vcc-vccldo"), &supplies->vccVccldo, &supplies->vcc, &supplies->vccldo},
    };
    if (!value.isUndefined() && !value.isArray()) {
        *error = tr("\"ties\" must be a list");
        return false;
    }
    const QJsonArray ties = value.toArray();
    for (const QJsonValue &tie : ties) {
        const QString text = tie.toString();
        const auto *found = std::find_if(std::begin(known), std::end(known),
                                         [&text](const Tie &t) { return text == t.name; });
        if (found == std::end(known)) {
            *error = tr("unknown tie \"%1\"; expected \"vcc-vccx\", \"vccx-vccldo\" or "
                        "\"vcc-vccldo\"")
                         .arg(text);
            return false;
        }
        if (found->first->defaultValue.isEmpty() || found->second->defaultValue.isEmpty()) {
            *error = tr("the tie \"%1\" needs both of its supplies").arg(text);
            return false;
        }
        if (!isSameRange(*found->first, *found->second)) {
            *error = tr("the supplies of the tie \"%1\" need the same range and default").arg(text);
            return false;
        }
        *found->flag = true;
    }
    return true;
}

bool readSupplies(const QJsonValue &value, SupplyData *supplies, QString *error)
{
    if (!value.isUndefined() && !value.isObject()) {
        *error = tr("\"voltage\" must be an object");
        return false;
    }
    const QJsonObject voltage = value.toObject();
    return readSupply(voltage, QStringLiteral("vcc"), &supplies->vcc, error) &&
           readSupply(voltage, QStringLiteral("vccx"), &supplies->vccx, error) &&
           readSupply(voltage, QStringLiteral("vccldo"), &supplies->vccldo, error) &&
           readTies(voltage[QLatin1String("ties")], supplies, error);
}

bool readDevice(const QJsonObject &object, std::vector<Device> *devices, QString *error)
{
    Device device;
    device.arg = {
        object[QLatin1String("id")].toString(), object[QLatin1String("partName")].toString(),
        object[QLatin1String("packageName")].toString(), object[QLatin1String("grade")].toString()};
    device.series = object[QLatin1String("series")].toString();
    if (device.arg.id.isEmpty() || device.arg.partName.isEmpty()) {
        *error = tr("it needs an \"id\" and a \"partName\"");
        return false;
    }
    if (!readSupplies(object[QLatin1String("voltage")], &device.supplies, error))
        return false;
    devices->push_back(device);
    return true;
}

/// A family stands for the devices PART-PACKAGE of all its parts, which share their supplies.
bool readFamily(const QJsonObject &object, std::vector<Device> *devices, QString *error)
{
    Device device;
    device.series = object[QLatin1String("series")].toString();
    const QJsonObject parts = object[QLatin1String("parts")].toObject();
    if (device.series.isEmpty() || parts.isEmpty()) {
        *error = tr("it needs a \"series\" and \"parts\", an object of package lists by part");
        return false;
    }
    if (!readSupplies(object[QLatin1String("voltage")], &device.supplies, error))
        return false;
    for (auto part = parts.begin(); part != parts.end(); ++part) {
        const QJsonArray packages = part->toArray();
        const bool named =
            std::all_of(packages.begin(), packages.end(),
                        [](const QJsonValue &name) { return !name.toString().isEmpty(); });
        if (part.key().isEmpty() || packages.isEmpty() || !named) {
            *error = tr("part \"%1\" needs a list of package names").arg(part.key());
            return false;
        }
        for (const QJsonValue &package : packages) {
            device.arg.partName = part.key();
            device.arg.packageName = package.toString();
            device.arg.id = device.arg.partName + QLatin1Char('-') + device.arg.packageName;
            devices->push_back(device);
        }
    }
    return true;
}

} // namespace

bool parseCatalogue(const QByteArray &text, std::vector<Device> *devices, QString *error)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        *error = tr("not JSON (at byte %1: %2).")
                     .arg(QString::number(parseError.offset), parseError.errorString());
        return false;
    }
    struct List
    {
        QLatin1String member;
        QLatin1String name; // of an entry
        bool (*read)(const QJsonObject &entry, std::vector<Device> *devices, QString *error);
    };
    const List lists[] = {
        {QLatin1String("families"), QLatin1String("series"), readFamily},
        {QLatin1String("devices"), QLatin1String("id"), readDevice},
    };
    const QJsonObject root = document.object();
    if (!root.contains(lists[0].member) && !root.contains(lists[1].member)) {
        *error = tr("a list \"devices\" or \"families\" is required.");
        return false;
    }
    for (const List &list : lists) {
        if (root.contains(list.member) && !root[list.member].isArray()) {
            *error = tr("\"%1\" must be a list.").arg(list.member);
            return false;
        }
        const QJsonArray entries = root[list.member].toArray();
        for (int i = 0; i < entries.size(); ++i) {
            const QJsonObject entry = entries.at(i).toObject();
            QString cause;
            if (list.read(entry, devices, &cause))
                continue;
            *error =
                tr("entry %1 of \"%2\" (\"%3\"): %4.")
                    .arg(QString::number(i + 1), list.member, entry[list.name].toString(), cause);
            return false;
        }
    }
    return true;
}

} // namespace DEV
