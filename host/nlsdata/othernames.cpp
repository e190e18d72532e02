#include "host/nlsdata/othernames.h"

#include "host/nlsdata/netlistdata_p.h"
#include "host/nlsdata/netnames.h"
#include "host/nlsdata/readcontrol.h"
#include "host/nlsdata/readnetlist.h"
#include "host/te/worker.h"

namespace NlsData {

OtherNames::OtherNames(const Net *net, QObject *parent)
    : QObject(parent)
    , m_control(std::make_unique<ReadControl>())
{
    const NetlistData &data = NetlistData::of(*net);
    const QString file = data.file;
    const Utils::FileStamp stamp = data.fileStamp;
    const size_t count = data.nets.size();
    if (file.isEmpty())
        return;
    m_worker = std::make_unique<TE::Worker>([this, file, stamp, count](const TE::Worker &) {
        ReadOptions options;
        options.allNames = true;
        options.control = m_control.get();
        m_netlist = readNetlist(file, nullptr, options);
        // The same bytes make the same rows.
        if (m_netlist && (NetlistData::of(*m_netlist).fileStamp != stamp ||
                          NetlistData::of(*m_netlist).nets.size() != count))
            m_netlist.reset();
    });
    connect(m_worker.get(), &TE::Worker::done, this, &OtherNames::take);
}

OtherNames::~OtherNames()
{
    m_control->cancel();
    m_worker.reset();
}

void OtherNames::take()
{
    m_isDone = true;
    if (!m_netlist)
        return;
    m_names = std::make_unique<NetNames>(*m_netlist);
    emit found();
}

QStringList OtherNames::of(const Net *net) const
{
    if (!m_names)
        return {};
    const Net *same = NetlistData::of(*m_netlist).net(NetlistData::row(*net));
    const NetNames::Names names = m_names->names(same);
    QStringList others = names.given + names.fromCells;
    others.removeAll(net->path());
    return others;
}

} // namespace NlsData
