#pragma once

#include <QWidget>

class QDomElement;
class QXmlStreamWriter;

namespace VLT {

class VLTView;

class ClockEnableSetWidget : public QWidget
{
    Q_OBJECT

public:
    ClockEnableSetWidget(VLTView *view, QWidget *parent);

    void readData(QDomElement *parent);
    void writeData(QXmlStreamWriter *writer) const;
    bool checkData();

public slots:
    void modified();

private:
    VLTView *const m_view;
};

} // namespace VLT
