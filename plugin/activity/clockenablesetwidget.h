#pragma once

#include "activity/activitypage.h"
#include "config/records.h"
#include "tables/recordmodel.h"

namespace VLT {

namespace Ui {
class ClockEnableSetWidget;
}

class ClkEnableModel : public RecordModel<VLT_ClkEnable>
{
    Q_OBJECT

public:
    ClkEnableModel(VLTView *view, QList<VLT_ClkEnable *> &records, QObject *parent);

    static bool lessThanByClkEnable(Ptr a, Ptr b) { return a->enable < b->enable; }
    static bool greaterThanByClkEnable(Ptr a, Ptr b) { return a->enable > b->enable; }
    static bool lessThanByQuad1(Ptr a, Ptr b) { return a->quad1 < b->quad1; }
    static bool greaterThanByQuad1(Ptr a, Ptr b) { return a->quad1 > b->quad1; }
    static bool lessThanByQuad2(Ptr a, Ptr b) { return a->quad2 < b->quad2; }
    static bool greaterThanByQuad2(Ptr a, Ptr b) { return a->quad2 > b->quad2; }
    static bool lessThanByQuad3(Ptr a, Ptr b) { return a->quad3 < b->quad3; }
    static bool greaterThanByQuad3(Ptr a, Ptr b) { return a->quad3 > b->quad3; }
    static bool lessThanByQuad4(Ptr a, Ptr b) { return a->quad4 < b->quad4; }
    static bool greaterThanByQuad4(Ptr a, Ptr b) { return a->quad4 > b->quad4; }
};

/// Page of the clocks, whose names the user types. Reads and writes the section "GlobalEnable".
class ClockEnableSetWidget : public RecordPage<ClkEnableModel, ActivityPage>
{
    Q_OBJECT

public:
    ClockEnableSetWidget(VLTView *view, QWidget *parent);
    ~ClockEnableSetWidget() override;

    void readData(QDomElement *parent) override;
    void writeData(QXmlStreamWriter *writer) const override;
    void collect(Configuration *configuration) const override;

public slots:
    /// Appends an unnamed clock; it is saved, and modifies the document, once it has a name.
    void onAdd();
    void onShowContextMenu(QPoint point);

private:
    const std::unique_ptr<Ui::ClockEnableSetWidget> m_ui;
};

} // namespace VLT
