#include "designdata.h"
#include "measure.h"
#include "recorddata.h"
#include "suite.h"
#include "works.h"

#include "document/namelookup.h"
#include "document/vltview.h"
#include "host/nlsdata/readnetlist.h"
#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"
#include "support/testhost.h"
#include "tables/markednames.h"
#include "workbench/cli/checkcommand.h"
#include "workbench/cli/command.h"

#include <QCoreApplication>
#include <QDomDocument>
#include <QFile>

#include <algorithm>
#include <memory>

namespace {

/// What a check cannot do without: the netlist, and the document of the configuration.
double readBoth(const QString &netlist, const QByteArray &configuration)
{
    std::unique_ptr<NlsData::Netlist> read;
    QDomDocument document;
    return seconds([&] {
        read = NlsData::readNetlist(netlist, nullptr);
        if (!read || !document.setContent(configuration))
            qFatal("the floor cannot read the generated files");
    });
}

double check(const QString &netlist, const QString &configuration)
{
    int status = 0;
    const double time = seconds([&] {
        status =
            Workbench::runCheck({QStringLiteral("--netlist"), netlist, QStringLiteral("--output"),
                                 configuration + QStringLiteral(".txt"), configuration});
    });
    if (status != Workbench::HasFindings)
        qFatal("the check finds nothing in the generated file");
    return time;
}

double openAndShow(const TestHost &host, const QString &netlist, const QString &configuration,
                   bool withMarks)
{
    const auto view = std::make_unique<VLT::VLTView>(
        host.device(), NlsData::readNetlistFile(netlist, nullptr, false));
    if (!withMarks)
        delete view->findChild<VLT::NameLookup *>();
    view->resize(1200, 800);
    return seconds([&] {
        if (!view->readCfgFile(configuration))
            qFatal("the view does not open the generated file");
        paint(view.get());
    });
}

struct MarkTimes
{
    double untilThere; ///< seconds from opening on
    double longest;    ///< turn of the event loop after the first picture
};

/// Opens the file, whose first record is called `name`, and waits for the marks.
MarkTimes waitForMarks(const TestHost &host, const QString &netlist, const QString &configuration,
                       const QString &name)
{
    const auto view = std::make_unique<VLT::VLTView>(
        host.device(), NlsData::readNetlistFile(netlist, nullptr, false));
    const auto tables = view->findChildren<VLT::MarkedNames *>();
    const auto areThere = [&] {
        return std::any_of(tables.begin(), tables.end(),
                           [&name](const VLT::MarkedNames *table) { return table->isKnown(name); });
    };
    MarkTimes times{};
    times.untilThere = seconds([&] {
        if (!view->readCfgFile(configuration))
            qFatal("the view does not open the generated file");
        paint(view.get());
        while (!areThere()) {
            const double turn = seconds([] { QCoreApplication::processEvents(); });
            times.longest = qMax(times.longest, turn);
        }
    });
    return times;
}

} // namespace

void checkWork(Suite &suite)
{
    const TestHost host;
    const int records = suite.scaled(100000);
    const int cells = suite.scaled(200000);
    // Users list what a finder offers: flip-flops and nets by the ten thousand, ports by the dozen.
    // On real designs synthesis has taken between a hundredth and a fifth of the names away after a
    // small change of the sources.
    const QByteArray mixed = designFile(records, cells);
    const QString configuration = host.write(QStringLiteral("records.vlr"), mixed);
    const QString design = host.path(QStringLiteral("design.json"));
    writeNetlist(design, cells);
    suite.compare(
        QStringLiteral("check %1 records against %2 cells").arg(records).arg(cells),
        [&] { return readBoth(design, mixed); }, [&] { return check(design, configuration); }, 1.6);
    // The netlist of another design: no name is found. All sections have as many records.
    const QByteArray foreign =
        mixedFile(records, host.write(QStringLiteral("activity.vcd"), QByteArray()));
    const QString other = host.write(QStringLiteral("other.vlr"), foreign);
    suite.compare(
        QStringLiteral("the same for names of another design"),
        [&] { return readBoth(design, foreign); }, [&] { return check(design, other); }, 0);
    QFile::remove(design);

    // Every other name is in the netlist.
    const int objects = suite.scaled(1000000);
    const int names = suite.scaled(10000);
    QStringList listed = registerNames(names);
    for (int i = 0; i < names; i += 2)
        listed[i] += QStringLiteral("_gone");
    const QString flipFlops = host.write(QStringLiteral("names.vlr"), flipFlopFile(listed));
    const QString large = host.path(QStringLiteral("large.json"));
    writeFlipFlops(large, registerNames(objects));
    suite.compare(
        QStringLiteral("open %1 names on %2 objects until shown, with marks")
            .arg(names)
            .arg(objects),
        [&] { return openAndShow(host, large, flipFlops, false); },
        [&] { return openAndShow(host, large, flipFlops, true); }, 1.05, Suite::USUAL);
    double longest = 0;
    suite.compare(
        QStringLiteral("the same until the marks are there"),
        [&] { return openAndShow(host, large, flipFlops, false); },
        [&] {
            const MarkTimes times = waitForMarks(host, large, flipFlops, listed.at(0));
            longest = qMax(longest, times.longest);
            return times.untilThere;
        },
        0, 3);
    suite.compare(
        QStringLiteral("longest turn of the event loop until then, against 100 ms"),
        [] { return 0.1; }, [&] { return longest; }, 1, 1);
}
