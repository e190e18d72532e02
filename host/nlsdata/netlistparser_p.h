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
    /// Bytes that must be allocated behind the text.
    static const size_t padding;

    /// `withSources`: keep the cells' source positions.
    NetlistParser(const CellLibrary &library, ReadControl *control, bool withSources = false);
    ~NetlistParser();

    /// Throws ReadError when the text is no netlist.
    RawNetlist parse(std::string_view text);

private:
    class Private;
    const std::unique_ptr<Private> d;
};

} // namespace NlsData
