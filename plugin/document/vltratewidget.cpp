#include "document/vltratewidget.h"

#include "document/vltview.h"

namespace VLT {

VLTRateWidget::VLTRateWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
{
}

void VLTRateWidget::readData(QDomElement *) {}

void VLTRateWidget::writeData(QXmlStreamWriter *) const {}

bool VLTRateWidget::checkData()
{
    return true;
}

void VLTRateWidget::modified()
{
    m_view->setModified(true);
}

} // namespace VLT
