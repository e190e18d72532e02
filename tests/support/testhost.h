#pragma once

#include "dev/devicearg.h"

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>
#include <QVariantMap>

namespace Core {
class ViewArea;
}

/// The real embedded host around a project in a temporary folder, for the life of the object:
///
///     TestHost host;
///     VLTViewManager::openView(host.device(), host.write("a.vlr", bytes));
///     host.finishSynthesis();
///
/// The project has a device with all three supplies and a small netlist. Settings and user data
/// stay inside the folder. The flow does not watch the netlist file. The destructor closes the
/// views that are left, without asking.
class TestHost
{
public:
    explicit TestHost(const QString &deviceId = QStringLiteral("QF2-10-BG256"));
    ~TestHost();
    TestHost(const TestHost &) = delete;
    TestHost &operator=(const TestHost &) = delete;

    /// Absolute path of the file `name` in the project folder.
    QString path(const QString &name) const;

    /// Writes a file into the project folder, whose missing folders are made; gives its path.
    QString write(const QString &name, const QByteArray &bytes) const;
    QByteArray read(const QString &name) const;

    /// Writes the flow's netlist result. No event is raised: finishSynthesis() does.
    void useNetlist(const QByteArray &yosysJson) const;
    QString netlistPath() const;

    /// What the netlist result holds at the start: the module "top" with the ports clk, d[1:0],
    /// q[1:0] and io, the flip-flops q_reg0 and q_reg1, the block SRAM store, and the module
    /// instance core with the flip-flop core/state_reg.
    static QByteArray defaultNetlist();

    /// The project's device; empty texts when the catalogue does not know it.
    DEV::DeviceArg device() const;

    /// Chooses the project's device and raises "TE.Device.Change".
    void setDevice(const QString &id) const;

    /// Delivers an event.
    void raise(const QString &type, const QVariantMap &values = QVariantMap()) const;

    /// Delivers what the flow raises when a synthesis run has ended successfully.
    void finishSynthesis() const;

    Core::ViewArea *viewManager() const;

    /// Destroys all open views, modified or not, and lets deferred deletions happen.
    void closeAll() const;

private:
    QTemporaryDir m_folder;
};
