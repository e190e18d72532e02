#pragma once

#include "rawnetlist_p.h"

#include <memory>

namespace NlsData {

struct ElaborationLimits;
class NetlistData;
class ReadControl;

/// Finds the design in `raw` and flattens it, with one net per physical net. Throws ReadError if
/// `raw` is inconsistent. Changes `raw`. `allNames`: keep the other names of nets.
std::unique_ptr<NetlistData> elaborate(RawNetlist *raw, const ElaborationLimits &limits,
                                       ReadControl *control, bool allNames = false);

} // namespace NlsData
