#include "workbench/documentwatcher.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

namespace Workbench {

namespace {

constexpr int RestMilliseconds = 250;

QByteArray digest(const QString &path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Sha1);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return QByteArray();
    return hash.result();
}

} // namespace

DocumentWatcher::DocumentWatcher(QObject *parent)
    : QObject(parent)
{
    m_rest.setSingleShot(true);
    m_rest.setInterval(RestMilliseconds);
    const auto startRest = [this] { m_rest.start(); };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, startRest);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, startRest);
    connect(&m_rest, &QTimer::timeout, this, &DocumentWatcher::check);
}

void DocumentWatcher::watch(const QString &path)
{
    m_known.insert(path, digest(path));
    follow(path);
}

void DocumentWatcher::forget(const QString &path)
{
    m_known.remove(path);
    m_watcher.removePath(path);
    const QString folder = QFileInfo(path).path();
    for (auto it = m_known.cbegin(); it != m_known.cend(); ++it) {
        if (QFileInfo(it.key()).path() == folder)
            return;
    }
    m_watcher.removePath(folder);
}

void DocumentWatcher::accept(const QString &path)
{
    if (m_known.contains(path))
        watch(path);
}

void DocumentWatcher::check()
{
    const QStringList paths = m_known.keys();
    for (const QString &path : paths) {
        // A receiver of the signals may have forgotten the path meanwhile.
        if (!m_known.contains(path))
            continue;
        follow(path);
        const QByteArray now = digest(path);
        if (now == m_known.value(path))
            continue;
        m_known.insert(path, now);
        if (now.isNull())
            emit removed(path);
        else
            emit changed(path);
    }
}

// A file that was replaced has left the watcher; its folder tells when the new one is there.
void DocumentWatcher::follow(const QString &path)
{
    const QString folder = QFileInfo(path).path();
    if (!m_watcher.directories().contains(folder))
        m_watcher.addPath(folder);
    if (!m_watcher.files().contains(path) && QFileInfo::exists(path))
        m_watcher.addPath(path);
}

} // namespace Workbench
