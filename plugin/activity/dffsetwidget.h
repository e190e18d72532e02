#pragma once

#include "activity/activitypage.h"
#include "config/records.h"
#include "tables/recordmodel.h"

namespace VLT {

namespace Ui {
class DFFSetWidget;
}

class DffModel : public RecordModel<VLT_Dff>
{
    Q_OBJECT

public:
    DffModel(VLTView *view, QList<VLT_Dff *> &records, QObject *parent);

    static bool lessThanByValue(Ptr a, Ptr b) { return a->value < b->value; }
    static bool greaterThanByValue(Ptr a, Ptr b) { return a->value > b->value; }
};

/// Page of the flip-flops. Reads and writes the section "LocalEnable".
class DFFSetWidget : public RecordPage<DffModel, ActivityPage>
{
    Q_OBJECT

public:
    DFFSetWidget(VLTView *view, QWidget *parent);
    ~DFFSetWidget() override;

    void readData(QDomElement *parent) override;
    void writeData(QXmlStreamWriter *writer) const override;
    void collect(Configuration *configuration) const override;

public slots:
    void onAdd();
    void onShowContextMenu();

private:
    const std::unique_ptr<Ui::DFFSetWidget> m_ui;
};

} // namespace VLT
