#include "document/vltratewidget.h"

#include "rates/ratewidget.h"
#include "rates/vcdfilewidget.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QSplitter>

namespace VLT {

VLTRateWidget::VLTRateWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    layout->addWidget(splitter);
    m_ratePage = new RateWidget(view, nullptr);
    m_filePage = new VcdFileWidget(view, nullptr);
    splitter->addWidget(m_ratePage);
    splitter->addWidget(m_filePage);
    connect(m_filePage, &VcdFileWidget::vectorlessChanged, m_ratePage,
            &RateWidget::onVectorlessChanged);
}

void VLTRateWidget::readData(QDomElement *parent)
{
    m_ratePage->readData(parent);
    m_filePage->readData(parent);
}

void VLTRateWidget::writeData(QXmlStreamWriter *writer) const
{
    m_ratePage->writeData(writer);
    m_filePage->writeData(writer);
}

bool VLTRateWidget::checkData()
{
    QPointer<VLTRateWidget> self(this);
    return m_ratePage->checkData() && self && m_filePage->checkData();
}

} // namespace VLT
