#pragma once

#include <QByteArray>
#include <QString>

namespace VLT {

/// How writing a file ended.
struct WriteResult
{
    enum Outcome {
        Written,      ///< the file holds the new bytes, all of them
        CannotOpen,   ///< it cannot be opened for writing; nothing was touched
        CannotWrite,  ///< writing failed; the file is as it was
        CannotRestore ///< writing failed, and so did putting the old bytes back
    };

    Outcome outcome = Written;
    QString cause; ///< the system's reason; empty when written

    bool isWritten() const { return outcome == Written; }
};

/// Replaces the contents of the file at `path` by `bytes`, whole or not at all, or creates the
/// file. Symbolic links are followed; permissions, owner and group stay. Where this cannot be done
/// with a second file in the same folder, and where the file has other hard links, the file itself
/// is written, and gets its old bytes back when that fails. No other file is left behind.
WriteResult replaceFile(const QString &path, const QByteArray &bytes);

/// Creates the file at `path` with `bytes`. It fails, with CannotOpen, when something is already
/// there; when writing fails, no file is left.
WriteResult createFile(const QString &path, const QByteArray &bytes);

} // namespace VLT
