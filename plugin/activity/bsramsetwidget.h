#pragma once

#include "activity/activitypage.h"
#include "config/records.h"
#include "tables/recordmodel.h"

namespace VLT {

namespace Ui {
class BsramSetWidget;
}

class BSRamModel : public RecordModel<VLT_BSRam>
{
    Q_OBJECT

public:
    BSRamModel(VLTView *view, QList<VLT_BSRam *> &records, QObject *parent);

    static bool lessThanByAEnable(Ptr a, Ptr b) { return a->aEnable < b->aEnable; }
    static bool greaterThanByAEnable(Ptr a, Ptr b) { return a->aEnable > b->aEnable; }
    static bool lessThanByARead(Ptr a, Ptr b) { return a->aRead < b->aRead; }
    static bool greaterThanByARead(Ptr a, Ptr b) { return a->aRead > b->aRead; }
    static bool lessThanByAWrite(Ptr a, Ptr b) { return a->aWrite < b->aWrite; }
    static bool greaterThanByAWrite(Ptr a, Ptr b) { return a->aWrite > b->aWrite; }
    static bool lessThanByBEnable(Ptr a, Ptr b) { return a->bEnable < b->bEnable; }
    static bool greaterThanByBEnable(Ptr a, Ptr b) { return a->bEnable > b->bEnable; }
    static bool lessThanByBRead(Ptr a, Ptr b) { return a->bRead < b->bRead; }
    static bool greaterThanByBRead(Ptr a, Ptr b) { return a->bRead > b->bRead; }
    static bool lessThanByBWrite(Ptr a, Ptr b) { return a->bWrite < b->bWrite; }
    static bool greaterThanByBWrite(Ptr a, Ptr b) { return a->bWrite > b->bWrite; }
};

/// Page of the block SRAMs, with defaults for those that are not listed. Reads and writes the
/// section "GlobalBsram".
class BsramSetWidget : public RecordPage<BSRamModel, ActivityPage>
{
    Q_OBJECT

public:
    BsramSetWidget(VLTView *view, QWidget *parent);
    ~BsramSetWidget() override;

    void readData(QDomElement *parent) override;
    void writeData(QXmlStreamWriter *writer) const override;
    void collect(Configuration *configuration) const override;

public slots:
    void onAdd();
    void onShowContextMenu(QPoint point);

private:
    BSRamDefaults defaults() const;

    const std::unique_ptr<Ui::BsramSetWidget> m_ui;
};

} // namespace VLT
