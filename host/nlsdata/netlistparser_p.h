#pragma once

#include "rawnetlist_p.h"

#include <memory>

namespace NlsData {

class ReadControl;

/// Reads the text of a netlist file into a RawNetlist, which stays valid as long as the parser and
/// the text.
class NetlistParser
{
public:
    /// Bytes that must be allocated after the text.
    static const size_t PADDING;

    /// `withSources`: keep the cells' source positions.
    NetlistParser(const CellLibrary &library, ReadControl *control, bool withSources = false);
    ~NetlistParser();

    /// Throws ReadError if the text is not a netlist.
    RawNetlist parse(std::string_view text);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace NlsData
