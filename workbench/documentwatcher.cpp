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
    const QByteArray now = digest(path);
    m_contents.insert(path, {now, now});
    follow(path);
}

void DocumentWatcher::forget(const QString &path)
{
    m_contents.remove(path);
    m_watcher.removePath(path);
    const QString folder = QFileInfo(path).path();
    for (auto it = m_contents.cbegin(); it != m_contents.cend(); ++it) {
        if (QFileInfo(it.key()).path() == folder)
            return;
    }
    m_watcher.removePath(folder);
}

void DocumentWatcher::accept(const QString &path)
{
    if (m_contents.contains(path))
        watch(path);
}

void DocumentWatcher::check()
{
    const QStringList paths = m_contents.keys();
    for (const QString &path : paths) {
        // A receiver of the signals may have forgotten the path meanwhile.
        if (!m_contents.contains(path))
            continue;
        follow(path);
        const QByteArray now = digest(path);
        Content &content = m_contents[path];
        if (now == content.seen)
            continue;
        content.seen = now;
        if (now == content.known)
            emit restored(path);
        else if (now.isNull())
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
