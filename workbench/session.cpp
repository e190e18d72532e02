#include "workbench/session.h"

#include "workbench/application.h"
#include "workbench/iconstyle.h"

#include "host/core/projectsession.h"
#include "host/core/viewarea.h"
#include "host/extsys/pluginmanager.h"
#include "host/utils/columnsharing.h"

#include <QApplication>

namespace Workbench {

Session::Session(const QString &plugins)
{
    QApplication::setStyle(new IconStyle);
    m_window = std::make_unique<MainWindow>();
    Utils::ColumnSharing::setEnabled(true);
    auto *manager = ExtSys::PluginManager::instance();
    manager->loadFolder(plugins.isEmpty() ? pluginFolder() : plugins);
    manager->initializePlugins();
    m_window->takeUpPlugins();
}

Session::~Session()
{
    // The event loop that would delete closed views has ended; a view must not outlive its plug-in.
    Core::ViewArea::get()->discardAllViews();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    ExtSys::PluginManager::instance()->shutDown();
    Core::ProjectSession::get()->close();
    m_window.reset();
}

} // namespace Workbench
