#include "conditions/vltcommonwidget.h"

#include "document/vltview.h"

namespace VLT {

VLTSettingWidget::VLTSettingWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_view(view)
{
}

void VLTSettingWidget::readData(QDomElement *) {}

void VLTSettingWidget::writeData(QXmlStreamWriter *) const {}

bool VLTSettingWidget::checkData()
{
    return true;
}

void VLTSettingWidget::modified()
{
    m_view->setModified(true);
}

} // namespace VLT
