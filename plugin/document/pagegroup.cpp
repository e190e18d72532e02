#include "document/pagegroup.h"

#include "tables/document.h"

#include <QPointer>

namespace VLT {

PageGroup::PageGroup(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_document(documentOf(view))
{
}

void PageGroup::readData(QDomElement *parent)
{
    for (Page *page : qAsConst(m_pages))
        page->readData(parent);
}

void PageGroup::writeData(QXmlStreamWriter *writer) const
{
    for (const Page *page : m_pages)
        page->writeData(writer);
}

bool PageGroup::checkData()
{
    const QPointer<PageGroup> self(this);
    const QVector<Page *> pages = m_pages;
    for (Page *page : pages) {
        if (!self || !page->checkData())
            return false;
    }
    return true;
}

void PageGroup::modified()
{
    m_document->setModified(true);
}

void PageGroup::collect(Configuration *configuration) const
{
    for (const Page *page : m_pages)
        page->collect(configuration);
}

} // namespace VLT
