#include "check/activity/filekind.h"

#include <QByteArrayList>

#include <algorithm>

namespace Check {

namespace {

struct Signature
{
    QByteArray bytes;
    const char *name;
};

const char *binaryKind(const QByteArray &block)
{
    static const Signature signatures[] = {
        {QByteArrayLiteral("\x1f\x8b"), "a gzip archive"},
        {QByteArrayLiteral("BZh"), "a bzip2 archive"},
        {QByteArrayLiteral("\xfd"
                           "7zXZ"),
         "an xz archive"},
        {QByteArrayLiteral("\x28\xb5\x2f\xfd"), "a zstd archive"},
        {QByteArrayLiteral("PK\x03\x04"), "a zip archive"},
        {QByteArrayLiteral("\0\0\0\0\0\0\0\x01\x49"), "an FST dump"},
        {QByteArrayLiteral("\xfe\0\0\0"), "a compressed FST dump"},
        {QByteArrayLiteral("\x01\x38"), "an LXT dump"},
        {QByteArrayLiteral("\x13\x80"), "an LXT2 dump"},
        {QByteArrayLiteral("VZ"), "a VZT dump"},
        {QByteArrayLiteral("GHDLwave"), "a GHW dump"},
        {QByteArrayLiteral("\xff\xfe"), "UTF-16 text"},
        {QByteArrayLiteral("\xfe\xff"), "UTF-16 text"},
    };
    for (const Signature &signature : signatures) {
        if (block.startsWith(signature.bytes))
            return signature.name;
    }
    return block.contains('\0') ? "a binary file" : nullptr;
}

bool isBlank(char c)
{
    return uchar(c) <= ' ';
}

/// Where the text begins, behind blanks, comments and a byte order mark.
int textBegin(const QByteArray &block)
{
    int at = block.startsWith("\xef\xbb\xbf") ? 3 : 0;
    for (;;) {
        while (at < block.size() && isBlank(block.at(at)))
            ++at;
        int end = -1;
        if (block.mid(at, 2) == "/*")
            end = block.indexOf("*/", at) + 1;
        else if (block.mid(at, 2) == "//")
            end = block.indexOf('\n', at);
        else
            return at;
        if (end <= 0)
            return block.size();
        at = end + 1;
    }
}

} // namespace

FileKind fileKind(const QByteArray &block, QString *other)
{
    if (const char *name = binaryKind(block)) {
        *other = QLatin1String(name);
        return FileKind::Other;
    }
    const QByteArray text = block.mid(textBegin(block));
    if (text.isEmpty()) {
        *other = QStringLiteral("an empty file");
        return FileKind::Other;
    }
    static const QByteArrayList keywords{"$comment",   "$date",    "$version", "$timescale",
                                         "$scope",     "$var",     "$upscope", "$enddefinitions",
                                         "$attrbegin", "$dumpvars"};
    const auto wordEnd = std::find_if(text.begin(), text.end(), isBlank);
    const QByteArray word(text.constData(), int(wordEnd - text.begin()));
    const auto isBegin = [&](const QByteArray &keyword) { return keyword.startsWith(word); };
    const bool isCut = wordEnd == text.end();
    if (word.startsWith('$') &&
        (keywords.contains(word) ||
         (isCut && std::any_of(keywords.begin(), keywords.end(), isBegin)))) {
        const int variable = text.indexOf("$var");
        const bool isPort = text.mid(qMax(0, variable), 256).simplified().startsWith("$var port ");
        if (!isPort)
            return FileKind::Vcd;
        *other = QStringLiteral("an extended VCD (of ports)");
        return FileKind::Other;
    }
    if (text.startsWith('(')) {
        const QByteArray name = text.mid(1, 64).trimmed().toUpper();
        if (name.startsWith("SAIFILE") || (isCut && QByteArray("SAIFILE").startsWith(name)))
            return FileKind::Saif;
    }
    *other = QStringLiteral("text that is neither VCD nor SAIF");
    return FileKind::Other;
}

QString fileKindName(FileKind kind)
{
    return kind == FileKind::Vcd    ? QStringLiteral("vcd")
           : kind == FileKind::Saif ? QStringLiteral("saif")
                                    : QString();
}

} // namespace Check
