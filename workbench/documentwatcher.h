#pragma once

#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QTimer>

namespace Workbench {

/// Tells when the content of an open document's file is changed by somebody else. A file that is
/// replaced, or removed and written anew, is followed; a change is told once the file has rested
/// for a moment, so that a half-written file is not offered.
class DocumentWatcher : public QObject
{
    Q_OBJECT

public:
    explicit DocumentWatcher(QObject *parent = nullptr);

    /// Follows `path`, an absolute path, taking what it holds now as known.
    void watch(const QString &path);
    void forget(const QString &path);

    /// Takes what the file holds now as known: the document has just been written or read.
    void accept(const QString &path);

signals:
    void changed(const QString &path);
    void removed(const QString &path);

    /// After changed() or removed(): the file holds again what is known.
    void restored(const QString &path);

private:
    void check();
    void follow(const QString &path);

    QFileSystemWatcher m_watcher;
    QTimer m_rest;
    // Digests of the content; null when there is no file.
    struct Content
    {
        QByteArray known; // what the document was read from or written to
        QByteArray seen;  // at the last look
    };
    QHash<QString, Content> m_contents; // by path
};

} // namespace Workbench
