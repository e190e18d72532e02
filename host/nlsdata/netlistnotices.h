#pragma once

#include "hostexport.h"

#include <QDateTime>
#include <QObject>

namespace NlsData {

class Netlist;

/// What there is to say about the netlists that plug-ins read: they show no more than that a
/// netlist cannot be used. On the GUI thread.
class HOST_EXPORT NetlistNotices : public QObject
{
    Q_OBJECT

public:
    static NetlistNotices *get();

    /// To be called with what reading the file at `path` came to: `netlist`, or null and `error`.
    void report(const QString &path, const Netlist *netlist, const QString &error);

signals:
    /// One sentence that names the file and the cause.
    void unreadable(const QString &error);

    /// The netlist is usable, but not all of it can be told apart. Once per file as it is.
    void ambiguous(const QString &text);

private:
    NetlistNotices() = default;

    QString m_warned; // the file that was last warned of
    QDateTime m_warnedTime;
};

} // namespace NlsData
