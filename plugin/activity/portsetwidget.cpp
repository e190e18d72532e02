#include "activity/portsetwidget.h"

#include "document/vltview.h"

namespace VLT {

PortSetWidget::PortSetWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
{
}

void PortSetWidget::readData(QDomElement *) {}

void PortSetWidget::writeData(QXmlStreamWriter *) const {}

bool PortSetWidget::checkData()
{
    return true;
}

void PortSetWidget::modified()
{
    m_view->setModified(true);
}

} // namespace VLT
