#pragma once

#include "hostexport.h"

#include <QHash>
#include <QString>

namespace NlsData {

class ReadControl;

/// What a netlist is for, without its objects.
struct NetlistSummary
{
    QString top;                   ///< the top module's name
    QHash<QString, int> cellTypes; ///< cells that are not modules, once per module that has them
};

/// Reads the summary of a netlist file. False on failure, with one sentence in `error`. `control`
/// is borrowed and may be null. Callable from any thread.
HOST_EXPORT bool readNetlistSummary(const QString &path, NetlistSummary *summary, QString *error,
                                    ReadControl *control);

/// Whether the file begins as the netlists of the synthesis tool do. Reads a few kilobytes.
HOST_EXPORT bool looksLikeNetlist(const QString &path);

} // namespace NlsData
