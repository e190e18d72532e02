#pragma once

#include "hostexport.h"

class QString;
class QWidget;

namespace NlsData {

class Netlist;

/// Reads a netlist file. Returns a new netlist that the caller owns, or null; then `error`, unless
/// it is null, receives one sentence that names the file and the cause. `reread` says that the file
/// replaces one that was read before.
HOST_EXPORT Netlist *readNetlistFile(const QString &path, QString *error, bool reread);

/// The same with a modal progress dialog on `parent`, in which the user can cancel; null if
/// canceled. Runs the event loop.
HOST_EXPORT Netlist *readNetlistFileWithDialog(QWidget *parent, const QString &path, QString *error,
                                               bool reread);

} // namespace NlsData
