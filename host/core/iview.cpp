#include "core/iview.h"

namespace Core {

IView::IView(QWidget *parent)
    : QWidget(parent)
{
}

IView::~IView() = default;

QString IView::shortTitle() const
{
    return m_shortTitle;
}

void IView::setShortTitle(const QString &title)
{
    if (m_shortTitle == title)
        return;
    m_shortTitle = title;
    emit shortTitleChanged(title);
}

void IView::onActivated() {}

void IView::onDeactivated() {}

} // namespace Core
