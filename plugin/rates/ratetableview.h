#pragma once

#include "rates/ratemodel.h"
#include "tables/recordpage.h"

namespace VLT {

enum Rate_Type {
    RateOfNets = 0,
    RateOfPorts = 1,
};

/// A table of toggle rates, of nets or of ports, in one unit. It owns its records.
class RateTableView : public RecordPage<RateModel>
{
    Q_OBJECT

public:
    explicit RateTableView(QWidget *parent = nullptr);

    void setType(Rate_Type type) { m_type = type; }
    using TablePage::setView;

    const QList<VLT_Rate *> &getData() const { return m_records.list(); }
    QVector<VLT_Rate> rates() const { return m_records.values(); }
    /// Takes the records of `rates` in place of its own, which it does not delete.
    void setData(const QList<VLT_Rate *> &rates);

    /// True for toggle rates up to 200 %, false for signal rates.
    void setValueType(bool toggle);
    bool valueType() const { return m_model.unitType(); }

    /// Clears all values.
    void resetValue();

    /// Wide enough for both columns.
    QSize sizeHint() const override;

public slots:
    /// Lets the user choose nets or ports, and lists those that are not yet listed.
    void onNew();
    void onShowContextMenu(QPoint point);

signals:
    /// Not emitted: the table marks its view itself.
    void modified();

private:
    void addNets();
    void addPorts();

    QTableView *const m_table;
    Rate_Type m_type = RateOfNets;
};

} // namespace VLT
