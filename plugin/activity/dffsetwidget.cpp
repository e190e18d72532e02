#include "activity/dffsetwidget.h"

#include "document/vltview.h"

namespace VLT {

DFFSetWidget::DFFSetWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
{
}

void DFFSetWidget::readData(QDomElement *) {}

void DFFSetWidget::writeData(QXmlStreamWriter *) const {}

bool DFFSetWidget::checkData()
{
    return true;
}

void DFFSetWidget::modified()
{
    m_view->setModified(true);
}

} // namespace VLT
