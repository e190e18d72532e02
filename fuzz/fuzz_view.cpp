#include "config/configurationfile.h"
#include "document/vltview.h"
#include "support/testhost.h"
#include "tables/page.h"

#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"

#include <QApplication>
#include <QDomDocument>

#include <cstdint>
#include <cstdlib>
#include <optional>

namespace {

/// What a view on the file would save; nothing when the file does not open, which by then only the
/// DOM parser may refuse.
std::optional<QByteArray> reopened(const TestHost &host, const QByteArray &bytes)
{
    VLT::VLTView view(host.device(), NlsData::readNetlistFile(host.netlistPath(), nullptr, false));
    if (!view.getVoltageInfo())
        std::abort();
    const bool opened = view.readCfgFile(host.write(QStringLiteral("a.vlr"), bytes));
    QDomDocument document;
    if (opened != (VLT::parseFile(bytes, &document) != VLT::VlrContent::Invalid))
        std::abort();
    if (!opened)
        return std::nullopt;
    const auto writeSections = [&view](QXmlStreamWriter *writer) {
        for (const VLT::Page *page : view.pages())
            page->writeData(writer);
    };
    QByteArray saved;
    if (!VLT::composeFile(writeSections, &saved))
        std::abort(); // what could be read can be written
    VLT::ReadReport report;
    QByteArray again;
    QString offender;
    if (!VLT::writeConfiguration(VLT::readConfiguration(saved, &report), &again, &offender) ||
        again != saved)
        std::abort();
    return saved;
}

} // namespace

/// Opens any bytes as a configuration file in a view. What opens must come out the same after it
/// has been saved and opened again, and the library must make the same of what was saved.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_view";
    static char *argv[] = {name, nullptr};
    static QApplication application(argc, argv);
    static const TestHost host;

    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    if (VLT::inspectFile(bytes) == VLT::VlrContent::Invalid)
        return 0;
    const std::optional<QByteArray> saved = reopened(host, bytes);
    if (saved && reopened(host, *saved) != saved)
        std::abort();
    return 0;
}
