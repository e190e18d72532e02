#pragma once

#include "hostexport.h"

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QString>
#include <QTimer>

namespace Utils {

/// The file system's record of a file. Equal stamps mean the same file with the same content.
struct HOST_EXPORT FileStamp
{
    qint64 size = -1;    ///< bytes; -1: there is no file
    qint64 modified = 0; ///< ns since 1970
    quint64 device = 0;
    quint64 inode = 0;

    /// Links are followed.
    static FileStamp of(const QString &path);
    bool exists() const { return size >= 0; }
    bool operator==(const FileStamp &other) const;
    bool operator!=(const FileStamp &other) const { return !(*this == other); }
};

/// Watches files that other programs write in place, replace by renaming, or remove and create
/// again with their folder. A change is reported once the file has not changed for REST_TIME.
class HOST_EXPORT FileWatcher : public QObject
{
    Q_OBJECT

public:
    enum class Compare {
        Stamp,   ///< every writing is a change: for files of any size
        Content, ///< only different bytes are a change: reads the file, for documents
    };
    static constexpr int REST_TIME = 300; ///< ms

    explicit FileWatcher(Compare compare, QObject *parent = nullptr);

    /// Watches the file at the absolute path `path`, which need not exist; its present state counts
    /// as known.
    void watch(const QString &path);
    void forget(const QString &path);

    /// Accepts the present state of a watched file as known: its owner has just read or written it.
    void accept(const QString &path);

signals:
    void changed(const QString &path);
    void removed(const QString &path);

    /// After changed() or removed(): the file is in its known state again.
    void restored(const QString &path);

private:
    struct State
    {
        FileStamp seen;       // at the last look
        QByteArray known;     // identity() when it was watched or accepted
        QByteArray reported;  // identity() as of the last signal
        bool suspect = false; // something happened to it since
    };

    QByteArray identity(const QString &path, const FileStamp &stamp) const;
    void follow();
    void onEvent();
    void check();
    void report(const QString &path);

    const Compare m_compare;
    QFileSystemWatcher m_watcher;
    QTimer m_timer; // runs while a file may not be at rest
    QHash<QString, State> m_files;
};

} // namespace Utils
