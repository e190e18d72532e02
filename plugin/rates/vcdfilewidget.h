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

/// Simulation activity files, the default rates of signals that have neither a file nor an explicit
/// rate, and their sections of the file. Owns the records.
class VcdFileWidget : public RecordPage<VcdFileModel>, public Page
{
    Q_OBJECT

public:
    VcdFileWidget(VLTView *view, QWidget *parent);
    ~VcdFileWidget() override;

    /// Appends to the listed records.
    void readData(QDomElement *parent) override;
    void writeData(QXmlStreamWriter *writer) const override;
    void collect(Configuration *configuration) const override;

    /// Informs the user of the first file that does not exist and returns false if there is one.
    bool checkData() override;

protected:
    bool isNamed(int row, const QString &name) const override;

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
    /// As saved: without an entity if that is the design.
    FileSection files() const;
    QString designName() const;

    VLTView *const m_view; // for the dialog
    /// The design's name when a record was bound or read, because synthesis may rename it. Has an
    /// entry for every listed record; those of removed ones are never looked up.
    QHash<const VLT_VcdFile *, QString> m_designNames;
    const std::unique_ptr<Ui::VcdFileTableView> m_ui;
};

} // namespace VLT
