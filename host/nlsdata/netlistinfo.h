#pragma once

#include "hostexport.h"

#include <QJsonObject>
#include <QString>

namespace NlsData {

/// Reads a netlist file and counts what is in it, for people who compare the reader with the tool
/// that wrote the file: "design", "ports" by direction code, "nets", "instances",
/// "instancesByCategory", "instancesByPrimitive", "moduleInstances", "unknownCellTypes" with their
/// numbers, "readMilliseconds". Empty on failure, with a sentence in `error`. Needs no display.
HOST_EXPORT QJsonObject netlistInfo(const QString &path, QString *error);

} // namespace NlsData
