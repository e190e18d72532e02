#pragma once

#include "config/configurationfile.h"

class QDomElement;

namespace VLT {

/// Checks the elements below `root` against the format. `lines` receives the line of every element
/// that may occur only once.
QVector<FileRemark> remarksOn(const QDomElement &root, QHash<QString, int> *lines);

} // namespace VLT
