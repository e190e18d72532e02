#pragma once

#include <QGuiApplication>

namespace VLT {

/// Shows the wait cursor during its lifetime, for work that is slow on a large design.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(WaitCursor)
};

} // namespace VLT
