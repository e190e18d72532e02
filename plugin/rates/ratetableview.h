#pragma once

#include "rates/ratemodel.h"
#include "tables/recordpage.h"

namespace NlsData {
class Net;
}

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
    /// Takes ownership of `rates`; its previous records are not deleted.
    void setData(const QList<VLT_Rate *> &rates);

    /// True for toggle rates up to 200 %, false for signal rates.
    void setValueType(bool toggle);
    bool valueType() const { return m_model.unitType(); }

    /// Clears all values.
    void resetValue();

    /// Adds the nets of these paths that the netlist has and that are not listed yet, and shows
    /// them. Returns their number.
    int addNets(const QStringList &paths);

    /// Wide enough for both columns.
    QSize sizeHint() const override;

public slots:
    /// Lets the user choose nets or ports and adds those that are not listed yet.
    void onNew();
    void onShowContextMenu(QPoint point);

signals:
    /// Not emitted: the table itself marks its view as modified.
    void modified();

private:
    void chooseNets();
    void appendNets(const QList<NlsData::Net *> &nets);
    void addPorts();

    QTableView *const m_table;
    Rate_Type m_type = RateOfNets;
};

} // namespace VLT
