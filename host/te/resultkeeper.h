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

/// Copies of result files from before a run, so that a run that fails leaves them as they were.
///
/// Only a copy helps: tools write their result in place, which a hard link would follow, and a file
/// renamed away would be made again by tools that compare times. The copy is made in a thread, by
/// the file system itself where it can share blocks, and has no name where that is possible.
class ResultKeeper : public QObject
{
    Q_OBJECT

public:
    /// Starts to copy those of the files at `paths` that exist.
    explicit ResultKeeper(const QStringList &paths);
    ~ResultKeeper() override;

    /// Ends the copying; ready() follows.
    void cancel();

    /// The file at `path` is the one from before the run, and nothing was written to it.
    bool isUnchanged(const QString &path) const;

    /// Puts back what was changed, through links and with its times; files that were not there are
    /// removed again. Returns one sentence per file that could not be restored.
    QStringList restore();

signals:
    /// All copies are made; otherwise `error` is one sentence that names the file.
    void ready(const QString &error);

private:
    struct Kept
    {
        QString path;
        QByteArray link; // what the link at `path` says; empty: it was no link
        QString file;    // where the content is: `path`, or the end of its links
        Utils::FileStamp stamp;
        qint64 accessed = 0; // ns since 1970
        unsigned mode = 0;
        std::unique_ptr<QTemporaryFile> copy; // null: there was no file
    };

    Kept describe(const QString &path);
    bool putBack(Kept *kept, QString *cause);

    std::vector<Kept> m_kept;
    QString m_error;
    std::unique_ptr<Worker> m_worker; // last: its thread uses the others
};

} // namespace TE
