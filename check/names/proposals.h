#pragma once

#include "check/names/namereview.h"

namespace Check {

/// Proposes names for the records that are missing or moved. `records` are all records of a
/// configuration with their states. In this order: what drives the same net (sure); the same name
/// spelled differently; one substitution that explains a whole group (both likely). Never by
/// similarity, and no two names of a section become one.
void proposeNames(QVector<ReviewedRecord> *records, const DesignNames &design);

/// Takes proposals back until no two names of a section become one. `stays` says which records
/// without a proposal keep their names; the others are going to be removed.
void resolveConflicts(QVector<ReviewedRecord> *records,
                      const std::function<bool(const ReviewedRecord &)> &stays);

} // namespace Check
