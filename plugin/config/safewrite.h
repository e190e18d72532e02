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

/// Replaces the contents of the file at `path` by `bytes`, completely or not at all, or creates the
/// file. Follows symbolic links; keeps permissions, owner and group. If no second file can be
/// created in the folder, or the file has other hard links, it is written in place and its old
/// bytes are restored on failure. Leaves no other file behind.
WriteResult replaceFile(const QString &path, const QByteArray &bytes);

/// Creates the file at `path` with `bytes`. Fails with CannotOpen if the path already exists; if
/// writing fails, no file is left.
WriteResult createFile(const QString &path, const QByteArray &bytes);

} // namespace VLT
