#pragma once

#include "workbench/mainwindow.h"

#include <memory>

namespace Workbench {

/// The program while its window is there: the plug-ins of a folder, initialised, and the window.
/// When it goes, the views go first, then the plug-ins are shut down, then the window goes.
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
