#include "designdata.h"
#include "measure.h"
#include "recorddata.h"
#include "suite.h"
#include "works.h"

#include "document/vltview.h"
#include "nlsdata/netlistreader.h"
#include "support/testhost.h"

#include <QDomDocument>
#include <QFile>

#include <malloc.h>

#include <memory>

using namespace VLT;

namespace {

std::unique_ptr<VLTView> makeView(const TestHost &host, const QString &netlist)
{
    NlsData::Netlist *read = NlsData::readNetlistFile(netlist, nullptr, false);
    if (!read)
        qFatal("the netlist cannot be read");
    return std::make_unique<VLTView>(host.device(), read);
}

double openFile(VLTView *view, const QString &file)
{
    return seconds([&] {
        if (!view->readCfgFile(file))
            qFatal("the view does not open the generated file");
    });
}

double parseDom(const QByteArray &bytes)
{
    QDomDocument document;
    malloc_trim(0);
    return seconds([&] {
        if (!document.setContent(bytes))
            qFatal("the floor cannot parse the generated file");
    });
}

} // namespace

double viewPeak(const QString &netlist, const QString &configuration)
{
    const TestHost host;
    std::unique_ptr<VLTView> view;
    return peakBytes([&] {
        view = makeView(host, netlist);
        openFile(view.get(), configuration);
        view->resize(1200, 800);
        paint(view.get());
    });
}

void documentWork(Suite &suite)
{
    const TestHost host;
    const QString activity = host.write(QStringLiteral("activity.vcd"), QByteArray());
    const int records = suite.scaled(100000);
    QStringList files;
    for (int factor : {1, 2, 4})
        files.append(host.write(QStringLiteral("records%1.vlr").arg(factor),
                                mixedFile(factor * records, activity)));

    const auto open = [&](int factor) {
        const auto view = makeView(host, host.netlistPath());
        malloc_trim(0); // for the floor too: neither is to find memory that the other has left
        return openFile(view.get(), files[factor / 2]);
    };
    const auto save = [&](int factor) {
        const auto view = makeView(host, host.netlistPath());
        openFile(view.get(), files[factor / 2]);
        // As for the user, the allocator has swept up after the opening when the first save comes.
        paint(view.get());
        malloc_trim(0);
        return seconds([&] {
            if (!view->writeToFile())
                qFatal("the view does not save");
        });
    };

    // From here on the files are what the product itself saves.
    for (int factor : {1, 2, 4})
        save(factor);
    const QByteArray bytes = host.read(QStringLiteral("records1.vlr"));
    const TokenCopy copy(bytes);
    const QString copied = host.path(QStringLiteral("copy.vlr"));
    const auto write = [&] {
        return seconds([&] {
            if (!copy.writeTo(copied))
                qFatal("the floor cannot write");
        });
    };
    write();
    if (host.read(QStringLiteral("copy.vlr")) != bytes)
        qFatal("the floor does not write what the product writes");

    suite.compare(
        QStringLiteral("open a configuration of %1 records").arg(records),
        [&] { return parseDom(bytes); }, [&] { return open(1); }, 2.5);
    suite.compare(
        QStringLiteral("save it"), write, [&] { return save(1); }, 1.3);
    suite.growth(QStringLiteral("growth: open, records"), records, open);
    suite.growth(QStringLiteral("growth: save, records"), records, save);

    const QString peak = QStringLiteral("--peak");
    suite.memory(QStringLiteral("peak memory of that view, against the file's size"),
                 double(bytes.size()), numberFromChild({peak, host.netlistPath(), files[0]}), 0);
    const int cells = suite.scaled(200000);
    const QString design = host.path(QStringLiteral("design.json"));
    const qint64 size = writeNetlist(design, cells);
    const QString empty = host.write(QStringLiteral("empty.vlr"), mixedFile(0, activity));
    suite.memory(
        QStringLiteral("peak memory of a view on %1 cells, against the netlist's size").arg(cells),
        double(size), numberFromChild({peak, design, empty}), 0);
}
