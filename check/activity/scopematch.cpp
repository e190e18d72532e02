#include "check/activity/scopematch.h"

namespace Check {

namespace {

constexpr quint32 NONE = DesignTree::NONE;

/// Numbers of `count` things in the order of what they are in; `firsts` has where each begins.
template<typename Parent>
void group(quint32 count, quint32 groups, const Parent &parent, std::vector<quint32> *firsts,
           std::vector<quint32> *all)
{
    firsts->assign(groups + 1, 0);
    quint32 grouped = 0;
    for (quint32 i = 0; i < count; ++i) {
        if (parent(i) != NONE) {
            ++(*firsts)[parent(i) + 1];
            ++grouped;
        }
    }
    for (quint32 i = 0; i < groups; ++i)
        (*firsts)[i + 1] += (*firsts)[i];
    all->resize(grouped);
    std::vector<quint32> next(firsts->begin(), firsts->end() - 1);
    for (quint32 i = 0; i < count; ++i) {
        if (parent(i) != NONE)
            (*all)[next[parent(i)]++] = i;
    }
}

/// The number in the design that the variable's bit has, or nothing to compare.
bool placeIn(const DesignTree::Vector &vector, qint64 number, quint32 *place)
{
    const qint64 up = number - vector.offset;
    if (up < 0 || up >= vector.count)
        return false;
    *place = vector.isUpwards ? vector.count - 1 - quint32(up) : quint32(up);
    return true;
}

} // namespace

ScopeIndex::ScopeIndex(const Declarations &declarations)
{
    const auto &scopes = declarations.scopes();
    const auto &variables = declarations.variables();
    const auto count = quint32(scopes.size());
    group(
        count, count, [&](quint32 i) { return scopes[i].parent; }, &m_firstScopes, &m_scopes);
    group(
        quint32(variables.size()), count, [&](quint32 i) { return variables[i].scope; },
        &m_firstVariables, &m_variables);
}

bool ScopeMatch::hasBit(const Declarations::Variable &variable, quint32 place,
                        const DesignTree::Vector &vector, quint32 *net) const
{
    quint32 found = 0;
    if (!vector.hasNumbers) {
        // A vector of one bit may be declared with its number or without.
        if (variable.width != 1 || vector.count != 1 || (variable.hasRange && variable.right != 0))
            return false;
    } else if (variable.hasRange) {
        if (!placeIn(vector, Declarations::bitNumber(variable, place), &found))
            return false;
    } else if (variable.width == vector.count) {
        found = place;
    } else if (variable.width == 1 || !placeIn(vector, place, &found)) {
        return false;
    }
    *net = m_design.net(vector, found);
    return true;
}

/// Whether the variable and the name are spelled alike.
bool ScopeMatch::isLiteral(const Declarations::Variable &variable,
                           const DesignTree::Vector &vector) const
{
    const std::string_view text = m_declarations.name(variable);
    return vector.name.substr(0, text.size()) == text &&
           (vector.name.size() == text.size() || vector.name[text.size()] == '[');
}

/// False when the design has no such bit; `net` is NONE for one that is constant or ambiguous.
bool ScopeMatch::matchBit(const Declarations::Variable &variable, quint32 place, quint32 node,
                          quint32 *net) const
{
    bool isFound = false;
    bool isAmbiguous = false;
    quint32 literal = NONE;
    bool isLiteralFound = false;
    for (quint32 i = m_design.firstVector(node); i != NONE; i = m_design.vector(i).next) {
        const DesignTree::Vector &vector = m_design.vector(i);
        quint32 candidate = NONE;
        if (!hasBit(variable, place, vector, &candidate))
            continue;
        isAmbiguous = isAmbiguous || (isFound && candidate != *net);
        *net = candidate;
        isFound = true;
        if (vector.next == NONE && !isAmbiguous)
            break;
        if (isLiteral(variable, vector)) {
            literal = isLiteralFound && literal != candidate ? NONE : candidate;
            isLiteralFound = true;
        }
    }
    if (isAmbiguous)
        *net = literal;
    if (*net >= m_design.netCount())
        *net = NONE;
    return isFound;
}

/// The elements of a packed array as vectors of their own: a[1] is one of the bits of the last
/// dimension.
bool ScopeMatch::matchPacked(quint32 number, quint32 above, const Use &use) const
{
    const Declarations::Variable &variable = m_declarations.variables()[number];
    const std::vector<BitRange> &ranges = m_declarations.dimensions(number);
    const BitRange last = ranges.back();
    const auto bits = quint32(qMin<qint64>(last.size(), variable.width));
    Declarations::Variable element = variable;
    element.width = bits;
    element.isPacked = 0;
    element.right = last.right;
    element.isUpwards = last.left < last.right;
    bool isUsed = false;
    for (quint32 first = 0; first + bits <= variable.width; first += bits) {
        std::string name(m_declarations.name(variable));
        std::string numbers;
        qint64 rest = first / bits;
        for (size_t i = ranges.size() - 1; i-- > 0;) {
            const BitRange &range = ranges[i];
            const qint64 place = rest % range.size();
            rest /= range.size();
            const qint64 index =
                range.left >= range.right ? range.right + place : range.right - place;
            numbers.insert(0, '[' + std::to_string(index) + ']');
        }
        const quint32 node = m_design.find(above, name + numbers);
        if (node == NONE)
            continue;
        for (quint32 place = 0; place < bits; ++place) {
            quint32 net = NONE;
            if (!matchBit(element, place, node, &net))
                continue;
            isUsed = true;
            if (net != NONE)
                use({net, number, first + place});
        }
    }
    return isUsed;
}

bool ScopeMatch::match(quint32 number, quint32 above, const Use &use) const
{
    const Declarations::Variable &variable = m_declarations.variables()[number];
    if (above == NONE)
        return false;
    if (variable.isPacked && matchPacked(number, above, use))
        return true;
    const quint32 node = m_design.find(above, m_declarations.name(variable));
    if (node == NONE || node == above)
        return false;
    bool isUsed = false;
    for (quint32 place = 0; place < variable.width; ++place) {
        quint32 net = NONE;
        if (!matchBit(variable, place, node, &net))
            continue;
        isUsed = true;
        if (net != NONE)
            use({net, number, place});
    }
    return isUsed;
}

VariableCounts ScopeMatch::descend(quint32 scope, quint32 node, const Use &use,
                                   const std::function<void(quint32)> &unmatched) const
{
    VariableCounts counts;
    std::vector<std::pair<quint32, quint32>> open{{scope, node}};
    while (!open.empty()) {
        const auto [at, above] = open.back();
        open.pop_back();
        for (const quint32 variable : m_index.variables(at)) {
            const bool isUsed = match(variable, above, use);
            ++(isUsed ? counts.used : counts.unused);
            if (!isUsed && unmatched)
                unmatched(variable);
        }
        for (const quint32 inner : m_index.scopes(at)) {
            const std::string_view name = m_declarations.name(m_declarations.scopes()[inner]);
            open.emplace_back(inner, above == NONE ? NONE : m_design.find(above, name));
        }
    }
    return counts;
}

quint32 ScopeMatch::follow(quint32 scope, quint32 above, quint32 node) const
{
    if (node == above)
        return scope;
    for (const quint32 inner : m_index.scopes(scope)) {
        const quint32 step =
            m_design.find(above, m_declarations.name(m_declarations.scopes()[inner]));
        // Only on the way to `node`.
        bool isOnWay = false;
        for (quint32 at = node; step != NONE && !isOnWay && at != above && at != NONE;
             at = m_design.parent(at))
            isOnWay = at == step;
        const quint32 found = isOnWay ? follow(inner, step, node) : NONE;
        if (found != NONE)
            return found;
    }
    return NONE;
}

} // namespace Check
