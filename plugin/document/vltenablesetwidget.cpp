#include "document/vltenablesetwidget.h"

#include "activity/bsramsetwidget.h"
#include "activity/clockenablesetwidget.h"
#include "activity/dffsetwidget.h"
#include "activity/portsetwidget.h"

#include <QSplitter>
#include <QVBoxLayout>

namespace VLT {

VLTEnableSetWidget::VLTEnableSetWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setChildrenCollapsible(false);
    layout->addWidget(splitter);

    auto *leftColumn = new QWidget;
    auto *left = new QVBoxLayout(leftColumn);
    auto *rightColumn = new QWidget;
    auto *right = new QVBoxLayout(rightColumn);
    splitter->addWidget(leftColumn);
    splitter->addWidget(rightColumn);
    const int half = width() / 2;
    splitter->setSizes({half + 50, half - 50});

    m_clockPage = new ClockEnableSetWidget(view, nullptr);
    m_portPage = new PortSetWidget(view, nullptr);
    m_bsramPage = new BsramSetWidget(view, nullptr);
    m_dffPage = new DFFSetWidget(view, nullptr);
    left->addWidget(m_clockPage);
    left->addWidget(m_bsramPage);
    right->addWidget(m_portPage);
    right->addWidget(m_dffPage);
}

void VLTEnableSetWidget::readData(QDomElement *parent)
{
    m_clockPage->readData(parent);
    m_portPage->readData(parent);
    m_bsramPage->readData(parent);
    m_dffPage->readData(parent);
}

void VLTEnableSetWidget::writeData(QXmlStreamWriter *writer) const
{
    m_clockPage->writeData(writer);
    m_portPage->writeData(writer);
    m_bsramPage->writeData(writer);
    m_dffPage->writeData(writer);
}

} // namespace VLT
