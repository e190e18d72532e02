#pragma once

#include "workbench/tourdriver.h"

#include <QString>

namespace Workbench {

/// What the steps of the tour share.
struct Tour
{
    TourDriver &driver;
    QString folder;   ///< of the pictures and the configuration, absolute
    QString project;  ///< folder of the copy of the sample project
    QString fileName; ///< of the configuration, without the suffix

    QString file() const { return folder + QLatin1Char('/') + fileName + QLatin1String(".vlr"); }
    QByteArray fileText() const;
};

// Each step acts and then checks what has come of it; the first that fails throws TourFailure.
// They are written to be run in this order.

void createFileByWizard(const Tour &tour);
void openFileFromProjectTree(const Tour &tour);
void saveFile(const Tour &tour);
void closeFile(const Tour &tour);
void reopenFileFromRecentFiles(const Tour &tour);

} // namespace Workbench
