#include "netlistnotices.h"

#include "nlsdata/netlist.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

namespace NlsData {

namespace {

/// Paths that several ports have: an escaped name may read like the bit of a vector.
QStringList sharedPortPaths(const Netlist &netlist)
{
    QSet<QString> seen;
    QStringList shared;
    for (const Port *port : netlist.ports()) {
        const QString path = port->path();
        if (seen.contains(path) && !shared.contains(path))
            shared.append(path);
        seen.insert(path);
    }
    return shared;
}

} // namespace

NetlistNotices *NetlistNotices::get()
{
    static auto *notices = new NetlistNotices; // intentionally leaked, as every service
    return notices;
}

void NetlistNotices::report(const QString &path, const Netlist *netlist, const QString &error)
{
    if (!netlist) {
        emit unreadable(error);
        return;
    }
    const QDateTime time = QFileInfo(path).lastModified();
    if (path == m_warned && time == m_warnedTime)
        return;
    const QStringList shared = sharedPortPaths(*netlist);
    if (shared.isEmpty())
        return;
    m_warned = path;
    m_warnedTime = time;
    emit ambiguous(
        tr("%1: several ports are called %2. A configuration cannot tell them apart; rename the "
           "port with the escaped name.")
            .arg(QDir::toNativeSeparators(path), shared.mid(0, 3).join(QLatin1String(", "))));
}

} // namespace NlsData
