#pragma once

#include "hostexport.h"

#include <QObject>
#include <QString>

#include <memory>

namespace Core {

class Project;

/// The host's side of the project manager. One project is open at a time.
class HOST_EXPORT ProjectSession : public QObject
{
    Q_OBJECT

public:
    static ProjectSession *get();

    /// Opens a project that replaces the current one. On failure returns null, with one sentence in
    /// `error`, and keeps the current project.
    Project *open(const QString &path, QString *error);
    void close();

    Project *current() const { return m_current.get(); }

signals:
    /// Another project is current, or none. The former one still exists.
    void currentProjectChanged();

private:
    ProjectSession() = default;
    void setCurrent(std::unique_ptr<Project> project);

    std::unique_ptr<Project> m_current;
};

} // namespace Core
