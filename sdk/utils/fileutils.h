#pragma once

#include "hostexport.h"

#include <QFileDialog>
#include <QString>

namespace Utils {

/// The environment's file choosers.
class HOST_EXPORT FileUtils
{
public:
    /// Lets the user choose an existing file; empty if canceled. An empty `directory` means the
    /// folder last used with the same `caption`.
    static QString getOpenFileName(QWidget *parent, const QString &caption,
                                   const QString &directory, const QString &filter,
                                   QString *selectedFilter = nullptr,
                                   QFileDialog::Options options = QFileDialog::Options());
};

} // namespace Utils
