#include "document/vltratewidget.h"

#include "rates/ratewidget.h"
#include "rates/vcdfilewidget.h"

#include <QHBoxLayout>
#include <QSplitter>

namespace VLT {

VLTRateWidget::VLTRateWidget(VLTView *view, QWidget *parent)
    : PageGroup(view, parent)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *splitter = new QSplitter(Qt::Horizontal, this);
    layout->addWidget(splitter);
    auto *ratePage = new RateWidget(view, nullptr);
    auto *filePage = new VcdFileWidget(view, nullptr);
    splitter->addWidget(ratePage);
    splitter->addWidget(filePage);
    connect(filePage, &VcdFileWidget::vectorlessChanged, ratePage,
            &RateWidget::onVectorlessChanged);
    add(ratePage);
    add(filePage);
}

} // namespace VLT
