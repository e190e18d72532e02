#include "readnetlist.h"

#include "elaborator_p.h"
#include "netlistdata_p.h"
#include "netlistfile_p.h"
#include "netlistnotices.h"
#include "netlistparser_p.h"
#include "readcontrol.h"
#include "texthasher_p.h"

#include "host/utils/sha256.h"

#include <algorithm>
#include <new>

namespace NlsData {

namespace {

std::unique_ptr<NetlistData> readText(std::string_view text, const ReadOptions &options)
{
    const CellLibrary &library = options.library ? *options.library : CellLibrary::standard();
    NetlistParser parser(library, options.control, options.allNames);
    RawNetlist raw = parser.parse(text);
    return elaborate(&raw, options.limits, options.control, options.allNames);
}

/// Calls `read`, and turns its exceptions into the error sentence.
template<typename Read>
std::unique_ptr<Netlist> guarded(const QString &name, QString *error, const Read &read)
{
    QString cause;
    try {
        return NetlistData::makeNetlist(read());
    } catch (const ReadError &refusal) {
        cause = refusal.cause;
    } catch (const std::bad_alloc &) {
        cause = QStringLiteral("not enough memory");
    }
    if (error)
        *error = netlistErrorText(name, cause);
    return nullptr;
}

} // namespace

std::unique_ptr<Netlist> readNetlist(const QString &path, QString *error,
                                     const ReadOptions &options)
{
    return guarded(path, error, [&] {
        const Utils::FileStamp stamp = Utils::FileStamp::of(path);
        NetlistFile file = loadNetlistFile(path, options);
        std::unique_ptr<NetlistData> data = readText(file.text->view(), options);
        data->file = path;
        data->fileStamp = stamp;
        if (file.hasher)
            *options.sha256 = file.hasher->finish();
        return data;
    });
}

std::unique_ptr<Netlist> readNetlistText(std::string_view text, const QString &name, QString *error,
                                         const ReadOptions &options)
{
    return guarded(name, error, [&] {
        PaddedText padded(text.size());
        std::copy(text.begin(), text.end(), padded.bytes.get());
        if (options.sha256)
            *options.sha256 = Utils::Sha256::of(text);
        return readText(padded.view(), options);
    });
}

Netlist *readNetlistFile(const QString &path, QString *error, bool reread)
{
    Q_UNUSED(reread) // nothing is kept from one read to the next
    QString problem;
    std::unique_ptr<Netlist> netlist = readNetlist(path, &problem);
    NetlistNotices::get()->report(path, netlist.get(), problem);
    if (error && !netlist)
        *error = problem;
    return netlist.release();
}

} // namespace NlsData
