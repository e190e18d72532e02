#include "check/activity/declarations.h"

#include <QStringList>

namespace Check {

Declarations::Declarations()
    : m_scopes{{0, NONE}}
{
}

quint32 Declarations::scope(quint32 parent, std::string_view name)
{
    const auto [entry, isNew] =
        m_byName.try_emplace({parent, std::string(name)}, quint32(m_scopes.size()));
    if (isNew)
        m_scopes.push_back({m_text.add(name), parent});
    return entry->second;
}

int Declarations::depth(quint32 scope) const
{
    int depth = 0;
    for (; m_scopes[scope].parent != NONE; scope = m_scopes[scope].parent)
        ++depth;
    return depth;
}

bool Declarations::addVariable(quint32 scope, const Reference &reference, qint64 width,
                               quint32 signal)
{
    m_declaredBits += width;
    if (m_declaredBits > MAXIMUM_BITS || !m_text.hasRoomFor(reference.base.size()))
        return false;
    Variable variable{};
    variable.scope = scope;
    variable.name = m_text.add(reference.base);
    variable.signal = signal;
    variable.width = quint32(width);
    variable.hasRange = !reference.ranges.empty();
    if (reference.ranges.size() == 1) {
        const BitRange &range = reference.ranges.front();
        variable.right = range.right;
        variable.isUpwards = range.left < range.right;
    } else if (reference.ranges.size() > 1) {
        variable.isPacked = 1;
        m_packed[quint32(m_variables.size())].assign(reference.ranges.begin(),
                                                     reference.ranges.end());
    }
    m_variables.push_back(variable);
    while (signal >= m_firstBits.size())
        m_firstBits.push_back(0);
    quint32 &bits = m_firstBits[signal];
    bits = qMax(bits, quint32(width));
    return true;
}

void Declarations::finish()
{
    quint32 end = 0;
    for (quint32 &first : m_firstBits) {
        const quint32 width = first;
        first = end;
        end += width;
    }
    m_firstBits.push_back(end);
}

std::string_view Declarations::name(const Scope &scope) const
{
    return m_text.at(scope.name);
}

std::string_view Declarations::name(const Variable &variable) const
{
    return m_text.at(variable.name);
}

const std::vector<BitRange> &Declarations::dimensions(quint32 variable) const
{
    return m_packed.at(variable);
}

qint32 Declarations::bitNumber(const Variable &variable, quint32 place)
{
    const qint64 number =
        variable.isUpwards ? qint64(variable.right) - place : qint64(variable.right) + place;
    return qint32(number);
}

QString Declarations::path(quint32 scope) const
{
    QStringList names;
    for (; m_scopes[scope].parent != NONE; scope = m_scopes[scope].parent) {
        const std::string_view text = name(m_scopes[scope]);
        names.prepend(QString::fromUtf8(text.data(), int(text.size())));
    }
    return names.join(QLatin1Char('/'));
}

quint32 Declarations::findScope(const QString &path) const
{
    for (quint32 scope = 0; scope < m_scopes.size(); ++scope) {
        const std::string_view text = name(m_scopes[scope]);
        if (path.endsWith(QString::fromUtf8(text.data(), int(text.size()))) &&
            this->path(scope) == path)
            return scope;
    }
    return NONE;
}

QString Declarations::path(const Variable &variable, quint32 place) const
{
    const QString folder = path(variable.scope);
    const std::string_view text = name(variable);
    QString path = folder.isEmpty() ? QString() : folder + QLatin1Char('/');
    path += QString::fromUtf8(text.data(), int(text.size()));
    if (variable.hasRange || variable.width > 1)
        path += QStringLiteral("[%1]").arg(bitNumber(variable, place));
    return path;
}

QString Declarations::variablePath(quint32 index) const
{
    const Variable &variable = m_variables[index];
    QString text = path(variable, 0);
    if (variable.width > 1) {
        text.truncate(text.lastIndexOf(QLatin1Char('[')));
        text += QStringLiteral("[%1:%2]")
                    .arg(bitNumber(variable, variable.width - 1))
                    .arg(bitNumber(variable, 0));
    }
    return text;
}

} // namespace Check
