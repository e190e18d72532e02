#pragma once

#include "config/configuration.h"
#include "rates/vcdfilemodel.h"
#include "tables/recordlist.h"
#include "tables/tablepage.h"

#include <memory>

class QComboBox;
class QDomElement;
class QDoubleSpinBox;
class QXmlStreamWriter;

namespace VLT {

namespace Ui {
class VcdFileTableView;
}

/// Simulation activity files, the default rates of signals that neither a file nor an explicit
/// rate covers, and their sections of the file. It owns the records.
class VcdFileWidget : public TablePage
{
    Q_OBJECT

public:
    VcdFileWidget(VLTView *view, QWidget *parent);
    ~VcdFileWidget() override;

    /// Appends to what is listed.
    void readData(QDomElement *parent);
    void writeData(QXmlStreamWriter *writer) const;

    /// Tells the user about the first file that does not exist; false then.
    bool checkData();

public slots:
    void modified();
    void onNew();
    void onEditData(QModelIndex index);
    void onShowContextMenu(QPoint point);
    void onGlitchChanged();
    void onIOUnitChanged();
    void onRemainUnitChanged();

signals:
    /// Not emitted while vectorless estimation is not offered.
    void vectorlessChanged(bool vectorless);

private:
    /// The number and the unit of a default rate.
    struct RateField
    {
        QDoubleSpinBox *value;
        QComboBox *unit; ///< its places are those of RateUnit
    };
    RateField ioField() const;
    RateField remainField() const;
    static void restore(const std::optional<DefaultRate> &rate, const RateField &field);
    void changeUnit(const RateField &field);

    DefaultRates defaultRates() const;
    QString designName() const;

    VLTView *const m_view; // for the dialog
    RecordList<VLT_VcdFile> m_records;
    VcdFileModel m_model;
    const std::unique_ptr<Ui::VcdFileTableView> m_ui;
};

} // namespace VLT
