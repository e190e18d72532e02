#pragma once

#include "hostexport.h"

#include <QObject>
#include <QString>

namespace Core {

/// The project that the user works on.
class HOST_EXPORT Project : public QObject
{
    Q_OBJECT

public:
    ~Project() override;

    /// Adds the file at `path` (absolute or relative to the working folder) to the project. A file
    /// that is already in the project is not added again.
    void addFile(const QString &path);

private:
    friend class ProjectFile;
    explicit Project(class ProjectFile *d);

    class ProjectFile *const d;
};

} // namespace Core
