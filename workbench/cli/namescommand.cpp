#include "workbench/cli/namescommand.h"

#include "check/names/nameplan.h"
#include "workbench/cli/command.h"
#include "workbench/cli/designoptions.h"

#include <QCommandLineParser>
#include <QFile>

#include <cstdio>

namespace Workbench {

namespace {

constexpr const char *NAME = "names";

struct NamesOptions
{
    explicit NamesOptions(QCommandLineParser *parser)
    {
        parser->addOptions({format, record, apply, plan});
    }

    QCommandLineOption format{QStringLiteral("format"), QStringLiteral("text (default) or json."),
                              QStringLiteral("FORMAT"), QStringLiteral("text")};
    QCommandLineOption record{QStringLiteral("record"),
                              QStringLiteral("Record what the names mean in FILE.vlr.names.")};
    QCommandLineOption apply{
        QStringLiteral("apply"),
        QStringLiteral("Replace names by the proposals that are sure, or at least likely."),
        QStringLiteral("CERTAINTY")};
    QCommandLineOption plan{
        QStringLiteral("plan"),
        QStringLiteral("Carry out F, a reviewed list written by --format json; a record with "
                       "\"remove\": true instead of a proposal is removed."),
        QStringLiteral("F.json")};
};

int failed(const QString &path, const QString &cause)
{
    std::fprintf(stderr, "workbench names: %s: %s\n", qPrintable(path), qPrintable(cause));
    return Unreadable;
}

QString quotedList(const QStringList &names)
{
    QStringList quoted;
    for (const QString &name : names)
        quoted += QLatin1Char('"') + name + QLatin1Char('"');
    return quoted.isEmpty() ? QStringLiteral("no net with a name of the design")
                            : quoted.join(QLatin1String(", "));
}

QString textOf(const Check::ReviewedRecord &record)
{
    const QString kind = kindName(kindOf(record));
    QString text =
        record.state == Check::NameState::Moved
            ? QStringLiteral("moved: %1 \"%2\" is now %3")
                  .arg(kind, record.name, quotedList(record.now))
            : QStringLiteral("missing: %1 \"%2\" is not in the netlist").arg(kind, record.name);
    text += record.meant.isEmpty() ? QStringLiteral("; its meaning was not recorded")
                                   : QStringLiteral("; it was ") + quotedList(record.meant);
    if (record.proposal.isEmpty())
        return text + QStringLiteral("\n    no proposal: ") + record.reason;
    return text + QStringLiteral("\n    %1: \"%2\": %3")
                      .arg(certaintyName(record.certainty), record.proposal, record.reason);
}

QByteArray textReport(const Check::NameReview &review, const Check::ConfigurationInput &input)
{
    QString text;
    for (const Check::ReviewedRecord &record : review.records) {
        if (record.state == Check::NameState::Moved || record.state == Check::NameState::Missing)
            text += QStringLiteral("%1:%2: %3\n")
                        .arg(input.path, QString::number(lineOf(record, input.report.lines)),
                             textOf(record));
    }
    const Check::NameCounts &counts = review.counts;
    text += QStringLiteral("%1 same, %2 moved, %3 missing, %4 unknown\n")
                .arg(QString::number(counts.same), QString::number(counts.moved),
                     QString::number(counts.missing), QString::number(counts.unknown));
    return text.toUtf8();
}

/// The configuration and what its names are compared with.
struct Subject
{
    Check::ConfigurationInput input;
    Check::DesignInput design;
};

/// Reads everything; Clean, or Unreadable after the cause was reported.
int readSubject(const QString &path, DesignOptions *designs, Subject *subject)
{
    subject->input = Check::readConfigurationInput(path);
    if (!subject->input.isUsable())
        return failed(path,
                      subject->input.readable ? subject->input.report.error : subject->input.error);
    subject->design = designs->designFor(path);
    for (const Check::Finding &finding : designs->findings())
        failed(finding.file, finding.message);
    if (!subject->design.names)
        return designs->findings().isEmpty()
                   ? failed(path,
                            QStringLiteral("no netlist was found; use --project or --netlist"))
                   : int(Unreadable);
    if (!subject->input.namesError.isEmpty())
        return failed(Check::NameMemory::fileFor(path), subject->input.namesError);
    return Clean;
}

Check::NameReview review(const Subject &subject)
{
    return reviewNames(subject.input.configuration, subject.input.names, *subject.design.names);
}

/// Reads the plan, or makes it of the proposals.
int readPlan(const Subject &subject, const QString &path, Check::Certainty least,
             Check::NamePlan *plan)
{
    const Check::DesignNames &names = *subject.design.names;
    if (path.isEmpty()) {
        *plan = planOf(review(subject), subject.input.configuration, names, least);
        return Clean;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return failed(path, file.errorString());
    QString cause;
    if (!Check::parsePlan(file.readAll(), plan, &cause) ||
        !Check::checkPlan(*plan, subject.input, names, subject.design.netlistSha256, &cause))
        return failed(path, cause);
    return Clean;
}

} // namespace

int runNames(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Compares the recorded meanings of the names in a configuration with the netlist.\n\nExit "
        "status: 0 no name is missing or moved, 1 at least one is, 2 bad usage, 3 an input cannot "
        "be read or a plan is refused."));
    const NamesOptions options(&parser);
    DesignOptions designs(&parser);
    int status = Clean;
    QString file;
    if (!parseOneFile(&parser, NAME, arguments, &file, &status))
        return status;
    const QString format = parser.value(options.format);
    if (format != QLatin1String("text") && format != QLatin1String("json"))
        return badUsage(NAME, QStringLiteral("Unknown format \"%1\".").arg(format));
    const QString certainty = parser.value(options.apply);
    const bool isApplied = parser.isSet(options.apply);
    const bool isPlanned = parser.isSet(options.plan);
    const bool isRecorded = parser.isSet(options.record);
    if (isApplied && certainty != certaintyName(Check::Certainty::Sure) &&
        certainty != certaintyName(Check::Certainty::Likely))
        return badUsage(NAME, QStringLiteral("--apply must be sure or likely."));
    if (int(isApplied) + int(isPlanned) + int(isRecorded) > 1)
        return badUsage(NAME, QStringLiteral("--record, --apply and --plan cannot be combined."));

    Subject subject;
    status = readSubject(file, &designs, &subject);
    if (status != Clean)
        return status;
    const Check::DesignInput &design = subject.design;
    QString cause;
    if (isRecorded)
        return Check::recordNames(subject.input, *design.names, design.netlistSha256, {}, &cause)
                   ? int(Clean)
                   : failed(file, cause);
    if (isApplied || isPlanned) {
        Check::NamePlan plan;
        const bool isSure = certainty == certaintyName(Check::Certainty::Sure);
        status = readPlan(subject, parser.value(options.plan),
                          isSure ? Check::Certainty::Sure : Check::Certainty::Likely, &plan);
        if (status != Clean)
            return status;
        if (!Check::applyPlan(plan, subject.input, *design.names, design.netlistSha256, false,
                              nullptr, &cause))
            return failed(file, cause);
        status = readSubject(file, &designs, &subject);
        if (status != Clean)
            return status;
    }
    const Check::NameReview result = review(subject);
    const QByteArray report = format == QLatin1String("json")
                                  ? reviewJson(result, {{subject.input.path, subject.input.sha256},
                                                        {design.netlistPath, design.netlistSha256}})
                                  : textReport(result, subject.input);
    if (!writeOutput(QString(), report))
        return Unreadable;
    return result.needsAttention() ? HasFindings : Clean;
}

} // namespace Workbench
