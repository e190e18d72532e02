#pragma once

#include "config/configurationfile.h"

class QDomElement;

namespace VLT {

/// Compares the file below `root` with what the format knows. `lines` gets the line of every
/// element that a file has once.
QVector<FileRemark> remarksOn(const QDomElement &root, QHash<QString, int> *lines);

} // namespace VLT
