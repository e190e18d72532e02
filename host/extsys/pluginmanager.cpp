#include "host/extsys/pluginmanager.h"

#include "extsys/iplugin.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>
#include <QPluginLoader>

#include <algorithm>

namespace ExtSys {

PluginManager *PluginManager::instance()
{
    // Intentionally leaked: plug-ins may use it while the process ends.
    static PluginManager *const manager = new PluginManager;
    return manager;
}

void PluginManager::addPlugin(IPlugin *plugin, const QString &name)
{
    m_plugins.append({plugin, plugin, name, State::Added});
}

void PluginManager::loadFolder(const QString &folder)
{
    const QDir dir(folder);
    if (!dir.exists()) {
        fail(QDir::toNativeSeparators(folder), tr("The plug-in folder does not exist."));
        return;
    }
    const QFileInfoList files = dir.entryInfoList(QDir::Files, QDir::Name);
    for (const QFileInfo &file : files) {
        if (QLibrary::isLibrary(file.fileName()))
            load(file.absoluteFilePath());
    }
}

void PluginManager::load(const QString &path)
{
    const QString fileName = QFileInfo(path).fileName();
    QPluginLoader loader(path);
    loader.setLoadHints(QLibrary::PreventUnloadHint);
    QObject *root = loader.instance();
    if (!root) {
        fail(fileName, loader.errorString());
        return;
    }
    auto *plugin = qobject_cast<IPlugin *>(root);
    if (!plugin) {
        fail(fileName, tr("The library is a Qt plug-in but does not implement the interface %1.")
                           .arg(QString::fromLatin1(qobject_interface_iid<IPlugin *>())));
        return;
    }
    for (const Entry &entry : qAsConst(m_plugins)) {
        if (entry.plugin == plugin) // the same library under a second name
            return;
    }
    addPlugin(plugin, fileName);
}

void PluginManager::initializePlugins()
{
    const int count = m_plugins.size();
    QList<int> started;
    for (int i = 0; i < count; ++i) {
        if (m_plugins.at(i).state != State::Added)
            continue;
        const bool ok = m_plugins.at(i).plugin->initialize();
        m_plugins[i].state = ok ? State::Running : State::Refused;
        if (ok) {
            started.append(i);
        } else {
            releaseObjects(m_plugins.at(i).plugin);
            fail(m_plugins.at(i).name, tr("The plug-in could not be initialized."));
        }
    }
    for (int i : qAsConst(started))
        m_plugins.at(i).plugin->extensionsInitialized();
}

void PluginManager::shutDown()
{
    while (!m_plugins.isEmpty()) {
        const Entry entry = m_plugins.takeLast();
        if (entry.state == State::Running && entry.guard)
            entry.plugin->shutDown();
    }
    releaseObjects(nullptr);
    m_failures.clear();
}

QStringList PluginManager::pluginNames() const
{
    QStringList names;
    for (const Entry &entry : m_plugins) {
        if (entry.state == State::Running)
            names.append(entry.name);
    }
    return names;
}

void PluginManager::addAutoReleasedObject(QObject *object, const IPlugin *plugin)
{
    const auto same = [object](const Published &p) { return p.object == object; };
    if (object && std::none_of(m_pool.cbegin(), m_pool.cend(), same))
        m_pool.append({object, plugin});
}

/// Deletes the objects that `plugin` published, the latest first; null means all objects.
void PluginManager::releaseObjects(const IPlugin *plugin)
{
    for (int i = m_pool.size() - 1; i >= 0; i = qMin(i, m_pool.size()) - 1) {
        if (!plugin || m_pool.at(i).plugin == plugin)
            delete m_pool.takeAt(i).object.data();
    }
}

void PluginManager::fail(const QString &fileName, const QString &reason)
{
    m_failures.append({fileName, reason});
    emit loadFailed(fileName, reason);
}

} // namespace ExtSys
