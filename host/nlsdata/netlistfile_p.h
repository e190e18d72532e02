#pragma once

#include <QString>

#include <memory>
#include <string_view>

namespace NlsData {

class TextHasher;
struct ReadOptions;

/// A text with the room behind it that the parser asks for.
struct PaddedText
{
    explicit PaddedText(size_t textSize);
    std::string_view view() const { return {bytes.get(), size}; }

    std::unique_ptr<char[]> bytes;
    size_t size;
};

/// The content of a netlist file, and what computes its hash where the options ask for that.
struct NetlistFile
{
    NetlistFile();
    NetlistFile(NetlistFile &&other);
    ~NetlistFile();

    std::unique_ptr<PaddedText> text;
    std::unique_ptr<TextHasher> hasher; ///< reads the text: goes before it
};

/// Throws ReadError.
NetlistFile loadNetlistFile(const QString &path, const ReadOptions &options);

/// The sentence for the user about a netlist that could not be read.
QString netlistErrorText(const QString &name, const QString &cause);

} // namespace NlsData
