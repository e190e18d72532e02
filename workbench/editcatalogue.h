#pragma once

class QWidget;

namespace Workbench {

/// Shows where the user's own devices and cell libraries are, and opens the file or folder that the
/// user chooses in the desktop's program for it. What is missing is created, without entries.
void editCatalogue(QWidget *window);

} // namespace Workbench
