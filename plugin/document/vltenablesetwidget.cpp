#include "document/vltenablesetwidget.h"

#include "document/vltview.h"

namespace VLT {

VLTEnableSetWidget::VLTEnableSetWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
{
}

void VLTEnableSetWidget::readData(QDomElement *) {}

void VLTEnableSetWidget::writeData(QXmlStreamWriter *) const {}

bool VLTEnableSetWidget::checkData()
{
    return true;
}

void VLTEnableSetWidget::modified()
{
    m_view->setModified(true);
}

} // namespace VLT
