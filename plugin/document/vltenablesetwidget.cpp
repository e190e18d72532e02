#include "document/vltenablesetwidget.h"

#include "activity/bsramsetwidget.h"
#include "activity/clockenablesetwidget.h"
#include "activity/dffsetwidget.h"
#include "activity/portsetwidget.h"

#include <QSplitter>
#include <QVBoxLayout>

namespace VLT {

VLTEnableSetWidget::VLTEnableSetWidget(VLTView *view, QWidget *parent)
    : PageGroup(view, parent)
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

    auto *clockPage = new ClockEnableSetWidget(view, nullptr);
    auto *portPage = new PortSetWidget(view, nullptr);
    auto *bsramPage = new BsramSetWidget(view, nullptr);
    auto *dffPage = new DFFSetWidget(view, nullptr);
    left->addWidget(clockPage);
    left->addWidget(bsramPage);
    right->addWidget(portPage);
    right->addWidget(dffPage);
    add(clockPage);
    add(portPage);
    add(bsramPage);
    add(dffPage);
}

} // namespace VLT
