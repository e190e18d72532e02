#pragma once

#include "config/records.h"
#include "tables/recordmodel.h"

namespace VLT {

class RateModel : public RecordModel<VLT_Rate>
{
    Q_OBJECT

public:
    RateModel(QList<VLT_Rate *> &records, QObject *parent);

    /// True for toggle rates, shown in percent; false for signal rates, shown bare.
    void setUnitType(bool toggle);
    bool unitType() const { return m_toggle; }

    static bool lessThanByName(VLT_Rate *const &left, VLT_Rate *const &right);
    static bool greaterThanByName(VLT_Rate *const &left, VLT_Rate *const &right);
    /// As texts, which the values are: 10 before 9.
    static bool lessThanByRate(VLT_Rate *const &left, VLT_Rate *const &right);
    static bool greaterThanByRate(VLT_Rate *const &left, VLT_Rate *const &right);

private:
    QVariant valueData(const VLT_Rate &rate, int role) const;

    bool m_toggle = true;
};

} // namespace VLT
