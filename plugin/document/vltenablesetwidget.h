#pragma once

#include <QWidget>

class QDomElement;
class QXmlStreamWriter;

namespace VLT {

class BsramSetWidget;
class ClockEnableSetWidget;
class DFFSetWidget;
class PortSetWidget;
class VLTView;

/// Holds the pages of the activity settings: clock enables, ports, block SRAMs, flip-flops.
class VLTEnableSetWidget : public QWidget
{
    Q_OBJECT

public:
    VLTEnableSetWidget(VLTView *view, QWidget *parent);

    void readData(QDomElement *parent);
    void writeData(QXmlStreamWriter *writer) const;

private:
    BsramSetWidget *m_bsramPage;
    PortSetWidget *m_portPage;
    ClockEnableSetWidget *m_clockPage;
    DFFSetWidget *m_dffPage;
};

} // namespace VLT
