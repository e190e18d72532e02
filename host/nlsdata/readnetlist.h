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

/// What a design may grow to: hierarchy multiplies, and a small file can stand for more objects
/// than any memory holds.
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
    /// Borrowed; receives the SHA-256 of the bytes that were read, in hexadecimal, computed in a
    /// thread of its own while they are read. Null: not wanted.
    QByteArray *sha256 = nullptr;
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
