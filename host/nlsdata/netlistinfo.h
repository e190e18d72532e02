#pragma once

#include "hostexport.h"

#include <QJsonObject>
#include <QString>

namespace NlsData {

/// Reads a netlist file and counts its objects, for comparing the reader with the tool that wrote
/// the file: "design", "ports" by direction code, "nets", "instances", "instancesByCategory",
/// "instancesByPrimitive", "moduleInstances", "unknownCellTypes" with their numbers, "names" of the
/// nets, public and generated, "namesDigest": the SHA-256 of a line per net, sorted, with its
/// public names, sorted and with tabs between them, "sha256" of the file, "readMilliseconds". Empty
/// on failure, with a sentence in `error`. Needs no display.
HOST_EXPORT QJsonObject netlistInfo(const QString &path, QString *error);

} // namespace NlsData
