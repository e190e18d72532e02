#pragma once

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

namespace TE {

/// Notices that a file was replaced, in whatever way: written in place, renamed over, deleted and
/// created again. Reports once the file has stopped changing.
class ResultWatcher : public QObject
{
    Q_OBJECT

public:
    ResultWatcher();

    /// Watches the file at `path`; it need not exist. An empty path watches nothing. The present
    /// state is the known one.
    void setFile(const QString &path);

    /// While paused nothing is reported; what happened meanwhile is known afterwards.
    void setPaused(bool paused);

signals:
    void replaced();

private:
    struct State
    {
        qint64 size = -1;    // -1: no file
        qint64 modified = 0; // ms since 1970
        quint64 fileId = 0;
        bool operator==(const State &o) const
        {
            return size == o.size && modified == o.modified && fileId == o.fileId;
        }
    };

    State present() const;
    void watch();
    void onSomethingChanged();
    void check();

    QFileSystemWatcher m_watcher;
    QTimer m_timer;
    QString m_path;
    State m_known;
    State m_seen; // at the last check
    bool m_paused = false;
};

} // namespace TE
