#pragma once

#include <QGuiApplication>

namespace VLT {

/// Shows the wait cursor while it lives: for work that takes its time on a large design.
class WaitCursor
{
public:
    WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
    Q_DISABLE_COPY(WaitCursor)
};

} // namespace VLT
