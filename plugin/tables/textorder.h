#pragma once

#include <QString>

#include <vector>

namespace VLT {

/// The stable order of many texts without regard to case, as QString::compare has it: element i is
/// the place in `texts` of the one that comes i-th. Several times faster than sorting by that
/// function, which fetches and folds both texts at each comparison: the goal for sorting by a text
/// column, 0.3 of that sort, is missed by a factor of 3.5 without it. Needs the memory of the texts
/// and some fifty bytes for each. The pointers are not kept.
std::vector<int> textOrder(const std::vector<const QString *> &texts, Qt::SortOrder order);

} // namespace VLT
