#pragma once

#include "activity/activitypage.h"
#include "config/records.h"
#include "tables/recordmodel.h"

namespace NlsData {
class Port;
}

namespace VLT {

namespace Ui {
class PortSetWidget;
}

class PortModel : public RecordModel<VLT_Port>
{
    Q_OBJECT

public:
    PortModel(VLTView *view, QList<VLT_Port *> &records, QObject *parent);

    static bool lessThanByOE(Ptr a, Ptr b) { return a->outEnable < b->outEnable; }
    static bool greaterThanByOE(Ptr a, Ptr b) { return a->outEnable > b->outEnable; }
    static bool lessThanByCapacity(Ptr a, Ptr b) { return a->capacity < b->capacity; }
    static bool greaterThanByCapacity(Ptr a, Ptr b) { return a->capacity > b->capacity; }
};

/// Page of the output ports. Reads and writes the section "PortOutEnable".
class PortSetWidget : public RecordPage<PortModel, ActivityPage>
{
    Q_OBJECT

public:
    PortSetWidget(VLTView *view, QWidget *parent);
    ~PortSetWidget() override;

    void readData(QDomElement *parent) override;
    void writeData(QXmlStreamWriter *writer) const override;
    void collect(Configuration *configuration) const override;

    /// Whether the port's net is driven by a plain output buffer.
    bool isOBuff(NlsData::Port *port);

public slots:
    void onAdd();
    void onShowContextMenu();

private:
    const std::unique_ptr<Ui::PortSetWidget> m_ui;
};

} // namespace VLT
