#include "designdata.h"
#include "measure.h"
#include "suite.h"
#include "works.h"

#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <simdjson.h>

#include <memory>

namespace {

std::unique_ptr<NlsData::Netlist> read(const QString &path)
{
    QString error;
    std::unique_ptr<NlsData::Netlist> netlist(NlsData::readNetlistFile(path, &error, false));
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

} // namespace

double netlistPeak(const QString &netlist)
{
    std::unique_ptr<NlsData::Netlist> kept;
    return peakBytes([&] { kept = read(netlist); });
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
        [&] { return parseDom(files[0]); }, [&] { return readNetlist(files[0]); }, 1.8);
    suite.memory(QStringLiteral("peak memory of reading it, against the file's size"),
                 double(QFileInfo(files[0]).size()),
                 numberFromChild({QStringLiteral("--peak"), files[0]}), 4);
    suite.growth(QStringLiteral("growth: read a netlist"), cells,
                 [&](int factor) { return readNetlist(files[factor / 2]); });
}
