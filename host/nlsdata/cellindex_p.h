#pragma once

#include "rawnetlist_p.h"

#include <unordered_map>

namespace NlsData {

/// Numbers the cell types and port names of a netlist while it is parsed, into the netlist's
/// tables.
class CellIndex
{
public:
    /// A port of a cell type, in the order in which its cells list them. Predicting the next name
    /// from it avoids nearly all searches.
    struct PatternPort
    {
        std::string_view name;
        quint32 number;
    };
    struct Type
    {
        std::string_view name;
        const CellType *library = nullptr; ///< borrowed
        std::vector<quint32> kinds;        ///< the first is the one without parameters
        std::vector<PatternPort> ports;
    };

    /// Both are borrowed and must outlive the index.
    CellIndex(const CellLibrary &library, RawNetlist *netlist)
        : m_library(library)
        , m_netlist(*netlist)
    {
    }

    /// The type of that name; its address does not change.
    Type *type(std::string_view name);

    /// Number of the kind of a cell with these parameters.
    quint32 kind(Type *type, const std::vector<CellParameter> &parameters);

    /// Number of a port name.
    quint32 port(std::string_view name);

private:
    const CellLibrary &m_library;
    RawNetlist &m_netlist;
    std::unordered_map<std::string_view, Type> m_types;
    std::unordered_map<std::string_view, quint32> m_ports;
};

} // namespace NlsData
