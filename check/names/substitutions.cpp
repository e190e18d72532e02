#include "check/names/substitutions.h"

#include "nlsdata/netlist.h"

#include <algorithm>

namespace Check {

namespace {

constexpr int MAXIMUM_PARTS = 1000; // new parts to consider; more are no explanation

// These stand for the replaced piece of a name; no name has them.
constexpr QChar NET_KEY(1);
constexpr QChar OBJECT_KEY(2);

bool isSeparator(QChar c)
{
    return c == QLatin1Char('/') || c == QLatin1Char('.');
}

/// Names of nets and names of objects are looked up apart.
QString keyOf(const PathPart &part, bool isNet)
{
    return part.left + (isNet ? NET_KEY : OBJECT_KEY) + part.right;
}

bool isOpen(const ReviewedRecord &record)
{
    return record.proposal.isEmpty() &&
           (record.state == NameState::Missing || record.state == NameState::Moved);
}

} // namespace

QVector<PathPart> partsOf(const QString &name, const QStringList &cellTypes)
{
    QVector<PathPart> parts;
    const auto add = [&](int begin, int end) {
        if (end > begin && end < name.size())
            parts.append({name.left(begin), name.mid(begin, end - begin), name.mid(end)});
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
    for (const QString &type : cellTypes)
        add(begin, name.indexOf(type, begin + 1));
    return parts;
}

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
    if (m_groups.isEmpty())
        return;
    for (int i = 0; i < m_records.size(); ++i)
        addKept(i);
    search();

    // What explains most is tried first, of these what is highest up.
    QVector<Prefix> order;
    for (auto it = m_groups.constBegin(); it != m_groups.constEnd(); ++it)
        order.append(it.key());
    std::sort(order.begin(), order.end(), [this](const Prefix &a, const Prefix &b) {
        const auto rank = [this](const Prefix &prefix) {
            return std::make_tuple(-m_groups.constFind(prefix)->size(), prefix.first.size(),
                                   prefix);
        };
        return rank(a) < rank(b);
    });
    for (const Prefix &prefix : qAsConst(order)) {
        QVector<Member> members = m_groups.value(prefix);
        members.erase(std::remove_if(members.begin(), members.end(),
                                     [this](const Member &member) {
                                         return !isOpen(m_records.at(member.record));
                                     }),
                      members.end());
        if (!members.isEmpty() && !m_kept.contains(prefix))
            tryGroup(prefix, members);
    }
}

/// The names by which a record can be found again: those of its net, or else its own.
void Substitutions::addWitnesses(int index)
{
    const ReviewedRecord &record = m_records.at(index);
    const bool isNet = !record.meant.isEmpty() && kindOf(record) != ObjectKind::Instance;
    const QStringList witnesses = isNet ? record.meant : QStringList(record.name);
    for (const QString &witness : witnesses) {
        const QVector<PathPart> parts = partsOf(witness, isNet ? QStringList() : m_cellTypes);
        for (const PathPart &part : parts) {
            QVector<Member> &members = m_groups[{part.left, part.part}];
            if (members.isEmpty() || members.last().record != index)
                members.append(Member{index, {}});
            const QString key = keyOf(part, isNet);
            members.last().keys.append(key);
            m_wanted[record.section].insert(key);
        }
    }
}

void Substitutions::addKept(int index)
{
    const ReviewedRecord &record = m_records.at(index);
    if (record.state != NameState::Same && record.state != NameState::Unknown)
        return;
    for (const QString &name : QStringList(record.name) + record.now) {
        const QVector<PathPart> parts = partsOf(name, m_cellTypes);
        for (const PathPart &part : parts) {
            if (m_groups.contains({part.left, part.part}))
                m_kept.insert({part.left, part.part});
        }
    }
}

/// Looks in the netlist for what would be there with another part.
void Substitutions::search()
{
    const QStringList sections = m_wanted.keys();
    const auto look = [this](const QString &section, const QString &name, bool isNet,
                             const DesignObject &object) {
        const QVector<PathPart> parts = partsOf(name, isNet ? QStringList() : m_cellTypes);
        for (const PathPart &part : parts) {
            const QString key = keyOf(part, isNet);
            if (m_wanted.value(section).contains(key))
                addHit(section, key, part.part, object);
        }
    };
    for (const QString &section : sections) {
        ObjectKind kind{};
        kindOfSection(section, &kind);
        m_design.forEach(
            kind, [&](const DesignObject &object) { look(section, object.path(), false, object); });
    }
    m_design.nets().forEachNet([&](NlsData::Net *net) {
        const QStringList names = m_design.nets().names(net).given;
        for (const QString &section : sections) {
            ObjectKind kind{};
            kindOfSection(section, &kind);
            const QVector<DesignObject> objects = m_design.objectsOf(kind, net);
            for (const DesignObject &object : objects) {
                for (const QString &name : names)
                    look(section, name, true, object);
            }
        }
    });
}

void Substitutions::addHit(const QString &section, const QString &key, const QString &part,
                           const DesignObject &object)
{
    QHash<QString, QString> &hits = m_hits[section][key];
    const QString path = object.path();
    const auto known = hits.find(part);
    if (known == hits.end())
        hits.insert(part, path);
    else if (*known != path)
        known->clear();
}

/// By new part: where the record would be. Parts that disagree are left out.
QHash<QString, QString> Substitutions::targets(const Member &member) const
{
    const auto hits = m_hits.value(m_records.at(member.record).section);
    QHash<QString, QString> targets;
    for (const QString &key : member.keys) {
        const QHash<QString, QString> found = hits.value(key);
        for (auto it = found.constBegin(); it != found.constEnd(); ++it) {
            const auto known = targets.find(it.key());
            if (known == targets.end())
                targets.insert(it.key(), *it);
            else if (*known != *it)
                known->clear();
        }
    }
    return targets;
}

bool Substitutions::isFree(const ReviewedRecord &record, const QString &target) const
{
    return !target.isEmpty() && target != record.name &&
           !m_taken.contains({record.section, target});
}

void Substitutions::tryGroup(const Prefix &prefix, const QVector<Member> &members)
{
    QSet<NamedRecord> names;
    for (const Member &member : members)
        names.insert({m_records.at(member.record).section, m_records.at(member.record).name});
    if (names.size() < 2)
        return;                                  // no group
    QHash<QString, QVector<QString>> candidates; // by new part: paths in the order of the members
    for (int i = 0; i < members.size(); ++i) {
        const ReviewedRecord &record = m_records.at(members.at(i).record);
        const QHash<QString, QString> found = targets(members.at(i));
        if (i == 0 && found.size() > MAXIMUM_PARTS)
            return;
        for (auto it = found.constBegin(); it != found.constEnd(); ++it) {
            if (it.key() != prefix.second && isFree(record, *it) &&
                (i == 0 || candidates.value(it.key()).size() == i))
                candidates[it.key()].append(*it);
        }
    }
    QString newPart;
    for (auto it = candidates.constBegin(); it != candidates.constEnd(); ++it) {
        QHash<NamedRecord, QString> byTarget;
        bool isDistinct = it->size() == members.size();
        for (int i = 0; isDistinct && i < members.size(); ++i) {
            const ReviewedRecord &record = m_records.at(members.at(i).record);
            const NamedRecord target{record.section, it->at(i)};
            isDistinct = byTarget.value(target, record.name) == record.name;
            byTarget.insert(target, record.name);
        }
        if (!isDistinct)
            continue;
        if (!newPart.isEmpty())
            return; // another one would do as well
        newPart = it.key();
    }
    if (newPart.isEmpty())
        return;

    const QString rule =
        QStringLiteral("%1 → %2").arg(prefix.first + prefix.second, prefix.first + newPart);
    for (int i = 0; i < members.size(); ++i) {
        ReviewedRecord &record = m_records[members.at(i).record];
        record.proposal = candidates.value(newPart).at(i);
        record.certainty = Certainty::Likely;
        record.rule = rule;
        record.reason =
            QStringLiteral("%1 explains %2 of %2 names").arg(rule, QString::number(names.size()));
        m_taken.insert({record.section, record.proposal});
    }
}

} // namespace Check
