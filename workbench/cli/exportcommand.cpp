#include "workbench/cli/exportcommand.h"

#include "check/activity/activityexport.h"
#include "check/activity/timescale.h"
#include "check/configurationinput.h"
#include "check/names/designnames.h"
#include "workbench/cli/command.h"
#include "workbench/cli/commandprogress.h"
#include "workbench/cli/designoptions.h"

#include <QCommandLineParser>

#include <cmath>
#include <cstdio>

namespace Workbench {

namespace {

constexpr const char *NAME = "export";

struct ExportOptions
{
    explicit ExportOptions(QCommandLineParser *parser) { parser->addOptions({to, output, clock}); }

    QCommandLineOption to{QStringLiteral("to"),
                          QStringLiteral("sta: commands for the open static timing analyzer; csv: "
                                         "a table of all nets."),
                          QStringLiteral("TOOL")};
    QCommandLineOption output{QStringLiteral("o"), QStringLiteral("Write to the file F."),
                              QStringLiteral("F")};
    QCommandLineOption clock{
        QStringLiteral("clock"),
        QStringLiteral("The period of a clock, such as 10ns; the fastest one turns transitions/s "
                       "into transitions per cycle. May be repeated."),
        QStringLiteral("NET=PERIOD")};
};

/// "clk=10ns"; false for anything else.
bool parseClock(const QString &text, QPair<QString, double> *clock)
{
    const int equals = text.lastIndexOf(QLatin1Char('='));
    int unit = text.size();
    while (unit > equals + 1 && text.at(unit - 1).isLetter())
        --unit;
    bool isNumber = false;
    const double number = text.mid(equals + 1, unit - equals - 1).toDouble(&isNumber);
    const auto exponent = Check::exponentOfUnit(text.mid(unit));
    if (equals < 1 || !isNumber || !(number > 0) || !std::isfinite(number) || !exponent)
        return false;
    *clock = {text.left(equals), number / std::pow(10.0, -*exponent)};
    return true;
}

int failed(const QString &path, const QString &cause)
{
    std::fprintf(stderr, "workbench %s: %s: %s\n", NAME, qPrintable(path), qPrintable(cause));
    return Unreadable;
}

} // namespace

int runExport(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Writes the activity of a configuration for another tool.\n\nExit status: 0 done, 1 names "
        "are not in the netlist (they are listed in the file), 2 bad usage, 3 an input cannot be "
        "read or the period of a clock is needed."));
    const ExportOptions options(&parser);
    DesignOptions designs(&parser);
    int status = Clean;
    QString file;
    if (!parseOneFile(&parser, NAME, arguments, &file, &status))
        return status;
    const bool isCsv = parser.value(options.to) == QLatin1String("csv");
    if (!isCsv && parser.value(options.to) != QLatin1String("sta"))
        return badUsage(NAME, QStringLiteral("--to takes sta or csv."));
    if (parser.value(options.output).isEmpty())
        return badUsage(NAME, QStringLiteral("-o is needed."));
    QVector<QPair<QString, double>> clocks;
    const QStringList given = parser.values(options.clock);
    for (const QString &text : given) {
        clocks.append(QPair<QString, double>());
        if (!parseClock(text, &clocks.last()))
            return badUsage(NAME, QStringLiteral("--clock takes NET=PERIOD such as clk=10ns, not "
                                                 "\"%1\".")
                                      .arg(text));
    }

    const Check::DesignInput &design = designs.designFor(file);
    if (!design.names)
        return designs.reportFailures(NAME);
    const Check::ConfigurationInput input = Check::readConfigurationInput(file);
    if (!input.isUsable())
        return failed(input.path, input.readable ? input.report.error : input.error);
    const Check::DesignTree tree(*design.netlist, design.names->nets());
    Check::CoverageOptions coverageOptions;
    coverageOptions.toggles = isCsv;
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
    const Check::ExportInput exportInput{input, coverage, tree, *design.names, clocks};
    const Check::Exported exported = isCsv ? exportCsv(exportInput) : exportSta(exportInput);
    if (!exported.error.isEmpty())
        return failed(input.path, exported.error);
    for (const Check::CoveringFile &covering : coverage.files()) {
        const QString error =
            covering.file->isUsable() ? covering.counts.error : covering.file->error;
        if (!error.isEmpty())
            return failed(covering.file->path, error);
    }
    if (!writeOutput(parser.value(options.output), exported.bytes))
        return Unreadable;
    if (exported.unresolved > 0)
        std::fprintf(stderr, "workbench %s: %d names are not in the netlist.\n", NAME,
                     exported.unresolved);
    return exported.unresolved > 0 ? HasFindings : Clean;
}

} // namespace Workbench
