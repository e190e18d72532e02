#include "document/vltview.h"

namespace VLT {

VLTView::VLTView(DEV::DeviceArg, NlsData::Netlist *netlist)
    : m_netlist(netlist)
{
}

void VLTView::setModified(bool modified)
{
    if (m_modified == modified)
        return;
    m_modified = modified;
    emit modificationStatusChanged(modified);
}

NlsData::Netlist *VLTView::getNetlist() const
{
    return m_netlist;
}

void VLTView::handleIEvent(const QUtil::IEvent *) {}

} // namespace VLT
