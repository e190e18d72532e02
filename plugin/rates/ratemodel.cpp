#include "rates/ratemodel.h"

namespace VLT {

namespace {

/// A negative number clears the value.
bool storeValue(VLT_Rate &rate, const QVariant &value)
{
    const QString text = value.toDouble() < 0 ? QString() : value.toString();
    if (text == rate.value)
        return false;
    rate.value = text;
    return true;
}

} // namespace

RateModel::RateModel(QList<VLT_Rate *> &records, QObject *parent)
    : RecordModel(nullptr, records, parent,
                  {Column::text("Name", &VLT_Rate::name)
                       .refusingEdits()
                       .sortedBy(lessThanByName, greaterThanByName, &VLT_Rate::name),
                   Column::served("Value", [this](const VLT_Rate &rate,
                                                  int role) { return valueData(rate, role); })
                       .storedBy(storeValue)
                       .editable()
                       .sortedBy(lessThanByRate, greaterThanByRate, &VLT_Rate::value)})
{
}

void RateModel::setUnitType(bool toggle)
{
    m_toggle = toggle;
    reload();
}

QVariant RateModel::valueData(const VLT_Rate &rate, int role) const
{
    if (role == Qt::EditRole)
        return rate.value;
    if ((role != Qt::DisplayRole && role != Qt::ToolTipRole) || rate.value.isEmpty())
        return {};
    return m_toggle ? rate.value + QLatin1Char('%') : rate.value;
}

bool RateModel::lessThanByName(VLT_Rate *const &left, VLT_Rate *const &right)
{
    return left->name.compare(right->name, Qt::CaseInsensitive) < 0;
}

bool RateModel::greaterThanByName(VLT_Rate *const &left, VLT_Rate *const &right)
{
    return left->name.compare(right->name, Qt::CaseInsensitive) > 0;
}

bool RateModel::lessThanByRate(VLT_Rate *const &left, VLT_Rate *const &right)
{
    return left->value.compare(right->value, Qt::CaseInsensitive) < 0;
}

bool RateModel::greaterThanByRate(VLT_Rate *const &left, VLT_Rate *const &right)
{
    return left->value.compare(right->value, Qt::CaseInsensitive) > 0;
}

} // namespace VLT
