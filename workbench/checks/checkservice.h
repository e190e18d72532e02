#pragma once

#include "workbench/checks/checkrun.h"
#include "workbench/checks/shareddesign.h"

#include "host/utils/filewatcher.h"

#include "qutil/ieventhandler.h"

#include <QObject>

#include <memory>

namespace Core {
class IView;
}

namespace NlsData {
class ReadControl;
}

namespace TE {
class Worker;
}

namespace Workbench {

/// Checks the files of open configurations one by one in a thread: each one when it is opened or
/// saved, and all of them after a change of netlist or device. If the input of a run changes, its
/// result is dropped and the run is repeated. Saving also records what the names mean, unless the
/// project turns that off, and stores in the project which scopes of activity files fit. Does not
/// change documents.
class CheckService : public QObject, public QUtil::IEventHandler
{
    Q_OBJECT

public:
    explicit CheckService(QObject *parent);
    /// Waits only until pending records of names are written.
    ~CheckService() override;

    struct State
    {
        CheckResult result;
        bool isChecked = false;  ///< there is a result
        bool isWaiting = false;  ///< a newer one is pending
        bool isModified = false; ///< the view has unsaved changes
    };

    /// The configuration whose view is or was last active; empty if none is open.
    QString current() const { return m_current; }

    /// Null when the configuration is not open.
    const State *state(const QString &path) const;

    SharedDesign *design() const { return m_design.get(); }
    /// For a thread that may outlive the service.
    std::shared_ptr<SharedDesign> sharedDesign() const { return m_design; }

    /// Checks an open configuration once more.
    void recheck(const QString &path);

    /// The same, and keeps in the project which scopes fit.
    void keepScopes(const QString &path);

    /// Waits until the names of all saved configurations are recorded.
    void finishRecording();

    /// The input of a run for the configuration.
    static CheckJob jobFor(const QString &path);

    void handleIEvent(const QUtil::IEvent *event) override;

signals:
    /// current() is another one, or its state has changed.
    void changed();
    /// What was found out about an open configuration may have changed.
    void outdated(const QString &path);
    void message(const QString &text);
    void failed(const QString &text);

private:
    void onViewActivated(Core::IView *view);
    void onViewClosed(Core::IView *view);
    void onTitleChanged(Core::IView *view);
    void schedule(const QString &path, bool isSaved);
    void scheduleAll();
    void startNext();
    void onDone();
    void dropDesignWhenIdle();

    struct OpenFile
    {
        QString path;
        Utils::FileStamp stamp; ///< as last read or written
    };

    const std::shared_ptr<SharedDesign> m_design = std::make_shared<SharedDesign>();
    QHash<Core::IView *, OpenFile> m_views; // not owned
    QHash<QString, State> m_states;         // by path
    QString m_current;
    QVector<CheckJob> m_waiting;
    CheckJob m_running; // while there is a worker
    bool m_isSuperseded = false;
    CheckResult m_result; // of the worker
    std::unique_ptr<NlsData::ReadControl> m_control;
    std::unique_ptr<TE::Worker> m_worker;
};

} // namespace Workbench
