#pragma once

#include "check/names/namereview.h"

namespace Check {

struct ConfigurationInput;
struct DesignInput;

/// The activity files that fit another instance than the one that they are bound to, as records
/// whose name has moved: the name is that of the instance, the proposal the one that fits. A plan
/// of such edits is checked and applied like any other.
NameReview reviewScopes(const ConfigurationInput &input, const DesignInput &design);

} // namespace Check
