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

/// Notices that another program wrote the netlist. A file that has rested counts once it reads as a
/// whole netlist: tools empty their file first, and may pause for minutes before they fill it. The
/// trial read is done in a thread; it reads all, since what it accepts is what views then take.
class ResultWatcher : public QObject
{
    Q_OBJECT

public:
    static constexpr int Patience = 3000; ///< ms at rest before a file is reported as unreadable

    ResultWatcher();
    ~ResultWatcher() override;

    /// Watches the file at `path`; it need not exist. An empty path watches nothing. The present
    /// state is the known one.
    void setFile(const QString &path);

    /// While paused nothing is reported. What another program wrote before the pause is reported
    /// after it, unless accept() was called; what was written meanwhile is known.
    void setPaused(bool paused);

    /// Takes the present state as known, whoever wrote it.
    void accept();

signals:
    void replaced();

    /// The file has rested for Patience and is no whole netlist; `reason` is one sentence that
    /// names it.
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
