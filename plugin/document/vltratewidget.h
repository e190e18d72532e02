#pragma once

#include <QWidget>

class QDomElement;
class QXmlStreamWriter;

namespace VLT {

class RateWidget;
class VcdFileWidget;
class VLTView;

/// Holds the pages of the signal activity: toggle rates beside activity files.
class VLTRateWidget : public QWidget
{
    Q_OBJECT

public:
    VLTRateWidget(VLTView *view, QWidget *parent);

    void readData(QDomElement *parent);
    void writeData(QXmlStreamWriter *writer) const;

    /// Whether the pages may be saved; what is wrong has been told. Runs the event loop.
    bool checkData();

private:
    RateWidget *m_ratePage;
    VcdFileWidget *m_filePage;
};

} // namespace VLT
