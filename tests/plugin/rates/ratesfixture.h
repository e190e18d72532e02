#pragma once

#include "document/vltview.h"

#include "support/pagefile.h"
#include "support/testhost.h"

#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"

#include <QTableView>
#include <QtTest>

#include <memory>

/// A page on a real view of the test project, with the steps that its tests share.
template<class Page>
class RatesFixture
{
public:
    explicit RatesFixture(const TestHost &host)
        : view(std::make_unique<VLT::VLTView>(
              host.device(), NlsData::readNetlistFile(host.netlistPath(), nullptr, false)))
        , page(new Page(view.get(), view.get()))
    {
        page->resize(900, 600);
        view->resize(900, 600);
        view->show();
        view->setModified(false);
    }

    /// Lets the page read the sections in `xml`.
    void read(const QByteArray &xml) const
    {
        readSections(page, xml);
        view->setModified(false);
    }

    /// The sections that the page writes.
    QByteArray written() const { return writtenSections(*page); }

    template<class Widget>
    Widget *find(const char *name) const
    {
        return page->template findChild<Widget *>(QLatin1String(name));
    }

    std::unique_ptr<VLT::VLTView> view;
    Page *page; ///< owned by the view
};

/// What the cells of a column show.
inline QStringList shownColumn(const QAbstractItemModel *model, int column)
{
    QStringList texts;
    for (int row = 0; row < model->rowCount(); ++row)
        texts.append(model->index(row, column).data().toString());
    return texts;
}

inline void doubleClickCell(QTableView *table, int row, int column)
{
    const QPoint centre = table->visualRect(table->model()->index(row, column)).center();
    QTest::mouseClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
    QTest::mouseDClick(table->viewport(), Qt::LeftButton, Qt::NoModifier, centre);
}
