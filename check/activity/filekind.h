#pragma once

#include <QByteArray>
#include <QString>

namespace Check {

enum class FileKind { Vcd, Saif, Other };

/// Tells what a file is from its first block. `other` receives what it is instead of VCD or SAIF,
/// with its article ("a gzip archive").
FileKind fileKind(const QByteArray &block, QString *other);

QString fileKindName(FileKind kind); ///< "vcd", "saif" or empty

} // namespace Check
