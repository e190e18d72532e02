#pragma once

#include "config/records.h"
#include "tables/recordmodel.h"

namespace VLT {

/// Simulation activity files. The columns of the two times are sortable but not shown.
class VcdFileModel : public RecordModel<VLT_VcdFile>
{
    Q_OBJECT

public:
    VcdFileModel(QList<VLT_VcdFile *> &records, QObject *parent);

    /// Notifies the views that the record at `row` has changed.
    void updateRow(int row);

    static bool lessThanByInst(VLT_VcdFile *const &left, VLT_VcdFile *const &right);
    static bool greaterThanByInst(VLT_VcdFile *const &left, VLT_VcdFile *const &right);
    /// By the full path.
    static bool lessThanByFile(VLT_VcdFile *const &left, VLT_VcdFile *const &right);
    static bool greaterThanByFile(VLT_VcdFile *const &left, VLT_VcdFile *const &right);
    /// VCD before SAIF.
    static bool lessThanByFileType(VLT_VcdFile *const &left, VLT_VcdFile *const &right);
    static bool greaterThanByFileType(VLT_VcdFile *const &left, VLT_VcdFile *const &right);
    /// Times by their number, regardless of the unit.
    static bool lessThanByStart(VLT_VcdFile *const &left, VLT_VcdFile *const &right);
    static bool greaterThanByStart(VLT_VcdFile *const &left, VLT_VcdFile *const &right);
    static bool lessThanByEnd(VLT_VcdFile *const &left, VLT_VcdFile *const &right);
    static bool greaterThanByEnd(VLT_VcdFile *const &left, VLT_VcdFile *const &right);
};

} // namespace VLT
