#include "activity/clockenablesetwidget.h"

#include "document/vltview.h"

namespace VLT {

ClockEnableSetWidget::ClockEnableSetWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
{
}

void ClockEnableSetWidget::readData(QDomElement *) {}

void ClockEnableSetWidget::writeData(QXmlStreamWriter *) const {}

bool ClockEnableSetWidget::checkData()
{
    return true;
}

void ClockEnableSetWidget::modified()
{
    m_view->setModified(true);
}

} // namespace VLT
