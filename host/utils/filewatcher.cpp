#include "host/utils/filewatcher.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <sys/stat.h>

namespace Utils {

namespace {

/// The file system's watch loses a file that is renamed or removed, so its folder is watched too,
/// and the folder of the file that a link names; while a folder does not exist, the nearest one
/// above it.
QSet<QString> pathsToWatch(const QString &file)
{
    QSet<QString> result;
    const QFileInfo info(file);
    QString folder = info.absolutePath();
    while (!QFileInfo::exists(folder) && folder != QFileInfo(folder).absolutePath())
        folder = QFileInfo(folder).absolutePath();
    result.insert(folder);
    if (info.exists()) {
        result.insert(file);
        if (info.isSymLink())
            result.insert(QFileInfo(info.canonicalFilePath()).path());
    }
    return result;
}

} // namespace

FileStamp FileStamp::of(const QString &path)
{
    struct stat s = {};
    if (path.isEmpty() || ::stat(QFile::encodeName(path).constData(), &s) != 0)
        return FileStamp();
    return {qint64(s.st_size), qint64(s.st_mtim.tv_sec) * 1000000000 + s.st_mtim.tv_nsec,
            quint64(s.st_dev), quint64(s.st_ino)};
}

bool FileStamp::operator==(const FileStamp &other) const
{
    return size == other.size && modified == other.modified && device == other.device &&
           inode == other.inode;
}

FileWatcher::FileWatcher(Compare compare, QObject *parent)
    : QObject(parent)
    , m_compare(compare)
{
    m_timer.setInterval(RestTime);
    connect(&m_timer, &QTimer::timeout, this, &FileWatcher::check);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &FileWatcher::onEvent);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &FileWatcher::onEvent);
}

void FileWatcher::watch(const QString &path)
{
    const FileStamp now = FileStamp::of(path);
    m_files.insert(path, {now, now, digest(path)});
    follow();
}

void FileWatcher::forget(const QString &path)
{
    m_files.remove(path);
    follow();
}

void FileWatcher::accept(const QString &path)
{
    if (m_files.contains(path))
        watch(path);
}

/// Null where there is no file, or contents are not compared.
QByteArray FileWatcher::digest(const QString &path) const
{
    if (m_compare == Compare::Stamp)
        return QByteArray();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return QByteArray();
    QCryptographicHash hash(QCryptographicHash::Sha1);
    hash.addData(&file);
    return hash.result();
}

void FileWatcher::follow()
{
    QSet<QString> wanted;
    for (auto it = m_files.cbegin(); it != m_files.cend(); ++it)
        wanted += pathsToWatch(it.key());
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    for (const QString &path : watched) {
        if (!wanted.remove(path))
            m_watcher.removePath(path);
    }
    for (const QString &path : qAsConst(wanted))
        m_watcher.addPath(path);
}

void FileWatcher::onEvent()
{
    follow();
    for (auto it = m_files.begin(); it != m_files.end() && !m_timer.isActive(); ++it) {
        it->seen = FileStamp::of(it.key());
        if (it->seen != it->known)
            m_timer.start();
    }
}

void FileWatcher::check()
{
    follow();
    bool atRest = true;
    QStringList ready;
    for (auto it = m_files.begin(); it != m_files.end(); ++it) {
        const FileStamp now = FileStamp::of(it.key());
        if (now != it->seen)
            atRest = false;
        else if (now != it->known)
            ready.append(it.key());
        it->seen = now;
    }
    if (atRest)
        m_timer.stop();
    for (const QString &path : qAsConst(ready))
        report(path);
}

void FileWatcher::report(const QString &path)
{
    const auto it = m_files.find(path);
    if (it == m_files.end() || it->seen == it->known)
        return; // a receiver has forgotten or accepted it meanwhile
    const bool existed = it->known.exists();
    it->known = it->seen;
    if (!it->known.exists()) {
        it->content.clear();
        emit removed(path);
        return;
    }
    const QByteArray content = digest(path);
    const bool same = m_compare == Compare::Content && existed && content == it->content;
    it->content = content;
    if (!same)
        emit changed(path);
}

} // namespace Utils
