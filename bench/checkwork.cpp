#include "designdata.h"
#include "measure.h"
#include "recorddata.h"
#include "suite.h"
#include "works.h"

#include "check/names/designnames.h"
#include "check/rules/rules.h"
#include "document/namelookup.h"
#include "document/vltview.h"
#include "host/nlsdata/readnetlist.h"
#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"
#include "support/testhost.h"

#include <QDomDocument>
#include <QFile>

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
    Check::DesignInput design;
    return seconds([&] {
        NlsData::ReadOptions options;
        options.allNames = true;
        options.sha256 = &design.netlistSha256;
        design.netlist = NlsData::readNetlist(netlist, nullptr, options);
        if (!design.netlist)
            qFatal("the generated netlist cannot be read");
        design.names = std::make_shared<Check::DesignNames>(*design.netlist);
        const Check::ConfigurationInput input = Check::readConfigurationInput(configuration);
        if (checkConfiguration(input, design).isEmpty())
            qFatal("the check finds nothing in the generated file");
    });
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

} // namespace

void checkWork(Suite &suite)
{
    const TestHost host;
    const int records = suite.scaled(100000);
    const int cells = suite.scaled(200000);
    const QString activity = host.write(QStringLiteral("activity.vcd"), QByteArray());
    const QByteArray mixed = mixedFile(records, activity);
    const QString configuration = host.write(QStringLiteral("records.vlr"), mixed);
    const QString design = host.path(QStringLiteral("design.json"));
    writeNetlist(design, cells);
    suite.compare(
        QStringLiteral("check %1 records against %2 cells").arg(records).arg(cells),
        [&] { return readBoth(design, mixed); }, [&] { return check(design, configuration); }, 1.6);
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
}
