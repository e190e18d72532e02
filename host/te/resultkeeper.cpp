#include "host/te/resultkeeper.h"

#include "host/te/worker.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace TE {

using Utils::FileStamp;

namespace {

constexpr size_t CHUNK = size_t(8) << 20; // bytes between two checks for cancellation

QByteArray encoded(const QString &path)
{
    return QFile::encodeName(path);
}

QByteArray linkText(const QString &path)
{
    char text[4096];
    const ssize_t size = ::readlink(encoded(path).constData(), text, sizeof text);
    return size > 0 ? QByteArray(text, int(size)) : QByteArray();
}

/// The target of the links at `path`, which need not exist.
QString endOfLinks(const QString &path)
{
    QString end = path;
    for (int i = 0; i < 40; ++i) {
        const QString target = QFile::decodeName(linkText(end));
        if (target.isEmpty())
            break;
        end = QDir::cleanPath(QFileInfo(end).dir().absoluteFilePath(target));
    }
    return end;
}

/// Copies up to CHUNK bytes, for file systems between which the kernel does not copy.
ssize_t copyByHand(int from, int to, std::vector<char> *buffer)
{
    buffer->resize(CHUNK);
    const ssize_t count = ::read(from, buffer->data(), CHUNK);
    for (ssize_t done = 0; done < count;) {
        const ssize_t written = ::write(to, buffer->data() + done, size_t(count - done));
        if (written < 0)
            return -1;
        done += written;
    }
    return count;
}

/// Copies `from` from its current position to its end; returns the cause on failure.
template<typename Cancelled>
QString copyContent(int from, int to, const Cancelled &cancelled)
{
    std::vector<char> buffer;
    bool byKernel = true;
    while (!cancelled()) {
        const ssize_t count = byKernel ? ::copy_file_range(from, nullptr, to, nullptr, CHUNK, 0)
                                       : copyByHand(from, to, &buffer);
        if (count == 0)
            return QString();
        if (count < 0 && !byKernel)
            return QString::fromLocal8Bit(std::strerror(errno));
        byKernel = count > 0;
    }
    return ResultKeeper::tr("the run was stopped");
}

std::unique_ptr<QTemporaryFile> makeCopy(const QString &folder)
{
    // Beside the file, so that blocks can be shared and the copy can replace the file.
    for (const QString &place : {folder, QDir::tempPath()}) {
        auto file = std::make_unique<QTemporaryFile>(place + QLatin1String("/.before-run-XXXXXX"));
        if (file->open())
            return file;
    }
    return nullptr;
}

} // namespace

ResultKeeper::ResultKeeper(const QStringList &paths)
{
    for (const QString &path : paths)
        m_kept.push_back(describe(path));
    m_worker = std::make_unique<Worker>([this](const Worker &worker) {
        for (const Kept &kept : m_kept) {
            if (!kept.copy || !m_error.isEmpty())
                continue;
            QFile file(kept.file);
            QString cause;
            if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
                cause = file.errorString();
            else
                cause = copyContent(file.handle(), kept.copy->handle(),
                                    [&worker] { return worker.isCancelled(); });
            if (!cause.isEmpty())
                m_error = tr("Cannot keep a copy of %1: %2.")
                              .arg(QDir::toNativeSeparators(kept.path), cause);
        }
    });
    connect(m_worker.get(), &Worker::done, this, [this] { emit ready(m_error); });
}

ResultKeeper::~ResultKeeper() = default;

void ResultKeeper::cancel()
{
    m_worker->cancel();
}

ResultKeeper::Kept ResultKeeper::describe(const QString &path)
{
    Kept kept;
    kept.path = path;
    kept.link = linkText(path);
    kept.file = endOfLinks(path);
    kept.stamp = FileStamp::of(kept.file);
    struct stat s = {};
    if (!kept.stamp.exists() || ::stat(encoded(kept.file).constData(), &s) != 0 ||
        !S_ISREG(s.st_mode))
        return kept;
    kept.accessed = qint64(s.st_atim.tv_sec) * 1000000000 + s.st_atim.tv_nsec;
    kept.mode = s.st_mode & 07777;
    kept.copy = makeCopy(QFileInfo(kept.file).path());
    if (!kept.copy && m_error.isEmpty())
        m_error = tr("Cannot keep a copy of %1: no temporary file can be created.")
                      .arg(QDir::toNativeSeparators(path));
    return kept;
}

bool ResultKeeper::isUnchanged(const QString &path) const
{
    const auto kept = std::find_if(m_kept.cbegin(), m_kept.cend(),
                                   [&path](const Kept &each) { return each.path == path; });
    return kept != m_kept.cend() && kept->stamp.exists() && FileStamp::of(path) == kept->stamp;
}

QStringList ResultKeeper::restore()
{
    m_worker->end();
    QStringList problems;
    if (!m_error.isEmpty())
        return problems; // the copies are incomplete, and no run was started
    for (Kept &kept : m_kept) {
        QString cause;
        if (!putBack(&kept, &cause))
            problems.append(tr("Cannot restore %1 to its state before the run: %2.")
                                .arg(QDir::toNativeSeparators(kept.path), cause));
    }
    m_kept.clear();
    return problems;
}

bool ResultKeeper::putBack(Kept *kept, QString *cause)
{
    const auto failed = [cause] {
        *cause = QString::fromLocal8Bit(std::strerror(errno));
        return false;
    };
    const QByteArray path = encoded(kept->path);
    const QByteArray target = encoded(kept->file);
    if (linkText(kept->path) != kept->link && !kept->link.isEmpty()) {
        ::unlink(path.constData());
        if (::symlink(kept->link.constData(), path.constData()) != 0)
            return failed();
    }
    struct stat now = {};
    const bool exists = ::stat(target.constData(), &now) == 0;
    if (!kept->stamp.exists())
        return !exists || !S_ISREG(now.st_mode) || ::unlink(target.constData()) == 0 || failed();
    if (!kept->copy || FileStamp::of(kept->file) == kept->stamp)
        return true;

    const int copy = kept->copy->handle();
    const auto seconds = [](qint64 ns) {
        return timespec{time_t(ns / 1000000000), long(ns % 1000000000)};
    };
    const timespec times[] = {seconds(kept->accessed), seconds(kept->stamp.modified)};
    // Replacing the file is fast and atomic. A file with other links or another owner is written in
    // place.
    const bool ours = !exists || (now.st_nlink == 1 && now.st_uid == ::geteuid());
    if (ours && ::fchmod(copy, kept->mode) == 0 && ::futimens(copy, times) == 0) {
        // Unlike QFile::rename(), it replaces the target atomically.
        const QByteArray name = encoded(kept->copy->fileName());
        if (::rename(name.constData(), target.constData()) == 0) {
            kept->copy->setAutoRemove(false);
            return true;
        }
    }
    QFile file(kept->file);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        *cause = file.errorString();
        return false;
    }
    if (::lseek(copy, 0, SEEK_SET) != 0)
        return failed();
    *cause = copyContent(copy, file.handle(), [] { return false; });
    ::fchmod(file.handle(), kept->mode);
    ::futimens(file.handle(), times);
    return cause->isEmpty();
}

} // namespace TE
