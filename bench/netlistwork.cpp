#include "designdata.h"
#include "measure.h"
#include "suite.h"
#include "works.h"

#include "host/nlsdata/netnames.h"
#include "host/nlsdata/readnetlist.h"
#include "nlsdata/netlist.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <simdjson.h>

#include <memory>

namespace {

std::unique_ptr<NlsData::Netlist> read(const QString &path, bool allNames = false)
{
    QString error;
    NlsData::ReadOptions options;
    options.allNames = allNames;
    std::unique_ptr<NlsData::Netlist> netlist = NlsData::readNetlist(path, &error, options);
    if (!netlist)
        qFatal("%s", qPrintable(error));
    return netlist;
}

double parseDom(const QString &path)
{
    return seconds([&] {
        simdjson::dom::parser parser;
        simdjson::dom::element document;
        if (parser.load(path.toStdString()).get(document) != simdjson::SUCCESS)
            qFatal("the floor cannot parse the generated netlist");
    });
}

double readNetlist(const QString &path)
{
    std::unique_ptr<NlsData::Netlist> netlist;
    return seconds([&] { netlist = read(path); });
}

/// Reads with all names, and makes them ready to be asked for.
double readNames(const QString &path)
{
    std::unique_ptr<NlsData::Netlist> netlist;
    return seconds([&] {
        netlist = read(path, true);
        const NlsData::NetNames names(*netlist);
    });
}

} // namespace

double netlistPeak(const QString &netlist, bool allNames)
{
    std::unique_ptr<NlsData::Netlist> kept;
    std::unique_ptr<NlsData::NetNames> names;
    return peakBytes([&] {
        kept = read(netlist, allNames);
        if (allNames)
            names = std::make_unique<NlsData::NetNames>(*kept);
    });
}

void netlistWork(Suite &suite)
{
    const QTemporaryDir folder;
    const int cells = suite.scaled(200000);
    QStringList files;
    for (int factor : {1, 2, 4}) {
        files.append(folder.filePath(QStringLiteral("%1.json").arg(factor)));
        writeNetlist(files.last(), factor * cells);
    }

    suite.compare(
        QStringLiteral("read a flat netlist of %1 cells").arg(cells),
        [&] { return parseDom(files[0]); }, [&] { return readNetlist(files[0]); }, 1.4);
    suite.memory(QStringLiteral("peak memory of reading it, against the file's size"),
                 double(QFileInfo(files[0]).size()),
                 numberFromChild({QStringLiteral("--peak"), files[0]}), 4);
    // Goals: half the time of reading more, and its peak memory once more.
    const int nets = suite.scaled(1000000);
    const QString large = folder.filePath(QStringLiteral("large.json"));
    writeNetlist(large, nets);
    suite.compare(
        QStringLiteral("read a netlist of %1 nets with all their names").arg(nets),
        [&] { return readNetlist(large); }, [&] { return readNames(large); }, 1.5, 3);
    suite.memory(QStringLiteral("peak memory of reading it with all names, against without"),
                 numberFromChild({QStringLiteral("--peak"), large}),
                 numberFromChild({QStringLiteral("--peak"), QStringLiteral("--names"), large}), 2);
    QFile::remove(large);
    suite.growth(QStringLiteral("growth: read a netlist"), cells,
                 [&](int factor) { return readNetlist(files[factor / 2]); });
}
