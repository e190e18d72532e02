#pragma once

#include "workbench/mainwindow.h"

#include <memory>

namespace Workbench {

/// The window with the plug-ins of a folder, loaded and initialized. Destroys the views first, then
/// shuts down the plug-ins, and destroys the window last.
class Session
{
public:
    /// `plugins` is a folder; empty for pluginFolder().
    explicit Session(const QString &plugins);
    ~Session();

    MainWindow &window() { return *m_window; }

private:
    std::unique_ptr<MainWindow> m_window;
};

} // namespace Workbench
