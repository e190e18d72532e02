#include "netlistfile_p.h"

#include "netlistparser_p.h"
#include "readcontrol.h"
#include "readnetlist.h"
#include "texthasher_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cstring>

namespace NlsData {

namespace {

constexpr qint64 MAXIMUM_SIZE = 0xffffffff; // the parser's
constexpr qint64 CHUNK = 8 << 20;
constexpr int READ_PERMILLE = 250;

} // namespace

PaddedText::PaddedText(size_t textSize)
    : bytes(new char[textSize + NetlistParser::PADDING])
    , size(textSize)
{
    std::memset(bytes.get() + size, 0, NetlistParser::PADDING);
}

NetlistFile::NetlistFile() = default;

NetlistFile::NetlistFile(NetlistFile &&other) = default;

NetlistFile::~NetlistFile() = default;

NetlistFile loadNetlistFile(const QString &path, const ReadOptions &options)
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        throw ReadError{QStringLiteral("the file does not exist")};
    if (info.isDir())
        throw ReadError{QStringLiteral("it is a folder")};
    if (!info.isFile())
        throw ReadError{QStringLiteral("not a regular file")};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        throw ReadError{file.errorString()};
    const qint64 size = file.size();
    if (size > MAXIMUM_SIZE)
        throw ReadError{QStringLiteral("the file is larger than 4 GiB")};

    NetlistFile result;
    result.text = std::make_unique<PaddedText>(size_t(size));
    char *bytes = result.text->bytes.get();
    if (options.sha256)
        result.hasher = std::make_unique<TextHasher>(bytes);
    for (qint64 done = 0; done < size;) {
        const qint64 count = file.read(bytes + done, std::min(CHUNK, size - done));
        if (count < 0)
            throw ReadError{file.errorString()};
        if (count == 0)
            throw ReadError{QStringLiteral("the file became shorter while it was read")};
        done += count;
        if (result.hasher)
            result.hasher->add(size_t(done));
        if (options.control)
            options.control->report(int(done * READ_PERMILLE / size));
    }
    return result;
}

QString netlistErrorText(const QString &name, const QString &cause)
{
    return QCoreApplication::translate("NlsData", "Cannot read the netlist file '%1': %2.")
        .arg(QDir::toNativeSeparators(name), cause);
}

} // namespace NlsData
