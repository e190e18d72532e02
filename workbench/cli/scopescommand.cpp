#include "workbench/cli/scopescommand.h"

#include "check/activity/scoperanking.h"
#include "check/names/designnames.h"
#include "check/report/activityreport.h"
#include "workbench/cli/command.h"
#include "workbench/cli/designoptions.h"

#include <QCommandLineParser>

#include <algorithm>

namespace Workbench {

namespace {

constexpr const char *NAME = "scopes";

} // namespace

int runScopes(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Finds the scopes of VCD and SAIF files that are instances of the design.\n\nExit status: "
        "0 every file fits, 1 one does not, 2 bad usage, 3 an input cannot be read."));
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Activity files."),
                                 QStringLiteral("FILE..."));
    const QCommandLineOption format(QStringLiteral("format"),
                                    QStringLiteral("text (default) or json."),
                                    QStringLiteral("FORMAT"), QStringLiteral("text"));
    const QCommandLineOption maximum(QStringLiteral("max"),
                                     QStringLiteral("List at most N pairs of a file (default 10)."),
                                     QStringLiteral("N"), QStringLiteral("10"));
    parser.addOptions({format, maximum});
    DesignOptions designs(&parser);
    int status = Clean;
    if (!parseArguments(&parser, NAME, arguments, &status))
        return status;
    const QStringList paths = parser.positionalArguments();
    if (paths.isEmpty())
        return badUsage(NAME, QStringLiteral("No activity file is given."));
    const bool isJson = parser.value(format) == QLatin1String("json");
    if (!isJson && parser.value(format) != QLatin1String("text"))
        return badUsage(NAME, QStringLiteral("Unknown format \"%1\".").arg(parser.value(format)));
    bool isNumber = false;
    const int count = parser.value(maximum).toInt(&isNumber);
    if (!isNumber || count < 1)
        return badUsage(NAME, QStringLiteral("--max takes a number from 1 on."));

    const Check::DesignInput &input = designs.designFor(paths.first());
    if (!input.names)
        return designs.reportFailures(NAME);
    const Check::DesignTree design(*input.netlist, input.names->nets());
    QVector<Check::RankedFile> files;
    for (const QString &path : paths) {
        Check::RankedFile ranked{Check::readActivityFile(path), {}};
        if (ranked.file->isUsable())
            ranked.ranking = rankScopes(*ranked.file, design);
        else
            status = Unreadable;
        if (ranked.ranking.verdict != Check::ScopeVerdict::Fits)
            status = std::max<int>(status, HasFindings);
        files.append(ranked);
    }
    const QByteArray report =
        isJson ? scopesJson(files, design, count) : scopesText(files, design, count);
    return writeOutput(QString(), report) ? status : int(Unreadable);
}

} // namespace Workbench
