#pragma once

#include "hostexport.h"

namespace TE {

class FlowManager;

/// Entry to the design flow.
class HOST_EXPORT TaskEngine
{
public:
    static TaskEngine *instance();

    /// The flow of the current project, owned by the environment; never null.
    FlowManager *flowManager() const;

private:
    TaskEngine() = default;
};

} // namespace TE
