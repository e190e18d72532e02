#pragma once

#include "rawnetlist_p.h"

#include <memory>

namespace NlsData {

struct ElaborationLimits;
class NetlistData;
class ReadControl;

/// Finds the design in `raw` and lays it out flat, with one net per physical net. Throws ReadError
/// when `raw` is no consistent design. `raw` is changed. `allNames`: keep the other names of nets.
std::unique_ptr<NetlistData> elaborate(RawNetlist *raw, const ElaborationLimits &limits,
                                       ReadControl *control, bool allNames = false);

} // namespace NlsData
