#pragma once

#include "hostexport.h"

namespace Core {

class Project;

/// Keeps the current project.
class HOST_EXPORT ProjectManager
{
public:
    /// The open project, owned by the environment; null if no project is open.
    static Project *currentProject();
};

} // namespace Core
