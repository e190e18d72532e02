#pragma once

#include "host/utils/filewatcher.h"

#include <QObject>
#include <QString>
#include <QTimer>

#include <memory>

namespace NlsData {
class ReadControl;
}

namespace TE {

class Worker;

/// Detects that another program wrote the netlist. A file that has stopped changing counts once it
/// can be read as a netlist: tools empty their file first, and may take minutes to fill it. The
/// trial read runs in a thread and is complete, because views then read the same file.
class ResultWatcher : public QObject
{
    Q_OBJECT

public:
    static constexpr int PATIENCE = 3000; ///< ms at rest before a file is reported as unreadable

    ResultWatcher();
    ~ResultWatcher() override;

    /// Watches the file at `path`, which need not exist; an empty path watches nothing. The present
    /// state counts as known.
    void setFile(const QString &path);

    /// While paused, nothing is reported. Changes before the pause are reported after it, unless
    /// accept() was called; changes during the pause count as known.
    void setPaused(bool paused);

    /// Accepts the present state as known.
    void accept();

signals:
    void replaced();

    /// The file has not changed for Patience and is not a complete netlist; `reason` is one
    /// sentence that names it.
    void unreadable(const QString &reason);

private:
    void tryToRead();
    void stopTrial();
    void onRead();

    Utils::FileWatcher m_files{Utils::FileWatcher::Compare::Stamp};
    QString m_path;
    Utils::FileStamp m_known; // as it was last reported or accepted
    Utils::FileStamp m_tried;
    QString m_reason; // why the trial failed; written by the worker
    std::unique_ptr<NlsData::ReadControl> m_control;
    std::unique_ptr<Worker> m_worker;
    QTimer m_patience;
    bool m_paused = false;
    bool m_open = false; // another program's file has not been reported yet
};

} // namespace TE
