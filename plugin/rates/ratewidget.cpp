#include "rates/ratewidget.h"

#include "document/vltview.h"

namespace VLT {

RateWidget::RateWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
{
}

void RateWidget::readData(QDomElement *) {}

void RateWidget::writeData(QXmlStreamWriter *) const {}

bool RateWidget::checkData()
{
    return true;
}

void RateWidget::modified()
{
    m_view->setModified(true);
}

} // namespace VLT
