#include "check/names/namereview.h"

#include "check/names/proposals.h"
#include "config/configurationfile.h"
#include "config/filenames.h"

#include <algorithm>

namespace Check {

namespace {

bool isLeft(ObjectKind kind, const QString &name, const DesignNames &design)
{
    return kind == ObjectKind::Instance ? !design.instancesOf(name).isEmpty()
                                        : design.nets().has(name);
}

int &counterOf(NameState state, NameCounts *counts)
{
    switch (state) {
    case NameState::Same:
        return counts->same;
    case NameState::Moved:
        return counts->moved;
    case NameState::Missing:
        return counts->missing;
    default:
        return counts->unknown;
    }
}

} // namespace

QVector<ReviewedRecord> namedRecords(const VLT::Configuration &configuration,
                                     const DesignNames &design)
{
    QVector<ReviewedRecord> named;
    const QString top = design.design();
    named.reserve(configuration.rates.records.size() + configuration.files.records.size() +
                  configuration.ports.records.size() + configuration.bsrams.records.size() +
                  configuration.dffs.records.size());
    const auto add = [&](const QString &section, const auto &records, const auto &nameOf) {
        for (int i = 0; i < records.size(); ++i) {
            const QString name = nameOf(records.at(i));
            if (name.isEmpty() || (section == VLT::NODE_FILE && name == top))
                continue;
            ReviewedRecord record;
            record.section = section;
            record.ordinal = i + 1;
            record.name = name;
            named.append(record);
        }
    };
    const auto name = [](const auto &record) { return record.name; };
    add(VLT::NODE_NET, configuration.rates.records, name);
    add(VLT::NODE_FILE, configuration.files.records,
        [](const VLT::VLT_VcdFile &file) { return file.entity; });
    add(VLT::NODE_PORT, configuration.ports.records, name);
    add(VLT::NODE_BSRAM, configuration.bsrams.records, name);
    add(VLT::NODE_INSTANCE, configuration.dffs.records, name);
    return named;
}

ObjectKind kindOf(const ReviewedRecord &record)
{
    ObjectKind kind{};
    kindOfSection(record.section, &kind);
    return kind;
}

int lineOf(const ReviewedRecord &record, const VLT::FileLines &lines)
{
    const QVector<int> &section = record.section == VLT::NODE_NET     ? lines.rates
                                  : record.section == VLT::NODE_FILE  ? lines.files
                                  : record.section == VLT::NODE_PORT  ? lines.ports
                                  : record.section == VLT::NODE_BSRAM ? lines.bsrams
                                                                      : lines.dffs;
    return section.value(record.ordinal - 1);
}

NameState stateOf(ObjectKind kind, const DesignObject &object, const Meaning *meant,
                  const DesignNames &design)
{
    if (!object)
        return NameState::Missing;
    if (!meant || meant->names.isEmpty())
        return NameState::Unknown;
    const QSet<QString> now = design.identity(kind, object);
    const auto isNow = [&now](const QString &name) { return now.contains(name); };
    if (std::any_of(meant->names.begin(), meant->names.end(), isNow))
        return NameState::Same;
    const bool isAnyLeft =
        std::any_of(meant->names.begin(), meant->names.end(),
                    [&](const QString &name) { return isLeft(kind, name, design); });
    return isAnyLeft ? NameState::Moved : NameState::Unknown;
}

NameReview reviewNames(const VLT::Configuration &configuration, const NameMemory &memory,
                       const DesignNames &design, bool withProposals)
{
    QVector<ReviewedRecord> records = namedRecords(configuration, design);
    NameReview review;
    for (ReviewedRecord &record : records) {
        const DesignObject object = design.find(kindOf(record), record.name);
        const Meaning *meant = memory.find({record.section, record.name});
        record.state = stateOf(kindOf(record), object, meant, design);
        ++counterOf(record.state, &review.counts);
        if (record.state == NameState::Same)
            continue;
        if (!meant || meant->names.isEmpty())
            continue;
        record.meant = meant->names;
        if (object)
            record.now = design.meaning(kindOf(record), object).names;
    }
    if (withProposals && review.needsAttention())
        proposeNames(&records, design);
    std::copy_if(records.begin(), records.end(), std::back_inserter(review.records),
                 [](const ReviewedRecord &record) { return record.state != NameState::Same; });
    return review;
}

QString stateName(NameState state)
{
    switch (state) {
    case NameState::Same:
        return QStringLiteral("same");
    case NameState::Moved:
        return QStringLiteral("moved");
    case NameState::Missing:
        return QStringLiteral("missing");
    default:
        return QStringLiteral("unknown");
    }
}

QString certaintyName(Certainty certainty)
{
    switch (certainty) {
    case Certainty::Sure:
        return QStringLiteral("sure");
    case Certainty::Likely:
        return QStringLiteral("likely");
    default:
        return QString();
    }
}

} // namespace Check
