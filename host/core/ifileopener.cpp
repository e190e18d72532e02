#include "host/core/ifileopener.h"

#include "host/extsys/pluginmanager.h"

#include <QFileInfo>

namespace Core {

IFileOpener::IFileOpener() = default;

IFileOpener::~IFileOpener() = default;

IFileOpener *IFileOpener::forFile(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const QList<IFileOpener *> openers = ExtSys::PluginManager::instance()->objects<IFileOpener>();
    for (IFileOpener *opener : openers) {
        if (opener->suffixes().contains(suffix))
            return opener;
    }
    return nullptr;
}

} // namespace Core
