#pragma once

#include "hostexport.h"

#include <QString>

namespace TE {

/// The steps of the design flow and their results.
class HOST_EXPORT FlowManager
{
public:
    /// Absolute path of the file with the result `key`, whether or not it exists yet; empty if the
    /// project names no such result or no project is open.
    QString resultFile(const QString &key) const;

private:
    friend class FlowControl;
    explicit FlowManager(class FlowControl *d);

    class FlowControl *const d;
};

} // namespace TE
