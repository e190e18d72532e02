#pragma once

#include "rawnetlist_p.h"
#include "readnetlist.h"

#include <QString>

#include <unordered_map>
#include <vector>

namespace NlsData {

/// A module prepared for elaborating any number of copies.
struct ModulePlan
{
    /// The name of a bit: a port of the module, a net, or none if there is no such bit.
    struct BitName
    {
        quint32 vector = 0xffffffff; ///< ports first, then nets
        quint32 place = 0;           ///< from the lowest bit
        bool exists() const { return vector != 0xffffffff; }
    };

    RawModule *raw = nullptr;
    std::vector<BitName> bits;                      ///< by bit number
    std::unordered_map<quint32, quint32> portIndex; ///< by port name; empty until needed
    quint64 instances = 0;                          ///< in one copy, contents included
    quint64 nets = 0;                               ///< likewise, at most that many
    int depth = 1;                                  ///< levels of hierarchy, itself included
    bool planned = false;
    bool underWay = false;

    const RawVector &vector(quint32 index) const
    {
        return index < raw->ports.size() ? raw->ports[index] : raw->nets[index - raw->ports.size()];
    }
};

/// Finds the top module and checks every module of the design before elaboration: connections fit,
/// no module contains itself, and the design stays within the limits.
class DesignPlan
{
public:
    /// Throws ReadError.
    DesignPlan(RawNetlist *raw, const ElaborationLimits &limits);

    static constexpr quint32 LEAF = 0xffffffff;

    quint32 top() const { return m_top; }
    const ModulePlan &module(quint32 index) const { return m_modules[index]; }

    /// The port of that name of `module`, or `LEAF`.
    quint32 findPort(quint32 module, quint32 portName);

    /// The module inside a cell of that kind, or `LEAF`.
    quint32 contents(quint32 kind) const { return m_contents[kind]; }

private:
    void indexModules();
    quint32 findTop() const;
    void plan(quint32 index, int level);
    void checkCell(const ModulePlan &plan, size_t cell);
    Direction directionOf(const RawPin &pin, const CellKind &kind);

    RawNetlist &m_raw;
    const ElaborationLimits m_limits;
    std::vector<ModulePlan> m_modules;
    std::unordered_map<std::string_view, quint32> m_byName;
    std::vector<quint32> m_contents;
    quint32 m_top = 0;
};

} // namespace NlsData
