#include "suite.h"
#include "works.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace {

/// Silences the product and the platform, whose messages would bury the results.
void showOnlyFailures(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

void print(const Row &row)
{
    const QString goal = row.goal > 0 ? QString::number(row.goal, 'f', 2) : QStringLiteral("-");
    std::printf("%-68s %9.3f %2s %9.3f %2s %7.2f %6s  %s\n", qPrintable(row.work), row.floor,
                qPrintable(row.unit), row.product, qPrintable(row.unit), row.ratio(),
                qPrintable(goal), row.isMet() ? "ok" : "MISSED");
}

QJsonObject json(const Row &row)
{
    return {{QStringLiteral("work"), row.work},     {QStringLiteral("unit"), row.unit},
            {QStringLiteral("floor"), row.floor},   {QStringLiteral("product"), row.product},
            {QStringLiteral("ratio"), row.ratio()}, {QStringLiteral("goal"), row.goal},
            {QStringLiteral("ok"), row.isMet()}};
}

bool writeJson(const QString &path, const Suite &suite)
{
    QJsonArray rows;
    for (const Row &row : suite.rows())
        rows.append(json(row));
    QFile file(path);
    const QJsonObject result{{QStringLiteral("quick"), suite.isQuick()},
                             {QStringLiteral("rows"), rows}};
    return file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(result).toJson()) > 0;
}

int measurePeak(const QStringList &files, bool allNames)
{
    const bool isActivity = files[0].endsWith(QLatin1String(".vcd"));
    const double bytes = isActivity          ? activityPeak(files[0])
                         : files.size() == 1 ? netlistPeak(files[0], allNames)
                                             : viewPeak(files[0], files[1]);
    std::printf("%.0f\n", bytes);
    return bytes > 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv)
{
    qInstallMessageHandler(showOnlyFailures);
    QApplication application(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Measures the product against its floors."));
    parser.addHelpOption();
    const QCommandLineOption quick(
        QStringLiteral("quick"),
        QStringLiteral("Use little data and one repetition, and enforce no goals."));
    const QCommandLineOption output(QStringLiteral("json"),
                                    QStringLiteral("Write the rows to <file>."),
                                    QStringLiteral("file"));
    const QCommandLineOption only(QStringLiteral("only"),
                                  QStringLiteral("Measure one group: netlist, finder, table, "
                                                 "document, check, start or activity."),
                                  QStringLiteral("group"));
    QCommandLineOption peak(QStringLiteral("peak"));
    peak.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineOption names(QStringLiteral("names"));
    names.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({quick, output, only, peak, names});
    parser.addPositionalArgument(QStringLiteral("files"), QString(), QStringLiteral(" "));
    parser.process(application);
    if (parser.isSet(peak))
        return measurePeak(parser.positionalArguments(), parser.isSet(names));

    // Floor and product take turns, so that a drift of the machine meets both.
    char program[] = "vltbench";
    char turns[] = "--benchmark_enable_random_interleaving=true";
    char *arguments[] = {program, turns};
    int count = 2;
    benchmark::Initialize(&count, arguments);

    const QVector<QPair<QString, void (*)(Suite &)>> groups{
        {QStringLiteral("netlist"), netlistWork},   {QStringLiteral("finder"), finderWork},
        {QStringLiteral("table"), tableWork},       {QStringLiteral("document"), documentWork},
        {QStringLiteral("check"), checkWork},       {QStringLiteral("start"), startWork},
        {QStringLiteral("activity"), activityWork},
    };
    Suite suite(parser.isSet(quick));
    for (const auto &[name, work] : groups) {
        if (parser.value(only).isEmpty() || parser.value(only) == name)
            work(suite);
    }

    std::printf("%-68s %12s %12s %7s %6s\n", "work", "floor", "product", "ratio", "goal");
    bool met = true;
    for (const Row &row : suite.rows()) {
        print(row);
        met = met && row.isMet();
    }
    if (parser.isSet(output) && !writeJson(parser.value(output), suite)) {
        std::fprintf(stderr, "Cannot write %s\n", qPrintable(parser.value(output)));
        return 2;
    }
    return met || suite.isQuick() ? 0 : 1;
}
