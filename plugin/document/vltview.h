#pragma once

#include "core/iview.h"
#include "dev/devicearg.h"
#include "qutil/ieventhandler.h"

#include <QString>

namespace NlsData {
class Netlist;
}

namespace VLT {

/// The open document.
class VLTView : public Core::IView, public QUtil::IEventHandler
{
    Q_OBJECT

public:
    /// Takes ownership of `netlist`.
    VLTView(DEV::DeviceArg device, NlsData::Netlist *netlist);

    QString file() const { return m_file; }
    bool isModified() const { return m_modified; }
    void setModified(bool modified);

    /// The current netlist; ask for it each time, since a synthesis run replaces it.
    NlsData::Netlist *getNetlist() const;

    void handleIEvent(const QUtil::IEvent *event) override;

signals:
    void modificationStatusChanged(bool b);

private:
    bool m_modified = false;
    QString m_file;
    NlsData::Netlist *m_netlist;
};

} // namespace VLT
