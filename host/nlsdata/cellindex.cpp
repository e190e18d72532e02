#include "cellindex_p.h"

#include "readcontrol.h"

namespace NlsData {

CellIndex::Type *CellIndex::type(std::string_view name)
{
    const auto [it, added] = m_types.try_emplace(name);
    Type &type = it->second;
    if (added) {
        type.name = name;
        type.library = m_library.find(name);
        type.kinds.push_back(quint32(m_netlist.kinds.size()));
        m_netlist.kinds.push_back(
            {name, type.library, type.library ? type.library->codes({}) : CellCodes()});
    }
    return &type;
}

quint32 CellIndex::kind(Type *type, const std::vector<CellParameter> &parameters)
{
    if (parameters.empty() || !type->library)
        return type->kinds.front();
    const CellCodes codes = type->library->codes(parameters);
    for (const quint32 kind : type->kinds) {
        const CellCodes &known = m_netlist.kinds[kind].codes;
        if (known.category == codes.category && known.primitive == codes.primitive)
            return kind;
    }
    type->kinds.push_back(quint32(m_netlist.kinds.size()));
    m_netlist.kinds.push_back({type->name, type->library, codes});
    return type->kinds.back();
}

quint32 CellIndex::port(std::string_view name)
{
    const auto [it, added] = m_ports.try_emplace(name, quint32(m_ports.size()));
    if (added) {
        if (it->second >= 1u << 30)
            throw ReadError{QStringLiteral("too many port names")};
        m_netlist.portNames.push_back(name);
    }
    return it->second;
}

} // namespace NlsData
