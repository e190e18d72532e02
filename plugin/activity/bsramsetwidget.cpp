#include "activity/bsramsetwidget.h"

#include "document/vltview.h"

namespace VLT {

BsramSetWidget::BsramSetWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
{
}

void BsramSetWidget::readData(QDomElement *) {}

void BsramSetWidget::writeData(QXmlStreamWriter *) const {}

bool BsramSetWidget::checkData()
{
    return true;
}

void BsramSetWidget::modified()
{
    m_view->setModified(true);
}

} // namespace VLT
