#include "readnetlist.h"

#include "elaborator_p.h"
#include "netlistdata_p.h"
#include "netlistparser_p.h"
#include "readcontrol.h"
#include "texthasher_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstring>
#include <new>

namespace NlsData {

namespace {

constexpr qint64 maximumSize = 0xffffffff; // the parser's
constexpr qint64 chunk = 8 << 20;
constexpr int readPermille = 250;

/// A text with the room behind it that the parser asks for.
struct PaddedText
{
    explicit PaddedText(size_t textSize)
        : bytes(new char[textSize + NetlistParser::padding])
        , size(textSize)
    {
        std::memset(bytes.get() + size, 0, NetlistParser::padding);
    }
    std::string_view view() const { return {bytes.get(), size}; }

    std::unique_ptr<char[]> bytes;
    size_t size;
};

struct LoadedFile
{
    PaddedText text;
    std::unique_ptr<TextHasher> hasher; ///< reads the text: goes before it
};

LoadedFile loadFile(const QString &path, const ReadOptions &options)
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        throw ReadError{QStringLiteral("it does not exist")};
    if (info.isDir())
        throw ReadError{QStringLiteral("it is a folder")};
    if (!info.isFile())
        throw ReadError{QStringLiteral("it is no regular file")};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw ReadError{file.errorString()};
    const qint64 size = file.size();
    if (size > maximumSize)
        throw ReadError{QStringLiteral("it is larger than 4 GiB")};

    LoadedFile result{PaddedText(size_t(size)), nullptr};
    char *bytes = result.text.bytes.get();
    if (options.sha256)
        result.hasher = std::make_unique<TextHasher>(bytes);
    for (qint64 done = 0; done < size;) {
        const qint64 count = file.read(bytes + done, std::min(chunk, size - done));
        if (count < 0)
            throw ReadError{file.errorString()};
        if (count == 0)
            throw ReadError{QStringLiteral("it became shorter while it was read")};
        done += count;
        if (result.hasher)
            result.hasher->add(size_t(done));
        if (options.control)
            options.control->report(int(done * readPermille / size));
    }
    return result;
}

std::unique_ptr<NetlistData> readText(std::string_view text, const ReadOptions &options)
{
    const CellLibrary &library = options.library ? *options.library : CellLibrary::standard();
    NetlistParser parser(library, options.control, options.allNames);
    RawNetlist raw = parser.parse(text);
    return elaborate(&raw, options.limits, options.control, options.allNames);
}

/// Calls `read`, and turns what it throws into the sentence.
template<typename Read>
std::unique_ptr<Netlist> guarded(const QString &name, QString *error, const Read &read)
{
    QString cause;
    try {
        return NetlistData::makeNetlist(read());
    } catch (const ReadError &refusal) {
        cause = refusal.cause;
    } catch (const std::bad_alloc &) {
        cause = QStringLiteral("there is not enough memory");
    }
    if (error)
        *error = QCoreApplication::translate("NlsData", "Cannot read the netlist file '%1': %2.")
                     .arg(QDir::toNativeSeparators(name), cause);
    return nullptr;
}

} // namespace

std::unique_ptr<Netlist> readNetlist(const QString &path, QString *error,
                                     const ReadOptions &options)
{
    return guarded(path, error, [&] {
        LoadedFile file = loadFile(path, options);
        std::unique_ptr<NetlistData> data = readText(file.text.view(), options);
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
            *options.sha256 = sha256Of(text);
        return readText(padded.view(), options);
    });
}

Netlist *readNetlistFile(const QString &path, QString *error, bool reread)
{
    Q_UNUSED(reread) // nothing is kept from one read to the next
    return readNetlist(path, error).release();
}

} // namespace NlsData
