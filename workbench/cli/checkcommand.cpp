#include "workbench/cli/checkcommand.h"

#include "check/rules/rules.h"
#include "workbench/cli/command.h"
#include "workbench/cli/designoptions.h"

#include <QCommandLineParser>
#include <QSet>

#include <algorithm>
#include <future>

namespace Workbench {

namespace {

constexpr const char *NAME = "check";

/// Everything of the command line that the design does not concern.
struct CheckOptions
{
    explicit CheckOptions(QCommandLineParser *parser)
    {
        parser->addOptions({format, output, failOn, disable, maxPerRule, activity, minCoverage});
    }

    QCommandLineOption format{QStringLiteral("format"),
                              QStringLiteral("text (default), json or sarif."),
                              QStringLiteral("FORMAT"), QStringLiteral("text")};
    QCommandLineOption output{QStringLiteral("output"),
                              QStringLiteral("Write to the file F instead of standard output."),
                              QStringLiteral("F")};
    QCommandLineOption failOn{QStringLiteral("fail-on"),
                              QStringLiteral("Exit with 1 if a finding has at least this level: "
                                             "error (default), warning, note or never."),
                              QStringLiteral("LEVEL"), QStringLiteral("error")};
    QCommandLineOption disable{QStringLiteral("disable"),
                               QStringLiteral("Leave out these rules, separated by commas."),
                               QStringLiteral("RULES")};
    QCommandLineOption maxPerRule{
        QStringLiteral("max-per-rule"),
        QStringLiteral("List at most N results of a rule in a sarif report (default 100)."),
        QStringLiteral("N"), QStringLiteral("100")};
    QCommandLineOption activity{
        QStringLiteral("activity"),
        QStringLiteral("Look at activity files: none, header (default) for what they declare, or "
                       "full for their values, too."),
        QStringLiteral("LEVEL"), QStringLiteral("header")};
    QCommandLineOption minCoverage{
        QStringLiteral("min-coverage"),
        QStringLiteral("Report it when fewer nets of a kind have a rate of their own: input, "
                       "flip-flop, memory, pad, logic or undriven. May be repeated."),
        QStringLiteral("KIND=PERCENT")};
};

/// The lowest level that makes the command fail; a number over all levels for "never", below 0
/// for an unknown word.
int failLevel(const QString &word)
{
    const QStringList words = {QStringLiteral("note"), QStringLiteral("warning"),
                               QStringLiteral("error"), QStringLiteral("never")};
    return words.indexOf(word);
}

/// False for a word that is no level.
bool parseLevel(const QString &word, Check::ActivityOptions *options)
{
    const QStringList words = {QStringLiteral("none"), QStringLiteral("header"),
                               QStringLiteral("full")};
    options->level = Check::ActivityLevel(words.indexOf(word));
    return words.contains(word);
}

/// False for what is no "KIND=PERCENT".
bool parseMinimum(const QString &text, Check::ActivityOptions *options)
{
    bool isNumber = false;
    const double percent = text.section(QLatin1Char('='), 1).toDouble(&isNumber);
    for (const Check::NetKind kind : Check::ALL_NET_KINDS) {
        if (text.section(QLatin1Char('='), 0, 0) != Check::netKindName(kind))
            continue;
        options->minimum.insert(kind, percent);
        return isNumber && percent >= 0 && percent <= 100;
    }
    return false;
}

QByteArray rendered(const Check::Report &report, const QString &format, int maxPerRule)
{
    if (format == QLatin1String("json"))
        return jsonReport(report);
    if (format == QLatin1String("sarif"))
        return sarifReport(report, maxPerRule, QStringLiteral(WORKBENCH_VERSION));
    return textReport(report);
}

} // namespace

int runCheck(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Checks configurations against their designs.\n\nExit "
        "status: 0 no finding at or above --fail-on, 1 at least one, 2 bad usage, 3 an "
        "input cannot be read."));
    parser.addPositionalArgument(QStringLiteral("FILE.vlr"), QStringLiteral("Configurations."),
                                 QStringLiteral("FILE.vlr..."));
    const CheckOptions options(&parser);
    DesignOptions designs(&parser);
    int status = Clean;
    if (!parseArguments(&parser, NAME, arguments, &status))
        return status;

    const QStringList files = parser.positionalArguments();
    if (files.isEmpty())
        return badUsage(NAME, QStringLiteral("No configuration is given."));
    const QString format = parser.value(options.format);
    if (!QStringList{QStringLiteral("text"), QStringLiteral("json"), QStringLiteral("sarif")}
             .contains(format))
        return badUsage(NAME, QStringLiteral("Unknown format \"%1\".").arg(format));
    const int failOn = failLevel(parser.value(options.failOn));
    if (failOn < 0)
        return badUsage(NAME,
                        QStringLiteral("Unknown level \"%1\".").arg(parser.value(options.failOn)));
    bool isNumber = false;
    const int maxPerRule = parser.value(options.maxPerRule).toInt(&isNumber);
    if (!isNumber || maxPerRule < 1)
        return badUsage(NAME, QStringLiteral("--max-per-rule needs a number of at least 1."));
    QSet<QString> disabled;
    const QStringList rules =
        parser.value(options.disable).split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString &rule : rules) {
        if (!Check::findRule(rule))
            return badUsage(NAME, QStringLiteral("Unknown rule \"%1\".").arg(rule));
        disabled.insert(rule);
    }

    Check::ActivityOptions activity;
    if (!parseLevel(parser.value(options.activity), &activity))
        return badUsage(NAME, QStringLiteral("--activity takes none, header or full."));
    const QStringList minima = parser.values(options.minCoverage);
    for (const QString &minimum : minima) {
        if (!parseMinimum(minimum, &activity))
            return badUsage(
                NAME,
                QStringLiteral("--min-coverage takes KIND=PERCENT, not \"%1\".").arg(minimum));
    }
    if (!minima.isEmpty() && activity.level == Check::ActivityLevel::None)
        return badUsage(NAME, QStringLiteral("--min-coverage needs the headers of the files."));

    Check::Report report;
    bool readable = true;
    for (const QString &file : files) {
        // Meanwhile the netlist may have to be read, which takes as long.
        auto reading = std::async(std::launch::async, Check::readConfigurationInput, file);
        const Check::DesignInput &design = designs.designFor(file);
        const Check::ConfigurationInput input = reading.get();
        report.inputs.append({file, input.sha256});
        report.findings += checkConfiguration(input, design, disabled, activity);
        readable = readable && input.isUsable() && input.namesError.isEmpty();
    }
    report.inputs += designs.inputs();
    report.findings += designs.findings();
    sortFindings(&report.findings);
    if (!writeOutput(parser.value(options.output), rendered(report, format, maxPerRule)))
        return Unreadable;
    if (!readable || !designs.isComplete())
        return Unreadable;
    const bool fails = std::any_of(
        report.findings.begin(), report.findings.end(),
        [failOn](const Check::Finding &finding) { return int(finding.rule->level) >= failOn; });
    return fails ? HasFindings : Clean;
}

} // namespace Workbench
