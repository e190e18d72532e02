#pragma once

#include "tables/page.h"

#include "dev/chipinfo.h"
#include "dev/devicearg.h"
#include "qutil/ieventhandler.h"

#include <QWidget>

#include <memory>

namespace VLT {

class Document;
class SupplyFields;
class VLTView;

namespace Ui {
class VLTSettingWidget;
}

/// The operating conditions page: grade and process, thermal environment, supply voltages.
/// Temperatures are in ℃, thermal resistances in ℃/W, voltages in V. The values live in the
/// widgets alone.
class VLTSettingWidget : public QWidget, public QUtil::IEventHandler, public Page
{
    Q_OBJECT

public:
    VLTSettingWidget(VLTView *view, QWidget *parent);
    ~VLTSettingWidget() override;

    void readData(QDomElement *root) override;
    void writeData(QXmlStreamWriter *writer) const override;
    void collect(Configuration *configuration) const override;

    /// The page never keeps the document from being saved.
    bool checkData() override { return true; }

    /// Asks for the supply data of the current chip. False when the chip has none: the data of the
    /// chip before is then kept.
    bool updateVoltageInfo();

    /// Shows the supplies that the chip has, and enables those that the user sets.
    void checkVlotageShow();

    /// Applies the rule for devices whose VCCX is fixed. A later checkVlotageShow() decides again.
    void setDevice(DEV::DeviceArg device);

    /// Applies the chip's ranges; a shown supply that was outside gets its default.
    void checkVoltageRange();

    /// Makes supplies that are one on this chip equal.
    void updateDoubleSpin();

    /// Lets edits of the voltages count from now on; called once, when the file has been read.
    void connectVlotageDoubleSpin();

    void handleIEvent(const QUtil::IEvent *event) override;

public slots:
    void modified() override;
    void onChangeThetaEnable();
    void onHeatChanged();
    void onBoardTMChanged();
    void onJunctionTempChanged();
    void onValueChanged();
    void updateJunctionTempRange();

protected:
    bool event(QEvent *event) override;

private:
    void nameFields();
    void alignGrids();
    void connectFields();

    Document *const m_document;
    const std::unique_ptr<Ui::VLTSettingWidget> m_ui;
    SupplyFields *m_supplies = nullptr;
    DEV::ChipInfo m_chipInfo; // the last one with supply data
};

} // namespace VLT
