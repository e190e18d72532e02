#pragma once

#include "hostexport.h"
#include "nlsdata/netlistreader.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <string_view>

namespace NlsData {

class CellLibrary;
class Netlist;
class ReadControl;

/// Limits of a design: hierarchy multiplies, so a small file can describe more objects than fit
/// into memory.
struct ElaborationLimits
{
    quint64 objects = 50000000; ///< instances and nets together
    int depth = 256;            ///< levels of hierarchy
};

struct ReadOptions
{
    ElaborationLimits limits;
    const CellLibrary *library = nullptr; ///< borrowed; null: CellLibrary::standard()
    ReadControl *control = nullptr;       ///< borrowed; null: nobody watches
    bool allNames = false;                ///< keep what NetNames asks for
    /// Borrowed; receives the SHA-256 of the file's bytes in hexadecimal, computed in a separate
    /// thread while reading. Null: not computed.
    QByteArray *sha256 = nullptr;
};

/// Reads a netlist file; on failure returns null, with one sentence in `error`. Callable from any
/// thread.
HOST_EXPORT std::unique_ptr<Netlist> readNetlist(const QString &path, QString *error,
                                                 const ReadOptions &options = {});

/// The same for the text of such a file; errors call it `name`.
HOST_EXPORT std::unique_ptr<Netlist> readNetlistText(std::string_view text, const QString &name,
                                                     QString *error,
                                                     const ReadOptions &options = {});

} // namespace NlsData
