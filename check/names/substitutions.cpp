#include "check/names/substitutions.h"

#include <algorithm>

namespace Check {

namespace {

constexpr int MAXIMUM_PARTS = 1000; // new parts to consider; more are no explanation

bool isSeparator(QChar c)
{
    return c == QLatin1Char('/') || c == QLatin1Char('.');
}

bool isOpen(const ReviewedRecord &record)
{
    return record.proposal.isEmpty() &&
           (record.state == NameState::Missing || record.state == NameState::Moved);
}

} // namespace

Substitutions::Substitutions(QVector<ReviewedRecord> *records, const DesignNames &design)
    : m_records(*records)
    , m_design(design)
{
    const QStringList types = design.nets().cellTypes();
    for (const QString &type : types)
        m_cellTypes.append(QLatin1Char('_') + type + QLatin1Char('_'));
}

void Substitutions::propose()
{
    for (int i = 0; i < m_records.size(); ++i) {
        const ReviewedRecord &record = m_records.at(i);
        if (isOpen(record))
            addWitnesses(i);
        else
            m_taken.insert(
                {record.section, record.proposal.isEmpty() ? record.name : record.proposal});
    }
    if (m_groups.empty())
        return;
    for (int i = 0; i < m_records.size(); ++i)
        addKept(i);
    search();

    // What explains most is tried first, of these what is highest up.
    std::sort(m_groups.begin(), m_groups.end(), [](const Group &a, const Group &b) {
        if (a.members.size() != b.members.size())
            return a.members.size() > b.members.size();
        if (a.left.size() != b.left.size())
            return a.left.size() < b.left.size();
        return std::tie(a.left, a.part) < std::tie(b.left, b.part);
    });
    for (Group &group : m_groups) {
        group.members.erase(std::remove_if(group.members.begin(), group.members.end(),
                                           [this](const Member &member) {
                                               return !isOpen(m_records.at(member.record));
                                           }),
                            group.members.end());
        if (!group.isKept && group.members.size() > 1)
            tryGroup(group);
    }
}

Substitutions::Parts Substitutions::partsOf(const QString &name, bool withCellTypes) const
{
    Parts parts;
    const auto add = [&](int begin, int end) {
        if (end > begin && end < name.size())
            parts.append({begin, end});
    };
    int begin = 0;
    for (int i = 0; i < name.size(); ++i) {
        if (!isSeparator(name.at(i)))
            continue;
        add(begin, i);
        begin = i + 1;
    }
    if (name.endsWith(QLatin1Char(']')))
        add(begin, name.lastIndexOf(QLatin1Char('[')));
    if (!withCellTypes)
        return parts;
    for (int i = begin + 1; (i = name.indexOf(QLatin1Char('_'), i)) >= 0; ++i) {
        const QStringView rest = QStringView(name).mid(i);
        if (std::any_of(m_cellTypes.begin(), m_cellTypes.end(),
                        [rest](const QString &type) { return rest.startsWith(type); }))
            add(begin, i);
    }
    return parts;
}

int Substitutions::findGroup(const QString &name, const PathHashes &hashes, const Part &part) const
{
    return m_groupNumbers.find(hashes.twoFronts(part.begin, part.end), [&](int number) {
        const Group &group = m_groups[size_t(number)];
        const QStringView path(name);
        return path.left(part.begin) == group.left &&
               path.mid(part.begin, part.end - part.begin) == group.part;
    });
}

int Substitutions::findKey(const QString &name, const PathHashes &hashes, const Part &part,
                           const QString &section, bool isNet) const
{
    return m_keyNumbers.find(hashes.frontAndBack(part.begin, part.end), [&](int number) {
        const Key &key = m_keys[size_t(number)];
        const QStringView path(name);
        return key.isNet == isNet && key.section == section && path.left(part.begin) == key.left &&
               path.mid(part.end) == key.right;
    });
}

/// The names by which a record can be found again: those of its net, or else its own.
void Substitutions::addWitnesses(int index)
{
    const ReviewedRecord &record = m_records.at(index);
    const bool isNet = !record.meant.isEmpty() && kindOf(record) != ObjectKind::Instance;
    const QStringList witnesses = isNet ? record.meant : QStringList(record.name);
    (isNet ? m_netSections : m_ownSections).insert(record.section);
    for (const QString &witness : witnesses) {
        const PathHashes hashes(witness);
        const Parts parts = partsOf(witness, !isNet);
        for (const Part &part : parts) {
            const QString left = witness.left(part.begin);
            int group = findGroup(witness, hashes, part);
            if (group < 0) {
                group = int(m_groups.size());
                m_groups.push_back({left, witness.mid(part.begin, part.end - part.begin), {}});
                m_groupNumbers.add(hashes.twoFronts(part.begin, part.end), group);
            }
            int key = findKey(witness, hashes, part, record.section, isNet);
            if (key < 0) {
                key = int(m_keys.size());
                m_keys.push_back({left, witness.mid(part.end), record.section, isNet, {}});
                m_keyNumbers.add(hashes.frontAndBack(part.begin, part.end), key);
            }
            QVector<Member> &members = m_groups[size_t(group)].members;
            if (members.isEmpty() || members.last().record != index)
                members.append(Member{index, {}});
            members.last().keys.append(key);
        }
    }
}

void Substitutions::addKept(int index)
{
    const ReviewedRecord &record = m_records.at(index);
    if (record.state != NameState::Same && record.state != NameState::Unknown)
        return;
    const QStringList names = QStringList(record.name) + record.now;
    for (const QString &name : names) {
        const PathHashes hashes(name);
        const Parts parts = partsOf(name, true);
        for (const Part &part : parts) {
            const int group = findGroup(name, hashes, part);
            if (group >= 0)
                m_groups[size_t(group)].isKept = true;
        }
    }
}

/// Looks in the netlist for what would be there with another part.
void Substitutions::search()
{
    for (const QString &section : qAsConst(m_ownSections)) {
        ObjectKind kind{};
        kindOfSection(section, &kind);
        m_design.forEach(
            kind, [&](const DesignObject &object) { look(section, object.path(), false, object); });
    }
    if (m_netSections.isEmpty())
        return;
    m_design.nets().forEachNet([&](NlsData::Net *net) {
        QStringList names;
        for (const QString &section : qAsConst(m_netSections)) {
            ObjectKind kind{};
            kindOfSection(section, &kind);
            const QVector<DesignObject> objects = m_design.objectsOf(kind, net);
            if (!objects.isEmpty() && names.isEmpty())
                names = m_design.nets().names(net).given;
            for (const DesignObject &object : objects) {
                for (const QString &name : qAsConst(names))
                    look(section, name, true, object);
            }
        }
    });
}

void Substitutions::look(const QString &section, const QString &name, bool isNet,
                         const DesignObject &object)
{
    const PathHashes hashes(name);
    const Parts parts = partsOf(name, !isNet);
    for (const Part &part : parts) {
        const int key = findKey(name, hashes, part, section, isNet);
        if (key < 0)
            continue;
        QHash<QString, QString> &hits = m_keys[size_t(key)].hits;
        const QString newPart = name.mid(part.begin, part.end - part.begin);
        const QString path = isNet ? object.path() : name;
        const auto known = hits.find(newPart);
        if (known == hits.end())
            hits.insert(newPart, path);
        else if (*known != path)
            known->clear();
    }
}

/// Where the record would be with the new part; empty when that is nowhere, or not one place.
QString Substitutions::target(const Member &member, const QString &part) const
{
    QString target;
    for (const int key : member.keys) {
        const QHash<QString, QString> &hits = m_keys[size_t(key)].hits;
        const auto hit = hits.constFind(part);
        if (hit == hits.constEnd())
            continue;
        if (hit->isEmpty() || (!target.isEmpty() && target != *hit))
            return QString();
        target = *hit;
    }
    return target;
}

bool Substitutions::isFree(const ReviewedRecord &record, const QString &target) const
{
    return !target.isEmpty() && target != record.name &&
           !m_taken.contains({record.section, target});
}

/// Whether names that differ would still do so with the new part.
bool Substitutions::isDistinct(const QVector<Member> &members, const QString &part) const
{
    QHash<NamedRecord, QString> byTarget;
    for (const Member &member : members) {
        const ReviewedRecord &record = m_records.at(member.record);
        const NamedRecord place{record.section, target(member, part)};
        if (byTarget.value(place, record.name) != record.name)
            return false;
        byTarget.insert(place, record.name);
    }
    return true;
}

void Substitutions::tryGroup(const Group &group)
{
    QSet<NamedRecord> names;
    for (const Member &member : group.members)
        names.insert({m_records.at(member.record).section, m_records.at(member.record).name});
    if (names.size() < 2)
        return; // no group
    QSet<QString> candidates;
    for (const int key : group.members.first().keys) {
        const QHash<QString, QString> &hits = m_keys[size_t(key)].hits;
        for (auto it = hits.constBegin(); it != hits.constEnd(); ++it)
            candidates.insert(it.key());
        if (candidates.size() > MAXIMUM_PARTS)
            return;
    }
    candidates.remove(group.part);
    for (const Member &member : group.members) {
        const ReviewedRecord &record = m_records.at(member.record);
        for (auto part = candidates.begin(); part != candidates.end();) {
            if (isFree(record, target(member, *part)))
                ++part;
            else
                part = candidates.erase(part);
        }
    }
    for (auto part = candidates.begin(); part != candidates.end();) {
        if (isDistinct(group.members, *part))
            ++part;
        else
            part = candidates.erase(part);
    }
    if (candidates.size() != 1)
        return; // none, or another one would do as well

    const QString newPart = *candidates.constBegin();
    const QString rule =
        QStringLiteral("%1 → %2").arg(group.left + group.part, group.left + newPart);
    for (const Member &member : group.members) {
        ReviewedRecord &record = m_records[member.record];
        record.proposal = target(member, newPart);
        record.certainty = Certainty::Likely;
        record.rule = rule;
        record.reason =
            QStringLiteral("%1 explains %2 of %2 names").arg(rule, QString::number(names.size()));
        m_taken.insert({record.section, record.proposal});
    }
}

} // namespace Check
