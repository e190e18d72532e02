#include "check/names/namereview.h"
#include "check/rules/rules.h"

namespace Check {

namespace {

/// The first of the names, which are from high up; more would hide the point.
QString shown(const QStringList &names)
{
    return names.isEmpty() ? QStringLiteral("no net with a name of the design")
                           : QLatin1Char('"') + names.first() + QLatin1Char('"');
}

QString message(const ReviewedRecord &record)
{
    const ObjectKind kind = kindOf(record);
    const QString text = kind == ObjectKind::Net ? QStringLiteral("it is the net %1 now and was %2")
                         : kind == ObjectKind::Port
                             ? QStringLiteral("it is at %1 now and was at %2")
                         : kind == ObjectKind::Instance
                             ? QStringLiteral("it is an instance of %1 now and was one of %2")
                             : QStringLiteral("it drives %1 now and drove %2");
    return QStringLiteral("%1 \"%2\" is in the netlist, but ").arg(kindName(kind), record.name) +
           text.arg(shown(record.now), shown(record.meant)) +
           QStringLiteral(" when it was recorded");
}

} // namespace

void checkMeanings(const ConfigurationInput &input, const DesignNames &design, Findings *findings)
{
    const NameReview review = reviewNames(input.configuration, input.names, design);
    QHash<QPair<QString, int>, QString> proposals;
    for (const ReviewedRecord &record : review.records) {
        if (record.state == NameState::Moved)
            findings->add(
                "name-moved",
                {record.section, record.ordinal, lineOf(record, input.report.lines), record.name},
                message(record), record.proposal);
        else if (!record.proposal.isEmpty())
            proposals.insert({record.section, record.ordinal}, record.proposal);
    }
    findings->propose(proposals);
}

} // namespace Check
