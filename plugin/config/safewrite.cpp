#include "config/safewrite.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <optional>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace VLT {

namespace {

constexpr int MAX_LINKS = 40;

/// The file to write: the target of the symbolic links at `path`, which need not exist.
QString targetOf(const QString &path)
{
    QFileInfo info(path);
    if (info.exists())
        return info.canonicalFilePath();
    for (int links = 0; info.isSymLink() && links < MAX_LINKS; ++links)
        info.setFile(info.symLinkTarget());
    return info.absoluteFilePath();
}

/// Writes `bytes` at the file's position and flushes them to the disk: only then may a full disk or
/// a quota be reported.
bool writeThrough(QFileDevice *file, const char *bytes, qint64 size, QString *cause)
{
    if (file->write(bytes, size) != size || !file->flush()) {
        *cause = file->errorString();
        return false;
    }
#ifdef Q_OS_UNIX
    // Devices and pipes cannot be synchronized; that is not an error.
    if (::fsync(file->handle()) != 0 && errno != EINVAL && errno != EROFS) {
        *cause = qt_error_string(errno);
        return false;
    }
#endif
    return true;
}

bool writeThrough(QFileDevice *file, const QByteArray &bytes, QString *cause)
{
    return writeThrough(file, bytes.constData(), bytes.size(), cause);
}

/// Whether the file at `target` has to keep its identity: only regular files can be replaced, and
/// other hard links would keep the old contents.
bool isWrittenInPlace(const QString &target)
{
#ifdef Q_OS_UNIX
    struct stat status = {};
    return ::stat(QFile::encodeName(target).constData(), &status) == 0 &&
           (!S_ISREG(status.st_mode) || status.st_nlink > 1);
#else
    return false;
#endif
}

/// Gives the open `file` the owner and group of the file at `target`, which it is to replace.
bool takeOwner(QFileDevice *file, const QString &target)
{
#ifdef Q_OS_UNIX
    struct stat wanted = {};
    struct stat actual = {};
    if (::stat(QFile::encodeName(target).constData(), &wanted) != 0)
        return true;
    if (::fstat(file->handle(), &actual) != 0)
        return false;
    if (wanted.st_uid == actual.st_uid && wanted.st_gid == actual.st_gid)
        return true;
    // Changing the owner may clear permissions.
    return ::fchown(file->handle(), wanted.st_uid, wanted.st_gid) == 0 &&
           ::fchmod(file->handle(), wanted.st_mode & 07777) == 0;
#else
    Q_UNUSED(file);
    Q_UNUSED(target);
    return true;
#endif
}

/// Writes a second file and replaces the first with it; nothing if that is not possible.
std::optional<WriteResult> writeBeside(const QString &target, const QByteArray &bytes)
{
    QSaveFile file(target);
    if (!file.open(QIODevice::WriteOnly) || !takeOwner(&file, target))
        return std::nullopt;
    QString cause;
    if (!writeThrough(&file, bytes, &cause))
        return WriteResult{WriteResult::CannotWrite, cause};
    // A mount point cannot be replaced even if a second file can be created beside it.
    if (!file.commit())
        return std::nullopt;
    return WriteResult();
}

/// Replaces the `oldSize` bytes of `file` by `bytes`. What lies beyond the old end is written
/// first: if the space runs out, the old bytes are still there.
bool overwrite(QFile *file, qint64 oldSize, const QByteArray &bytes, QString *cause)
{
    const qint64 size = bytes.size();
    const qint64 head = qMin(oldSize, size);
    if (head < size &&
        !(file->seek(oldSize) && writeThrough(file, bytes.constData() + head, size - head, cause)))
        return false;
    if (!file->seek(0) || !writeThrough(file, bytes.constData(), head, cause))
        return false;
    if (size < oldSize && !file->resize(size)) {
        *cause = file->errorString();
        return false;
    }
    return true;
}

WriteResult writeInPlace(const QString &target, const QByteArray &bytes)
{
    QFile file(target);
    QString cause;
    if (!QFileInfo(target).isFile()) {
        if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            return {WriteResult::CannotOpen, file.errorString()};
        const bool written = writeThrough(&file, bytes, &cause);
        return {written ? WriteResult::Written : WriteResult::CannotWrite, cause};
    }
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return {WriteResult::CannotOpen, file.errorString()};
    const QByteArray old = file.readAll();
    if (file.error() != QFileDevice::NoError || old.size() != file.size())
        return {WriteResult::CannotWrite, file.errorString()};
    if (overwrite(&file, old.size(), bytes, &cause))
        return {};
    QString ignored;
    const bool restored =
        file.resize(old.size()) && file.seek(0) && writeThrough(&file, old, &ignored);
    return {restored ? WriteResult::CannotWrite : WriteResult::CannotRestore, cause};
}

} // namespace

WriteResult replaceFile(const QString &path, const QByteArray &bytes)
{
    const QString target = targetOf(path);
    if (!isWrittenInPlace(target)) {
        if (const std::optional<WriteResult> result = writeBeside(target, bytes))
            return *result;
        if (!QFileInfo::exists(target))
            return createFile(target, bytes);
    }
    return writeInPlace(target, bytes);
}

WriteResult createFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return {WriteResult::CannotOpen, file.errorString()};
    QString cause;
    if (writeThrough(&file, bytes, &cause))
        return {};
    // Closed first, because removing an open file fails if closing it does.
    file.close();
    return {QFile::remove(path) ? WriteResult::CannotWrite : WriteResult::CannotRestore, cause};
}

} // namespace VLT
