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
/// Temperatures are in ℃, thermal resistances in ℃/W, voltages in V. The values are stored in the
/// widgets only.
class VLTSettingWidget : public QWidget, public QUtil::IEventHandler, public Page
{
    Q_OBJECT

public:
    VLTSettingWidget(VLTView *view, QWidget *parent);
    ~VLTSettingWidget() override;

    void readData(QDomElement *root) override;
    void writeData(QXmlStreamWriter *writer) const override;
    void collect(Configuration *configuration) const override;

    /// Always true: the page never prevents saving.
    bool checkData() override { return true; }

    /// Fetches the supply data of the current chip. False if it has none; the previous chip's data
    /// is then kept.
    bool updateVoltageInfo();

    /// Shows the supplies that the chip has, and enables those that the user can set.
    void checkVlotageShow();

    /// Disables VCCX for devices on which it is fixed, until the next checkVlotageShow().
    void setDevice(DEV::DeviceArg device);

    /// Applies the chip's ranges; a shown supply that was outside gets its default.
    void checkVoltageRange();

    /// Makes tied supplies of this chip equal.
    void updateDoubleSpin();

    /// Connects the voltage editors to the modified state; called once, after reading the file.
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
