#include "host/dev/catalogue.h"

#include <QCoreApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace DEV {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("DEV::Catalogue", text);
}

bool isVolts(const QString &text, double *value)
{
    bool ok = false;
    *value = text.toDouble(&ok);
    return ok && *value >= 0 && *value <= 50;
}

bool readSupply(const QJsonObject &voltage, const QString &name, Supply *supply, QString *error)
{
    const QJsonValue value = voltage[name];
    if (value.isUndefined())
        return true;
    const QJsonObject object = value.toObject();
    *supply = {object[QLatin1String("min")].toString(), object[QLatin1String("max")].toString(),
               object[QLatin1String("default")].toString()};
    double min = 0;
    double max = 0;
    double start = 0;
    if (isVolts(supply->min, &min) && isVolts(supply->max, &max) &&
        isVolts(supply->defaultValue, &start) && min <= start && start <= max)
        return true;
    *error = tr("the supply \"%1\" needs \"min\", \"max\" and \"default\" as texts in volts, "
                "0 to 50, the default between the others")
                 .arg(name);
    return false;
}

bool readTies(const QJsonValue &value, SupplyData *supplies, QString *error)
{
    const QJsonArray ties = value.toArray();
    for (const QJsonValue &tie : ties) {
        const QString text = tie.toString();
        if (text == QLatin1String("vcc-vccx")) {
            supplies->vccVccx = true;
        } else if (text == QLatin1String("vccx-vccldo")) {
            supplies->vccxVccldo = true;
        } else if (text == QLatin1String("vcc-vccldo")) {
            supplies->vccVccldo = true;
        } else {
            *error = tr("\"%1\" is no tie: \"vcc-vccx\", \"vccx-vccldo\" and \"vcc-vccldo\" are")
                         .arg(text);
            return false;
        }
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
    const QJsonObject voltage = object[QLatin1String("voltage")].toObject();
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
