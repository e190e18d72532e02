#include "host/te/resultwatcher.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

namespace TE {

namespace {

constexpr int STABLE_AFTER = 300; // ms without a change

} // namespace

ResultWatcher::ResultWatcher()
{
    m_timer.setInterval(STABLE_AFTER);
    connect(&m_timer, &QTimer::timeout, this, &ResultWatcher::check);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &ResultWatcher::onSomethingChanged);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this,
            &ResultWatcher::onSomethingChanged);
}

void ResultWatcher::setFile(const QString &path)
{
    m_path = path;
    m_timer.stop();
    m_known = m_seen = present();
    watch();
}

void ResultWatcher::setPaused(bool paused)
{
    m_paused = paused;
    m_timer.stop();
    m_known = m_seen = present();
    watch();
}

ResultWatcher::State ResultWatcher::present() const
{
    struct stat s = {};
    if (m_path.isEmpty() || ::stat(QFile::encodeName(m_path).constData(), &s) != 0)
        return State();
    const qint64 modified = qint64(s.st_mtim.tv_sec) * 1000 + s.st_mtim.tv_nsec / 1000000;
    return {qint64(s.st_size), modified, quint64(s.st_ino)};
}

/// The watcher loses a file that is renamed or deleted, so the folder is watched too; while that
/// does not exist, the nearest one above it.
void ResultWatcher::watch()
{
    QStringList wanted;
    if (!m_path.isEmpty()) {
        QString folder = QFileInfo(m_path).absolutePath();
        while (!QFileInfo::exists(folder) && folder != QFileInfo(folder).absolutePath())
            folder = QFileInfo(folder).absolutePath();
        wanted.append(folder);
        if (QFileInfo::exists(m_path))
            wanted.append(m_path);
    }
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    for (const QString &path : watched) {
        if (!wanted.contains(path))
            m_watcher.removePath(path);
    }
    for (const QString &path : qAsConst(wanted)) {
        if (!watched.contains(path))
            m_watcher.addPath(path);
    }
}

void ResultWatcher::onSomethingChanged()
{
    watch();
    if (m_paused || m_timer.isActive() || present() == m_known)
        return;
    m_seen = present();
    m_timer.start();
}

void ResultWatcher::check()
{
    watch();
    const State now = present();
    if (!(now == m_seen)) {
        m_seen = now;
        return;
    }
    m_timer.stop();
    const bool changed = !(now == m_known);
    m_known = now;
    if (changed && now.size >= 0)
        emit replaced();
}

} // namespace TE
