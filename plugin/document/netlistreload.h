#pragma once

#include <QObject>
#include <QPointer>

#include <memory>

class QMessageBox;

namespace NlsData {
class Netlist;
}

namespace VLT {

/// Reloads the netlist of one view after a synthesis run.
class NetlistReload : public QObject
{
    Q_OBJECT

public:
    /// `view` owns the object and is the parent of its messages.
    explicit NetlistReload(QWidget *view);

    /// Reads the netlist. On failure, tells the user that the view will close, which runs the event
    /// loop; if a netlist can be read in the meantime, the message is withdrawn.
    void run();

signals:
    void succeeded(const std::shared_ptr<NlsData::Netlist> &netlist);

    /// The user has been informed, and the view has to close.
    void failed();

private:
    void tellFailure();

    QWidget *const m_view;
    QPointer<QMessageBox> m_failure; // the message while it is open
    int m_successes = 0;
};

} // namespace VLT
