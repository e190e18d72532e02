#pragma once

#include <QObject>
#include <QPointer>

#include <memory>

class QMessageBox;

namespace NlsData {
class Netlist;
}

namespace VLT {

/// Reads the netlist that a finished synthesis has left, for one view.
class NetlistReload : public QObject
{
    Q_OBJECT

public:
    /// `view`, the parent of messages, owns the object.
    explicit NetlistReload(QWidget *view);

    /// Reads the netlist. When that fails, tells the user that the view closes, which runs the
    /// event loop; a netlist that can be read meanwhile takes the message back.
    void run();

signals:
    void succeeded(const std::shared_ptr<NlsData::Netlist> &netlist);

    /// The user has been told; the view has to close.
    void failed();

private:
    void tellFailure();

    QWidget *const m_view;
    QPointer<QMessageBox> m_failure; // the message, while it counts
    int m_successes = 0;
};

} // namespace VLT
