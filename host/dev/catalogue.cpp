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
                "the default between the others")
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
        *error = tr("\"ties\" has to be a list");
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

bool readDevice(const QJsonObject &object, Device *device, QString *error)
{
    device->arg = {
        object[QLatin1String("id")].toString(), object[QLatin1String("partName")].toString(),
        object[QLatin1String("packageName")].toString(), object[QLatin1String("grade")].toString()};
    device->series = object[QLatin1String("series")].toString();
    if (device->arg.id.isEmpty() || device->arg.partName.isEmpty()) {
        *error = tr("it needs an \"id\" and a \"partName\"");
        return false;
    }
    const QJsonValue value = object[QLatin1String("voltage")];
    if (!value.isUndefined() && !value.isObject()) {
        *error = tr("\"voltage\" has to be an object");
        return false;
    }
    const QJsonObject voltage = value.toObject();
    SupplyData &supplies = device->supplies;
    return readSupply(voltage, QStringLiteral("vcc"), &supplies.vcc, error) &&
           readSupply(voltage, QStringLiteral("vccx"), &supplies.vccx, error) &&
           readSupply(voltage, QStringLiteral("vccldo"), &supplies.vccldo, error) &&
           readTies(voltage[QLatin1String("ties")], &supplies, error);
}

} // namespace

bool parseCatalogue(const QByteArray &text, std::vector<Device> *devices, QString *error)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(text, &parseError);
    if (parseError.error != QJsonParseError::NoError) {
        *error = tr("it is not JSON (at byte %1: %2).")
                     .arg(QString::number(parseError.offset), parseError.errorString());
        return false;
    }
    const QJsonValue list = document.object()[QLatin1String("devices")];
    if (!list.isArray()) {
        *error = tr("it has no list \"devices\".");
        return false;
    }
    const QJsonArray entries = list.toArray();
    for (int i = 0; i < entries.size(); ++i) {
        Device device;
        QString cause;
        if (!readDevice(entries.at(i).toObject(), &device, &cause)) {
            *error =
                tr("device %1 (\"%2\"): %3.").arg(QString::number(i + 1), device.arg.id, cause);
            return false;
        }
        devices->push_back(device);
    }
    return true;
}

} // namespace DEV
