#pragma once

#include "hostexport.h"

#include <QObject>

namespace ExtSys {

/// Base class of every plug-in.
///
/// Life cycle: the environment creates the object through Qt's plug-in entry, calls initialize() on
/// every plug-in in load order, then extensionsInitialized() in the same order, and at exit
/// shutDown() in reverse. After the last shutDown() it deletes the auto-released objects in reverse
/// order of registration. A plug-in whose initialize() returns false is ignored from then on.
class HOST_EXPORT IPlugin : public QObject
{
    Q_OBJECT

public:
    IPlugin();
    ~IPlugin() override;

    virtual bool initialize() = 0;
    virtual void extensionsInitialized() = 0;
    virtual void shutDown() = 0;

    /// Publishes `object` in the environment's object pool, which takes ownership.
    void addAutoReleasedObject(QObject *object);
};

} // namespace ExtSys

Q_DECLARE_INTERFACE(ExtSys::IPlugin, "ExtSys.IPlugin/1.0")
