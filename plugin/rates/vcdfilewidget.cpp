#include "rates/vcdfilewidget.h"

#include "document/vltview.h"

namespace VLT {

VcdFileWidget::VcdFileWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
{
}

void VcdFileWidget::readData(QDomElement *) {}

void VcdFileWidget::writeData(QXmlStreamWriter *) const {}

bool VcdFileWidget::checkData()
{
    return true;
}

void VcdFileWidget::modified()
{
    m_view->setModified(true);
}

} // namespace VLT
