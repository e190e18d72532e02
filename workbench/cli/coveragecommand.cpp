#include "workbench/cli/coveragecommand.h"

#include "check/activity/coverage.h"
#include "check/configurationinput.h"
#include "check/names/designnames.h"
#include "check/report/coveragereport.h"
#include "workbench/cli/command.h"
#include "workbench/cli/commandprogress.h"
#include "workbench/cli/designoptions.h"

#include <QCommandLineParser>

#include <cstdio>

namespace Workbench {

namespace {

constexpr const char *NAME = "coverage";

struct CoverageCommandOptions
{
    explicit CoverageCommandOptions(QCommandLineParser *parser)
    {
        parser->addOptions({depth, format, uncovered, activity});
    }

    QCommandLineOption depth{QStringLiteral("depth"),
                             QStringLiteral("List at most N levels of instances."),
                             QStringLiteral("N")};
    QCommandLineOption format{QStringLiteral("format"),
                              QStringLiteral("text (default), json or csv."),
                              QStringLiteral("FORMAT"), QStringLiteral("text")};
    QCommandLineOption uncovered{
        QStringLiteral("uncovered"),
        QStringLiteral("Write the names of the nets that are left to a default to the file F."),
        QStringLiteral("F")};
    QCommandLineOption activity{
        QStringLiteral("activity"),
        QStringLiteral("header (default): what files declare; full: count their toggles, too."),
        QStringLiteral("LEVEL"), QStringLiteral("header")};
};

bool writeUncovered(const QString &path, const QStringList &names)
{
    QByteArray lines;
    for (const QString &name : names)
        lines += name.toUtf8() + '\n';
    return writeOutput(path, lines);
}

/// Whether everything that the report is about was read; says what was not.
bool isComplete(const Check::Coverage &coverage)
{
    bool isComplete = true;
    for (const Check::CoveringFile &covering : coverage.files()) {
        const QString error =
            covering.file->isUsable() ? covering.counts.error : covering.file->error;
        if (error.isEmpty())
            continue;
        isComplete = false;
        std::fprintf(stderr, "workbench %s: %s: %s\n", NAME, qPrintable(covering.file->path),
                     qPrintable(error));
    }
    return isComplete;
}

} // namespace

int runCoverage(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Tells where the rates of the design's nets come from: explicit rates, activity files or "
        "defaults.\n\nExit status: 0 done, 2 bad usage, 3 an input cannot be read, 130 "
        "interrupted."));
    const CoverageCommandOptions options(&parser);
    DesignOptions designs(&parser);
    int status = Clean;
    QString file;
    if (!parseOneFile(&parser, NAME, arguments, &file, &status))
        return status;
    const QString format = parser.value(options.format);
    if (!QStringList{QStringLiteral("text"), QStringLiteral("json"), QStringLiteral("csv")}
             .contains(format))
        return badUsage(NAME, QStringLiteral("Unknown format \"%1\".").arg(format));
    const QString activity = parser.value(options.activity);
    if (activity != QLatin1String("header") && activity != QLatin1String("full"))
        return badUsage(NAME, QStringLiteral("--activity takes header or full."));
    bool isNumber = true;
    const int depth =
        parser.isSet(options.depth) ? parser.value(options.depth).toInt(&isNumber) : -1;
    if (!isNumber || (parser.isSet(options.depth) && depth < 0))
        return badUsage(NAME, QStringLiteral("--depth takes a number from 0 on."));

    const Check::DesignInput &design = designs.designFor(file);
    if (!design.names)
        return designs.reportFailures(NAME);
    const Check::ConfigurationInput input = Check::readConfigurationInput(file);
    if (!input.isUsable()) {
        std::fprintf(stderr, "workbench %s: %s: %s\n", NAME, qPrintable(input.path),
                     qPrintable(input.readable ? input.report.error : input.error));
        return Unreadable;
    }
    const Check::DesignTree tree(*design.netlist, design.names->nets());
    Check::CoverageOptions coverageOptions;
    coverageOptions.toggles = activity == QLatin1String("full");
    coverageOptions.scopes = &design.scopes;
    Check::Coverage coverage;
    {
        CommandProgress progress("Counting toggles");
        coverageOptions.control = coverageOptions.toggles ? &progress : nullptr;
        coverage =
            computeCoverage(input.configuration, input.path, tree, *design.names, coverageOptions);
        if (progress.isCancelled())
            return Interrupted;
    }
    const Check::CoverageReport report{input, coverage, tree, depth};
    const QByteArray bytes = format == QLatin1String("json")  ? coverageJson(report)
                             : format == QLatin1String("csv") ? coverageCsv(report)
                                                              : coverageText(report);
    bool isWritten = writeOutput(QString(), bytes);
    if (parser.isSet(options.uncovered))
        isWritten =
            writeUncovered(parser.value(options.uncovered), coverage.uncovered(tree)) && isWritten;
    return isComplete(coverage) && isWritten ? int(Clean) : int(Unreadable);
}

} // namespace Workbench
