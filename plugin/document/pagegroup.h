#pragma once

#include "tables/page.h"

#include <QVector>
#include <QWidget>

namespace VLT {

class Document;
class VLTView;

/// A widget with several pages, which it reads, writes and checks in a fixed order.
class PageGroup : public QWidget, public Page
{
    Q_OBJECT

public:
    void readData(QDomElement *parent) override;
    void writeData(QXmlStreamWriter *writer) const override;
    /// Checks the pages up to the first that refuses.
    bool checkData() override;
    void modified() override;
    void collect(Configuration *configuration) const override;

protected:
    PageGroup(VLTView *view, QWidget *parent);

    /// Adds a page of the group's widgets, after those that were added before.
    void add(Page *page) { m_pages.append(page); }

private:
    Document *const m_document;
    QVector<Page *> m_pages;
};

} // namespace VLT
