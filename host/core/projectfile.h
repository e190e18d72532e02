#pragma once

#include "hostexport.h"

#include "host/core/jsontext.h"

#include <QHash>
#include <QJsonObject>
#include <QObject>
#include <QPair>
#include <QStringList>

#include <functional>
#include <memory>

namespace Core {

class Project;

/// The host's side of a project. Its file is JSON with the extension ".fpgaproj":
///
///     {"name": "...", "device": "<id>", "top": "...", "sources": ["..."], "files": ["..."],
///      "synthesis": {"program": "...", "arguments": ["..."]},
///      "results": {"RES.netlist": "..."}, "recordNames": true,
///      "activityScopes": {"<file>": {"<instance>": "<scope>"}}}
///
/// Paths are relative to the project file's folder. Unknown members are kept, and so are order and
/// spelling of everything that a change does not concern. Every change is saved at once.
class HOST_EXPORT ProjectFile : public QObject
{
    Q_OBJECT

public:
    /// Reads a project file. Null on failure, with one sentence in `error` that names the file.
    static std::unique_ptr<Project> load(const QString &path, QString *error);

    static ProjectFile *of(const Project *project);

    /// The current project's; null if none is open.
    static ProjectFile *current();

    /// Absolute path of the project file, and of its folder, the working folder of the flow.
    QString path() const { return m_path; }
    QString folder() const;
    QString name() const;

    /// Creates a project file that has only the name. False on failure, with one sentence in
    /// `error`; an existing file is not changed.
    static bool create(const QString &path, const QString &name, QString *error);

    void setName(const QString &name);

    QString device() const;
    void setDevice(const QString &id);

    /// The module that synthesis starts from; empty when the project does not name it.
    QString top() const;
    void setTop(const QString &module);

    /// Absolute paths, in the order of the project file.
    QStringList sources() const;
    QStringList files() const;

    /// Lines of sources that keep their order are not changed.
    void setSources(const QStringList &paths);

    /// Added at the front of a list with one file per line, otherwise at its end: one line changes.
    void addFile(const QString &path);
    void removeFile(const QString &path);

    /// The synthesis command; an empty program when the project has none.
    QString synthesisProgram() const;
    QStringList synthesisArguments() const;

    /// An empty program removes the command from the project.
    void setSynthesis(const QString &program, const QStringList &arguments);

    /// Whether saving a configuration also records what its names mean; so it is unless the project
    /// turns it off.
    bool recordsNames() const;
    void setRecordsNames(bool records);

    /// Scopes that were found for activity files: by the file's absolute path and the path of the
    /// instance, which is empty for the design.
    QHash<QPair<QString, QString>, QString> activityScopes() const;

    /// Adds scopes, or replaces those of the same file and instance. What else is in that member is
    /// kept.
    void addActivityScopes(const QHash<QPair<QString, QString>, QString> &scopes);

    /// Absolute path of the result; empty if the project does not name it.
    QString resultFile(const QString &key) const;
    void setResultFile(const QString &key, const QString &path);

    /// Absolute paths of all results.
    QStringList resultFiles() const;

    /// Writes the project file; false on failure, with one sentence in `error`.
    bool save(QString *error) const;

    /// Calls `changes` and saves the project once afterwards. False if that failed; saveFailed()
    /// has given the reason.
    bool changeTogether(const std::function<void()> &changes);

signals:
    void changed();
    void fileAdded(const QString &path);

    /// A change could not be saved; it is in effect as long as the project is open.
    void saveFailed(const QString &message);

private:
    ProjectFile(const QString &path, const QByteArray &text);
    QStringList absolutePaths(const QString &member) const;
    QString absolutePath(const QString &path) const;
    QString relativePath(const QString &path) const;
    void set(const QStringList &member, const QJsonValue &value);
    bool update();

    const QString m_path;
    JsonText m_text;
    QJsonObject m_data; // parsed from the text
    bool m_together = false;
};

} // namespace Core
