#pragma once

#include "workbench/tour/tourdriver.h"

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

    /// Clicks the tab of the view.
    void showTab(const QString &title) const;
    /// Saves with Ctrl+S, and expects the document to be on disk and unmodified.
    void save() const;
    /// The saved file has `text` in it.
    void expectSaved(const char *text) const;
};

// Each step acts and then checks what has come of it; the first that fails throws TourFailure.
// They are written to be run in this order.

void createFileByWizard(const Tour &tour);
void openFileFromProjectTree(const Tour &tour);
void setConditions(const Tour &tour);
void giveNetsRates(const Tour &tour);
void refuseUnusableActivityFiles(const Tour &tour);
void bindActivityFiles(const Tour &tour);
void seeCoverage(const Tour &tour);
void setClockEnables(const Tour &tour);
void findAndEditPorts(const Tour &tour);
void sortAndRemovePorts(const Tour &tour);
void findFlipFlopsAndMemories(const Tour &tour);
void saveFile(const Tour &tour);
void closeFile(const Tour &tour);
void reopenFileFromRecentFiles(const Tour &tour);

} // namespace Workbench
