#pragma once

#include "hostexport.h"

class QString;
class QWidget;

namespace NlsData {

class Netlist;

/// Reads a netlist file. Returns a new netlist that the caller owns, or null; then `error`, when it
/// is given, holds one sentence that names the file and the cause. `reread` tells that the file
/// replaces one that was read before.
HOST_EXPORT Netlist *readNetlistFile(const QString &path, QString *error, bool reread);

/// The same behind a modal progress dialog on `parent` with which the user can cancel; cancelling
/// gives null. It runs the event loop.
HOST_EXPORT Netlist *readNetlistFileWithDialog(QWidget *parent, const QString &path, QString *error,
                                               bool reread);

} // namespace NlsData
