#pragma once

#include "host/utils/filewatcher.h"

#include <QHash>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QStringList>

class QWidget;

namespace Core {
class IView;
}

namespace Workbench {

class TextView;

/// Opens projects and files, and watches the files of open views: if another program changes one,
/// the user is asked whether to reload it.
class Documents : public QObject
{
    Q_OBJECT

public:
    /// `window` is the parent of questions, not owned.
    explicit Documents(QWidget *window);

    /// Opens `path` by its kind: a project, a file that a plug-in opens, a netlist, or a text
    /// file. Reports failures to the user.
    void open(const QString &path);

    /// Reloads the open file at `path` without asking.
    void reload(const QString &path);

    /// Opens the file as text at `line`, counted from 1.
    void openPlace(const QString &path, int line);

    /// Replaces the current project after closing its views. False if a view refused to close or
    /// the project cannot be read, which has been reported.
    bool openProject(const QString &path);

    /// Closes the views of the current project and the project. False if a view refuses.
    bool closeProject();

    /// Closes the open views one by one; false if one of them refuses.
    bool closeAll();

    /// Shows a file as text, whatever it is.
    TextView *openText(const QString &path);

    /// Whether open() would open the file other than as text.
    static bool isDocument(const QString &path);

signals:
    void opened(const QString &path);

    /// The user opens a file that looks like a netlist and is not the project's.
    void netlistFound(const QString &path);
    void message(const QString &text);
    void failed(const QString &text);

private:
    void openDocument(const QString &path);
    void tellCause(const QString &path, const QString &what);
    void openProjectBeside(const QString &path);
    void fail(QMessageBox::Icon icon, const QString &text);
    void follow(Core::IView *view);
    void onViewClosed(Core::IView *view);
    void onChanged(const QString &path);
    void onRemoved(const QString &path);
    void onRestored(const QString &path);
    void dropQuestion(const QString &path);
    void askAboutNext();
    bool askToReload(const QString &path);
    Core::IView *viewOf(const QString &path) const;

    QWidget *const m_window;
    Utils::FileWatcher m_watcher{Utils::FileWatcher::Compare::Content};
    QHash<Core::IView *, QString> m_followed; // open documents, not owned, and their files
    QStringList m_changed;                    // pending questions
    QTimer m_askLater;
    QString m_asked; // the file that the open question is about
    QPointer<QMessageBox> m_question;
};

} // namespace Workbench
