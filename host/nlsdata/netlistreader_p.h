#pragma once

#include "designplan_p.h"
#include "hostexport.h"
#include "nlsdata/netlistreader.h"

#include <memory>

namespace NlsData {

class Netlist;
class ReadControl;

struct ReadOptions
{
    ElaborationLimits limits;
    const CellLibrary *library = nullptr; ///< borrowed; null: the embedded one
    ReadControl *control = nullptr;       ///< borrowed; null: nobody watches
};

/// Reads a netlist file; null with a sentence in `error` (when given) on failure. Callable from any
/// thread.
HOST_EXPORT std::unique_ptr<Netlist> readNetlist(const QString &path, QString *error,
                                                 const ReadOptions &options = {});

/// The same for the text of such a file; `name` stands for it in the error.
HOST_EXPORT std::unique_ptr<Netlist> readNetlistText(std::string_view text, const QString &name,
                                                     QString *error,
                                                     const ReadOptions &options = {});

} // namespace NlsData
