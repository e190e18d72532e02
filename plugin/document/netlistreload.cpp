#include "document/netlistreload.h"

#include "widgets/plainmessage.h"
#include "widgets/waitcursor.h"

#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"
#include "te/constants.h"
#include "te/flowmanager.h"
#include "te/taskengine.h"

#include <utility>

namespace VLT {

NetlistReload::NetlistReload(QWidget *view)
    : QObject(view)
    , m_view(view)
{
}

void NetlistReload::run()
{
    const QString path =
        TE::TaskEngine::instance()->flowManager()->resultFile(QString::fromLatin1(TE::RES_NETLIST));
    std::shared_ptr<NlsData::Netlist> netlist;
    {
        const WaitCursor wait;
        netlist.reset(NlsData::readNetlistFile(path, nullptr, true));
    }
    if (netlist) {
        ++m_successes;
        if (QMessageBox *box = std::exchange(m_failure, nullptr))
            box->reject();
        emit succeeded(netlist);
    } else if (!m_failure) { // one failure message is enough
        tellFailure();
    }
}

void NetlistReload::tellFailure()
{
    QMessageBox *box =
        newMessage(QMessageBox::Critical, m_view, QStringLiteral("Error"),
                   QStringLiteral("Netlist file does not exist or some errors are in the netlist "
                                  "file. VLR view will be closed"));
    m_failure = box;
    const int successes = m_successes;
    const QPointer<NetlistReload> self(this);
    runMessage(box);
    if (self && m_successes == successes)
        emit failed();
}

} // namespace VLT
