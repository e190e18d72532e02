#pragma once

#include <QStringList>

class QListWidget;

namespace VLT {

/// Makes the rows of `list`, which shows `texts` and takes the size of its first item for all, as
/// wide as the longest text.
void widenUniformRows(QListWidget *list, const QStringList &texts);

} // namespace VLT
