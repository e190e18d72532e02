#pragma once

#include "workbench/panes/messagespane.h"
#include "workbench/session.h"

#include "support/testhost.h"

#include <QAction>
#include <QTemporaryDir>

#include <memory>

namespace Core {
class IView;
}

inline const QByteArray EmptyFile = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                    "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n"
                                    "<Config/>";

/// A test of the program's window: one session for all of its functions, since plug-ins are
/// initialised once in the life of a process, and a fresh project for each.
class WindowTest : public QObject
{
    Q_OBJECT

protected:
    Workbench::MainWindow &window() { return m_session->window(); }
    QAction *action(const char *name) { return window().findChild<QAction *>(QLatin1String(name)); }
    QString messages() { return window().messages()->toPlainText(); }
    Core::IView *openView(const QString &name, const QByteArray &bytes = EmptyFile);

    std::unique_ptr<TestHost> m_host;

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

private:
    QTemporaryDir m_plugins;
    std::unique_ptr<Workbench::Session> m_session;
};
