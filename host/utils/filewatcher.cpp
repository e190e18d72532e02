#include "host/utils/filewatcher.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QSet>

#include <sys/stat.h>

namespace Utils {

namespace {

/// The file system's watch loses a file that is renamed or removed, so its folder is watched, too,
/// and the folder of a link's target; while a folder does not exist, the nearest existing one above
/// it.
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
    m_timer.setInterval(REST_TIME);
    connect(&m_timer, &QTimer::timeout, this, &FileWatcher::check);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &FileWatcher::onEvent);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &FileWatcher::onEvent);
}

void FileWatcher::watch(const QString &path)
{
    const FileStamp now = FileStamp::of(path);
    const QByteArray known = identity(path, now);
    m_files.insert(path, {now, known, known});
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

/// Identifies a state of the file; empty if there is no file.
QByteArray FileWatcher::identity(const QString &path, const FileStamp &stamp) const
{
    if (!stamp.exists())
        return QByteArray();
    QCryptographicHash hash(QCryptographicHash::Sha1);
    QFile file(path);
    if (m_compare == Compare::Content && file.open(QIODevice::ReadOnly) && hash.addData(&file))
        return hash.result();
    QByteArray text;
    for (const quint64 part :
         {quint64(stamp.size), quint64(stamp.modified), stamp.device, stamp.inode})
        text += QByteArray::number(part) + ' ';
    return text;
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
    for (auto it = m_files.begin(); it != m_files.end(); ++it) {
        const FileStamp now = FileStamp::of(it.key());
        // Contents may differ with equal stamps, whose clock has a resolution of milliseconds.
        it->suspect = it->suspect || m_compare == Compare::Content || now != it->seen;
        // While the timer runs, only its check looks at the file, so that the file rests for the
        // whole time.
        if (it->suspect && !m_timer.isActive()) {
            it->seen = now;
            m_timer.start();
        }
    }
}

void FileWatcher::check()
{
    follow();
    bool atRest = true;
    QStringList ready;
    for (auto it = m_files.begin(); it != m_files.end(); ++it) {
        const FileStamp now = FileStamp::of(it.key());
        if (now != it->seen) {
            it->seen = now;
            it->suspect = true;
            atRest = false;
        } else if (it->suspect) {
            ready.append(it.key());
        }
    }
    if (atRest)
        m_timer.stop();
    for (const QString &path : qAsConst(ready))
        report(path);
}

void FileWatcher::report(const QString &path)
{
    const auto it = m_files.find(path);
    if (it == m_files.end() || !it->suspect)
        return; // a receiver has forgotten or accepted it
    it->suspect = false;
    const QByteArray now = identity(path, it->seen);
    if (now == it->reported)
        return;
    it->reported = now;
    if (now == it->known)
        emit restored(path);
    else if (now.isEmpty())
        emit removed(path);
    else
        emit changed(path);
}

} // namespace Utils
