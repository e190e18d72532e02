#pragma once

#include <QWidget>

class QDomElement;
class QXmlStreamWriter;

namespace VLT {

class VLTView;

class RateWidget : public QWidget
{
    Q_OBJECT

public:
    RateWidget(VLTView *view, QWidget *parent);

    void readData(QDomElement *parent);
    void writeData(QXmlStreamWriter *writer) const;
    bool checkData();

public slots:
    void modified();
    void onVectorlessChanged(bool) {}

private:
    VLTView *const m_view;
};

} // namespace VLT
