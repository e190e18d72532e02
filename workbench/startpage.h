#pragma once

#include "workbench/recentfiles.h"

#include <QScrollArea>

#include <functional>

class QAction;
class QTabWidget;
class QVBoxLayout;

namespace Workbench {

/// Shown while no view is open: offers ways to start, or the next steps of the open project.
class StartPage : public QScrollArea
{
    Q_OBJECT

public:
    /// Actions that the page offers; not owned, must outlive the page.
    struct Actions
    {
        QAction *newProject;
        QAction *open;
        QAction *projectSettings;
        QAction *chooseDevice;
        QAction *runSynthesis;
    };
    explicit StartPage(const Actions &actions, QWidget *parent = nullptr);

    /// A widget that shows `views` while there are any, else this page. Owns both.
    QWidget *around(QTabWidget *views);

    /// Remembers the file if it is a project.
    void addRecent(const QString &path);

signals:
    /// A project or a configuration is to be opened.
    void fileChosen(const QString &path);
    void configurationWanted();
    void failed(const QString &text);

private:
    using Run = std::function<void()>;

    void showEvent(QShowEvent *event) override;
    void onProjectChanged();
    void updateLater();
    void rebuild();
    void openSample();
    void addFirstSteps(QVBoxLayout *layout);
    void fillForProject(QVBoxLayout *left, QVBoxLayout *right);
    void fillForStart(QVBoxLayout *left, QVBoxLayout *right);
    void addFiles(QVBoxLayout *layout, const QStringList &paths, const QString &none);
    void addHeading(QVBoxLayout *layout, const QString &text);
    void addLink(QVBoxLayout *layout, const char *name, const QString &title,
                 const QString &description, const Run &run);

    const Actions m_actions;
    RecentFiles m_recent;
    bool m_outdated = true;
};

} // namespace Workbench
