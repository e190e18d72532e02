#include "check/names/proposals.h"

#include "check/names/substitutions.h"

#include "nlsdata/netlist.h"

#include <algorithm>

namespace Check {

namespace {

bool isOpen(const ReviewedRecord &record)
{
    return record.proposal.isEmpty() &&
           (record.state == NameState::Missing || record.state == NameState::Moved);
}

void setProposal(ReviewedRecord *record, const DesignObject &object, Certainty certainty,
                 const QString &reason)
{
    record->proposal = object.path();
    record->certainty = certainty;
    record->reason = reason;
}

QString sharedWith(ObjectKind kind, const QString &name)
{
    switch (kind) {
    case ObjectKind::Net:
        return QStringLiteral("it is the net that is also called \"%1\"").arg(name);
    case ObjectKind::Port:
        return QStringLiteral("it is at the net \"%1\"").arg(name);
    case ObjectKind::Instance:
        return QStringLiteral("it is the only instance of \"%1\"").arg(name);
    default:
        return QStringLiteral("it drives \"%1\"").arg(name);
    }
}

/// What the names lead to: the one object, or its absence, with the number of objects.
struct Found
{
    QVector<DesignObject> objects;
    QString through; ///< the name that led to the first

    void add(const QVector<DesignObject> &more, const QString &name)
    {
        for (const DesignObject &object : more) {
            if (objects.isEmpty())
                through = name;
            if (!objects.contains(object))
                objects.append(object);
        }
    }
};

void proposeByIdentity(ReviewedRecord *record, const DesignNames &design)
{
    const ObjectKind kind = kindOf(*record);
    Found found;
    for (const QString &name : qAsConst(record->meant)) {
        if (kind == ObjectKind::Instance)
            found.add(design.instancesOf(name), name);
        else if (NlsData::Net *net = design.nets().find(name))
            found.add(design.objectsOf(kind, net), name);
    }
    if (found.objects.size() == 1) {
        setProposal(record, found.objects.first(), Certainty::Sure,
                    sharedWith(kind, found.through));
        return;
    }
    // Without a record the name itself is the only witness.
    NlsData::Net *net = kind == ObjectKind::Net ? design.nets().find(record->name) : nullptr;
    if (record->meant.isEmpty() && net)
        setProposal(record, design.objectsOf(kind, net).at(0), Certainty::Likely,
                    sharedWith(kind, record->name) +
                        QStringLiteral("; what the name meant was not recorded"));
}

/// Names that differ only in what does not count, of one section.
void proposeBySpelling(const QVector<ReviewedRecord *> &records, ObjectKind kind,
                       const DesignNames &design)
{
    QSet<QString> spellings, netSpellings;
    for (const ReviewedRecord *record : records) {
        spellings.insert(plainSpelling(record->name));
        for (const QString &name : record->meant)
            netSpellings.insert(plainSpelling(name));
    }
    const QMultiHash<QString, DesignObject> spelled = design.findSpelled(kind, spellings);
    const QMultiHash<QString, NlsData::Net *> nets = kind == ObjectKind::Instance
                                                         ? QMultiHash<QString, NlsData::Net *>()
                                                         : design.findSpelledNets(netSpellings);
    for (ReviewedRecord *record : records) {
        Found known;
        bool isKnown = false;
        for (const QString &name : qAsConst(record->meant)) {
            const QList<NlsData::Net *> found = nets.values(plainSpelling(name));
            for (NlsData::Net *net : found)
                known.add(design.objectsOf(kind, net), name);
            isKnown = isKnown || !found.isEmpty();
        }
        Found named;
        const QList<DesignObject> candidates = spelled.values(plainSpelling(record->name));
        for (const DesignObject &object : candidates) {
            if (object.path() == record->name)
                continue;
            const Meaning meant{{}, record->meant, {}};
            const bool agrees = isKnown ? known.objects.contains(object)
                                        : stateOf(kind, object, &meant, design) != NameState::Moved;
            if (agrees)
                named.add({object}, record->name);
        }
        if (named.objects.size() == 1)
            setProposal(record, named.objects.first(), Certainty::Likely,
                        record->meant.isEmpty()
                            ? QStringLiteral("the same name, spelled differently; what it meant "
                                             "was not recorded")
                            : QStringLiteral("the same name, spelled differently"));
        else if (known.objects.size() == 1 && known.objects.first().path() != record->name)
            setProposal(record, known.objects.first(), Certainty::Likely,
                        sharedWith(kind, known.through) +
                            QStringLiteral(", which is spelled differently now"));
    }
}

QString whyNone(const ReviewedRecord &record)
{
    if (record.state == NameState::Moved)
        return QStringLiteral("no single %1 has what the name meant").arg(kindName(kindOf(record)));
    return QStringLiteral("nothing in the netlist matches: it can be removed");
}

void takeBack(ReviewedRecord *record, const QString &reason)
{
    record->proposal.clear();
    record->rule.clear();
    record->certainty = Certainty::None;
    record->reason = reason;
}

} // namespace

void proposeNames(QVector<ReviewedRecord> *records, const DesignNames &design)
{
    for (ReviewedRecord &record : *records) {
        if (isOpen(record))
            proposeByIdentity(&record, design);
    }
    QMap<QString, QVector<ReviewedRecord *>> open;
    for (ReviewedRecord &record : *records) {
        if (isOpen(record))
            open[record.section].append(&record);
    }
    for (const QVector<ReviewedRecord *> &section : qAsConst(open))
        proposeBySpelling(section, kindOf(*section.first()), design);
    Substitutions(records, design).propose();
    // What is gone is to be removed, and makes room for the others. So does a name whose meaning is
    // gone from the netlist.
    resolveConflicts(records, [](const ReviewedRecord &record) {
        return record.state == NameState::Same || record.meant.isEmpty();
    });
    for (ReviewedRecord &record : *records) {
        if (isOpen(record) && record.reason.isEmpty())
            record.reason = whyNone(record);
    }
}

void resolveConflicts(QVector<ReviewedRecord> *records,
                      const std::function<bool(const ReviewedRecord &)> &stays)
{
    for (bool changed = true; changed;) {
        changed = false;
        // The old names of those that would have a proposed name afterwards.
        QHash<NamedRecord, QSet<QString>> after;
        for (const ReviewedRecord &record : qAsConst(*records)) {
            if (!record.proposal.isEmpty())
                after[{record.section, record.proposal}].insert(record.name);
        }
        for (const ReviewedRecord &record : qAsConst(*records)) {
            const auto proposed =
                record.proposal.isEmpty() ? after.find({record.section, record.name}) : after.end();
            if (proposed != after.end() && stays(record))
                proposed->insert(record.name);
        }
        QSet<QString> rules;
        for (ReviewedRecord &record : *records) {
            if (record.proposal.isEmpty() ||
                after.value({record.section, record.proposal}).size() < 2)
                continue;
            if (!record.rule.isEmpty())
                rules.insert(record.rule);
            takeBack(&record, QStringLiteral("\"%1\" would be listed for more than one name")
                                  .arg(record.proposal));
            changed = true;
        }
        for (ReviewedRecord &record : *records) {
            if (rules.contains(record.rule)) // a rule holds for all or for none
                takeBack(&record,
                         QStringLiteral("%1 does not hold for every name").arg(record.rule));
        }
    }
}

} // namespace Check
