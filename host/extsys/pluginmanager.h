#pragma once

#include "hostexport.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>

namespace ExtSys {

class IPlugin;

/// Loads the plug-ins, runs their life cycle and keeps the object pool. GUI thread only.
class HOST_EXPORT PluginManager : public QObject
{
    Q_OBJECT

public:
    /// A library that could not be used, and the reason.
    struct Failure
    {
        QString fileName;
        QString reason;
    };

    static PluginManager *instance();

    /// Adds a plug-in that is linked rather than loaded; not owned.
    void addPlugin(IPlugin *plugin, const QString &name);

    /// Loads every library in `folder` in the order of the file names. Files not named like a
    /// library are ignored; a library that cannot be used becomes a failure. Libraries are never
    /// unloaded, because their views may outlive the plug-ins' shutDown().
    void loadFolder(const QString &folder);

    /// Calls initialize() on each plug-in that was added since the last call, then
    /// extensionsInitialized() on those that succeeded.
    void initializePlugins();

    /// Calls shutDown() in reverse order, deletes the pool's objects in reverse order of
    /// registration, and forgets the plug-ins.
    void shutDown();

    /// Names of the plug-ins that are initialized, in load order.
    QStringList pluginNames() const;
    QList<Failure> failures() const { return m_failures; }

    /// Publishes `object` on behalf of `plugin` and takes ownership of it.
    void addAutoReleasedObject(QObject *object, const IPlugin *plugin);

    /// The pool's objects of class `T`, in order of registration.
    template<typename T>
    QList<T *> objects() const
    {
        QList<T *> found;
        for (const Published &published : m_pool) {
            if (T *match = qobject_cast<T *>(published.object.data()))
                found.append(match);
        }
        return found;
    }

signals:
    void loadFailed(const QString &fileName, const QString &reason);

private:
    enum class State { Added, Running, Refused };
    struct Entry
    {
        QPointer<QObject> guard;
        IPlugin *plugin; // not owned
        QString name;
        State state;
    };

    struct Published
    {
        QPointer<QObject> object;
        const IPlugin *plugin; // who published it; compared only
    };

    PluginManager() = default;
    void load(const QString &path);
    void releaseObjects(const IPlugin *plugin);
    void fail(const QString &fileName, const QString &reason);

    QList<Entry> m_plugins;
    QList<Published> m_pool;
    QList<Failure> m_failures;
};

} // namespace ExtSys
