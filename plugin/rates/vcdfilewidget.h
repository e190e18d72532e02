#pragma once

#include <QWidget>

class QDomElement;
class QXmlStreamWriter;

namespace VLT {

class VLTView;

class VcdFileWidget : public QWidget
{
    Q_OBJECT

public:
    VcdFileWidget(VLTView *view, QWidget *parent);

    void readData(QDomElement *parent);
    void writeData(QXmlStreamWriter *writer) const;
    bool checkData();

public slots:
    void modified();

signals:
    void vectorlessChanged(bool vectorless);

private:
    VLTView *const m_view;
};

} // namespace VLT
