#pragma once

#include "hostexport.h"

#include <QList>
#include <QObject>
#include <QStringList>

#include <memory>

namespace TE {
class Worker;
}

namespace NlsData {

class Net;
class NetNames;
class Netlist;
class ReadControl;

/// The other names that nets have through the hierarchy, for a netlist that was read without them:
/// its file is read again in a thread. When the file is another one by now, there are none.
class HOST_EXPORT OtherNames : public QObject
{
    Q_OBJECT

public:
    /// For nets of the netlist of `net`, which must outlive this object.
    explicit OtherNames(const Net *net, QObject *parent = nullptr);
    ~OtherNames() override;

    bool isThere() const { return m_names != nullptr; }

    /// Whether there will be no others.
    bool isDone() const { return m_isDone; }

    /// The names of the design for the net, without its path, sorted; none as long as they are not
    /// there.
    QStringList of(const Net *net) const;

signals:
    void found();

private:
    void take();

    std::unique_ptr<Netlist> m_netlist; // of the thread until it is done
    std::unique_ptr<NetNames> m_names;
    bool m_isDone = false;
    const std::unique_ptr<ReadControl> m_control;
    std::unique_ptr<TE::Worker> m_worker;
};

} // namespace NlsData
