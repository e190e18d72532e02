#pragma once

#include "host/utils/filewatcher.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTemporaryFile>

#include <memory>
#include <vector>

namespace TE {

class Worker;

/// Copies of the result files made before a run, to restore them if the run fails.
///
/// Copies are necessary: tools write their result in place, which would change a hard link, too,
/// and tools that compare times would rebuild a file renamed away. The copy is made in a thread,
/// shares blocks if the file system can, and is an unnamed file if possible.
class ResultKeeper : public QObject
{
    Q_OBJECT

public:
    /// Starts copying the existing files at `paths`.
    explicit ResultKeeper(const QStringList &paths);
    ~ResultKeeper() override;

    /// Cancels copying; ready() follows.
    void cancel();

    /// Whether the file at `path` is the one from before the run and has not been written.
    bool isUnchanged(const QString &path) const;

    /// Restores changed files, through links and with their times, and removes new ones. Returns
    /// one sentence per file that could not be restored.
    QStringList restore();

signals:
    /// Copying has ended; on failure `error` is one sentence that names the file.
    void ready(const QString &error);

private:
    struct Kept
    {
        QString path;
        QByteArray link; // target of the link at `path`; empty: not a link
        QString file;    // where the content is: `path`, or the end of its links
        Utils::FileStamp stamp;
        qint64 accessed = 0; // ns since 1970
        unsigned mode = 0;
        std::unique_ptr<QTemporaryFile> copy; // null: no file
    };

    Kept describe(const QString &path);
    bool putBack(Kept *kept, QString *cause);

    std::vector<Kept> m_kept;
    QString m_error;
    std::unique_ptr<Worker> m_worker; // last: its thread uses the others
};

} // namespace TE
