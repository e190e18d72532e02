#pragma once

#include "hostexport.h"

#include <QList>
#include <QMap>
#include <QString>

#include <memory>

namespace NlsData {

class NetlistData;

/// A primitive or module instance of the design. A module with contents has codes 0 and is followed
/// by the instances inside it.
class HOST_EXPORT Instance
{
public:
    /// Hierarchical path, joined by "/", without the design's own name.
    QString path() const;

    /// Category code: 5 block SRAM, 50 flip-flop, 0 unknown; others as in the cell library.
    int category() const;

    /// Code of the exact primitive, for example 116, 122 and 127 for plain output buffers; 0 if the
    /// cell is not in the cell library.
    int primitive() const;

private:
    friend class NetlistData;
    const NetlistData *m_data = nullptr;
    quint32 m_row = 0;
};

/// A physical net, one bit wide.
class HOST_EXPORT Net
{
public:
    /// Hierarchical path at the net's highest level, with its bit: "a/data[3]".
    QString path() const;

    /// The instance that drives the net, through the hierarchy; null for a net driven by a port, by
    /// a constant or by nothing.
    Instance *driver() const;

private:
    friend class NetlistData;
    const NetlistData *m_data = nullptr;
    quint32 m_row = 0;
};

/// A port of the design, one bit wide.
class HOST_EXPORT Port
{
public:
    QString path() const;

    /// Direction code: 0 input, 1 output, 2 bidirectional, 3 unknown.
    int direction() const;

    /// The net at the port; null for a bit tied to a constant.
    Net *net() const;

private:
    friend class NetlistData;
    const NetlistData *m_data = nullptr;
    quint32 m_row = 0;
};

/// The synthesized netlist of a design. It owns its objects, which stay where they are as long as
/// it lives; it never changes, and any thread may ask it.
class HOST_EXPORT Netlist
{
public:
    ~Netlist();
    Netlist(const Netlist &) = delete;
    Netlist &operator=(const Netlist &) = delete;

    /// Name of the design (its top module).
    QString name() const;

    /// In the order of the netlist file, vectors from their least significant bit, a module's
    /// contents right after its instance.
    const QList<Port *> &ports() const;
    const QList<Instance *> &instances() const;

    /// By path, in key order. Built by the first call.
    const QMap<QString, Net *> &netMap() const;
    const QMap<QString, Instance *> &instanceMap() const;

private:
    friend class NetlistData;
    explicit Netlist(std::unique_ptr<NetlistData> data);

    const std::unique_ptr<NetlistData> d;
};

} // namespace NlsData
