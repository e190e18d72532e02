#pragma once

#include <QString>

#include <vector>

namespace VLT {

/// The stable case-insensitive order of many texts, consistent with QString::compare: element i is
/// the index in `texts` of the i-th text. Several times faster than sorting by that function, which
/// fetches and folds both texts at each comparison: the goal for sorting by a text column, 0.3 of
/// that sort, is missed by a factor of 3.5 without it. Needs the memory of the texts and some fifty
/// bytes for each. The pointers are not kept.
std::vector<int> textOrder(const std::vector<const QString *> &texts, Qt::SortOrder order);

} // namespace VLT
