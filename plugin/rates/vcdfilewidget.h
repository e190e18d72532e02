#pragma once

#include "config/configuration.h"
#include "rates/vcdfilemodel.h"
#include "tables/page.h"
#include "tables/recordpage.h"

#include <QHash>

#include <memory>

class QComboBox;
class QDoubleSpinBox;

namespace VLT {

namespace Ui {
class VcdFileTableView;
}

/// Simulation activity files, the default rates of signals that neither a file nor an explicit
/// rate covers, and their sections of the file. It owns the records.
class VcdFileWidget : public RecordPage<VcdFileModel>, public Page
{
    Q_OBJECT

public:
    VcdFileWidget(VLTView *view, QWidget *parent);
    ~VcdFileWidget() override;

    /// Appends to what is listed.
    void readData(QDomElement *parent) override;
    void writeData(QXmlStreamWriter *writer) const override;
    void collect(Configuration *configuration) const override;

    /// Tells the user about the first file that does not exist; false then.
    bool checkData() override;

public slots:
    void modified() override;
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
    /// As in the file: without an entity where that is the design.
    FileSection files() const;
    QString designName() const;

    VLTView *const m_view; // for the dialog
    /// What the design was called when a record was bound or read: synthesis may rename it. Has an
    /// entry for every listed record; those of removed ones are never looked up.
    QHash<const VLT_VcdFile *, QString> m_designNames;
    const std::unique_ptr<Ui::VcdFileTableView> m_ui;
};

} // namespace VLT
