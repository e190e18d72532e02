#include "conditions/vltcommonwidget.h"
#include "config/vlrfile.h"
#include "document/vltenablesetwidget.h"
#include "document/vltratewidget.h"
#include "document/vltview.h"
#include "support/testhost.h"

#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"

#include <QApplication>
#include <QDomDocument>

#include <cstdint>
#include <cstdlib>
#include <optional>

namespace {

/// What a view on the file would save; nothing when the file does not open, which only the DOM
/// parser may still decide.
std::optional<QByteArray> reopened(const TestHost &host, const QByteArray &bytes)
{
    VLT::VLTView view(host.device(), NlsData::readNetlistFile(host.netlistPath(), nullptr, false));
    if (!view.getVoltageInfo())
        std::abort();
    const bool opened = view.readCfgFile(host.write(QStringLiteral("a.vlr"), bytes));
    const bool parsed =
        VLT::inspectFile(bytes) == VLT::VlrContent::NoRoot || QDomDocument().setContent(bytes);
    if (opened != parsed)
        std::abort();
    if (!opened)
        return std::nullopt;
    const auto writeSections = [&view](QXmlStreamWriter *writer) {
        view.findChild<VLT::VLTSettingWidget *>()->writeData(writer);
        view.findChild<VLT::VLTRateWidget *>()->writeData(writer);
        view.findChild<VLT::VLTEnableSetWidget *>()->writeData(writer);
    };
    QByteArray saved;
    if (!VLT::composeFile(writeSections, &saved))
        std::abort(); // what could be read can be written
    return saved;
}

} // namespace

/// Opens any bytes as a configuration file. What opens must come out the same after it has been
/// saved and opened again.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_vlr";
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
