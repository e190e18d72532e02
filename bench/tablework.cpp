#include "designdata.h"
#include "measure.h"
#include "recorddata.h"
#include "suite.h"
#include "works.h"

#include "activity/dffsetwidget.h"
#include "document/vltview.h"
#include "nlsdata/netlistreader.h"
#include "rates/ratemodel.h"
#include "support/modaldriver.h"
#include "support/testhost.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTest>

#include <algorithm>
#include <memory>
#include <vector>

using namespace VLT;

namespace {

/// A view on a design of flip-flops whose page lists the first `listed` of them, on the screen.
class FlipFlopPage
{
public:
    FlipFlopPage(const TestHost &host, const QString &netlist, const QString &configuration)
        : m_view(host.device(), NlsData::readNetlistFile(netlist, nullptr, false))
        , m_page(m_view.findChild<DFFSetWidget *>())
        , m_table(m_page->findChild<QTableView *>(QStringLiteral("tableView")))
    {
        if (!m_view.readCfgFile(configuration))
            qFatal("the view does not open the generated file");
        m_view.findChild<QTabWidget *>()->setCurrentIndex(2);
        m_view.resize(1200, 800);
        paint(&m_view);
    }

    int rows() const { return m_table->model()->rowCount(); }

    /// Chooses every flip-flop that matches, in the finder. The time runs from its OK.
    double add(const QString &pattern)
    {
        QElapsedTimer timer;
        ModalDriver finder([&](QWidget *dialog) {
            auto *filter = dialog->findChild<QLineEdit *>(QStringLiteral("lineEditFilter"));
            filter->selectAll();
            QTest::keyClicks(filter, pattern);
            QTest::keyClick(filter, Qt::Key_Return);
            dialog->findChild<QListWidget *>(QStringLiteral("listWidget"))->selectAll();
            auto *ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
            timer.start();
            QTest::mouseClick(ok, Qt::LeftButton);
        });
        click("btnAdd");
        paint(m_table->viewport());
        return double(timer.nsecsElapsed()) / 1e9;
    }

    /// Selects every second row and removes them. The time runs from the click on the button; the
    /// question is answered at once.
    double removeAlternate()
    {
        QItemSelection selection;
        const QAbstractItemModel *model = m_table->model();
        for (int row = 0; row < model->rowCount(); row += 2)
            selection.append(QItemSelectionRange(model->index(row, 0), model->index(row, 1)));
        m_table->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
        ModalDriver question(pressButton(QMessageBox::Yes));
        return seconds([&] {
            click("btnRemove");
            paint(m_table->viewport());
        });
    }

private:
    void click(const char *name)
    {
        auto *button = m_page->findChild<QAbstractButton *>(QLatin1String(name));
        QTest::mouseClick(button, Qt::LeftButton);
    }

    VLTView m_view;
    DFFSetWidget *const m_page;
    QTableView *const m_table;
};

/// Records as the page holds them, in an order that sorting has to change.
class Records
{
public:
    explicit Records(int count)
    {
        const QStringList names = registerNames(count);
        for (const QString &name : names) {
            m_records.append(new VLT_Dff);
            m_records.last()->name = name;
            m_records.last()->value = float(m_records.size() * qint64(7919) % 10000) / 100;
        }
    }
    ~Records() { qDeleteAll(m_records); }
    Records(const Records &) = delete;
    Records &operator=(const Records &) = delete;

    template<class Less>
    double sortBare(Less less) const
    {
        QList<VLT_Dff *> list = m_records;
        list.detach();
        return seconds([&] { std::stable_sort(list.begin(), list.end(), less); });
    }
    double sortBareByName() const { return sortBare(DffModel::lessThanByName); }

    double sortByModel(VLTView *view, int column = 0) const
    {
        QList<VLT_Dff *> list = m_records;
        list.detach();
        DffModel model(view, list, nullptr);
        return seconds([&] { model.sort(column, Qt::AscendingOrder); });
    }

private:
    QList<VLT_Dff *> m_records;
};

void rateSortWork(Suite &suite)
{
    const int count = suite.scaled(1000000);
    std::vector<VLT_Rate> owned(static_cast<size_t>(count));
    QList<VLT_Rate *> rates;
    for (int i = 0; i < count; ++i) {
        owned[size_t(i)].value = QString::number(i * qint64(7919) % 20000 / 100.0, 'f', 2);
        rates.append(&owned[size_t(i)]);
    }
    suite.compare(
        QStringLiteral("sort %1 rates by value").arg(count),
        [&rates] {
            QList<VLT_Rate *> list = rates;
            list.detach();
            return seconds(
                [&] { std::stable_sort(list.begin(), list.end(), RateModel::lessThanByRate); });
        },
        [&rates] {
            QList<VLT_Rate *> list = rates;
            list.detach();
            RateModel model(list, nullptr);
            return seconds([&] { model.sort(1, Qt::AscendingOrder); });
        },
        0.8);
}

void sortWork(Suite &suite, const TestHost &host)
{
    const int count = suite.scaled(1000000);
    VLTView view(host.device(), NlsData::readNetlistFile(host.netlistPath(), nullptr, false));
    const Records records(count);
    suite.compare(
        QStringLiteral("sort %1 records by name").arg(count),
        [&] { return records.sortBareByName(); }, [&] { return records.sortByModel(&view); }, 0.3);
    suite.compare(
        QStringLiteral("sort %1 records by value").arg(count),
        [&] { return records.sortBare(DffModel::lessThanByValue); },
        [&] { return records.sortByModel(&view, 1); }, 1.1);

    const Records half(count / 2);
    const Records quarter(count / 4);
    const auto ofSize = [&](int factor) -> const Records & {
        return factor == 4 ? records : factor == 2 ? half : quarter;
    };
    suite.growth(QStringLiteral("growth: sort records"), count / 4,
                 [&](int factor) { return ofSize(factor).sortByModel(&view); });
    suite.growth(
        QStringLiteral("growth: the bare sort"), count / 4,
        [&](int factor) { return ofSize(factor).sortBareByName(); }, 0);
}

} // namespace

void tableWork(Suite &suite)
{
    const TestHost host;
    const int most = suite.scaled(400000);

    // Half of the design's flip-flops are on the page, the other half are there to be added.
    const auto prepare = [&](int objects) {
        const QStringList names = registerNames(objects);
        const QString netlist = host.path(QStringLiteral("design%1.json").arg(objects));
        QStringList chosen = names;
        for (int i = objects / 2; i < objects; ++i)
            chosen[i] = QStringLiteral("new/") + names[i];
        writeFlipFlops(netlist, chosen);
        host.write(QStringLiteral("half%1.vlr").arg(objects),
                   flipFlopFile(chosen.mid(0, objects / 2)));
        host.write(QStringLiteral("all%1.vlr").arg(objects), flipFlopFile(chosen));
    };
    for (int objects : {most / 4, most / 2, most})
        prepare(objects);

    const auto open = [&](const char *file, int objects) {
        const QString number = QString::number(objects);
        return std::make_unique<FlipFlopPage>(
            host, host.path(QStringLiteral("design%1.json").arg(number)),
            host.path(QLatin1String(file) + number + QStringLiteral(".vlr")));
    };
    const auto add = [&](int objects) {
        const auto page = open("half", objects);
        const double time = page->add(QStringLiteral("new/*"));
        if (page->rows() != objects)
            qFatal("%d rows after adding, not %d", page->rows(), objects);
        return time;
    };
    const auto remove = [&](int objects) {
        const auto page = open("all", objects);
        const double time = page->removeAlternate();
        if (page->rows() != objects / 2)
            qFatal("%d rows after removing, not %d", page->rows(), objects / 2);
        return time;
    };

    const int many = most / 2;
    const QString half = QString::number(many / 2);
    suite.compare(
        QStringLiteral("add %1 chosen objects to a page that holds %1").arg(half),
        [&] { return add(many / 2); }, [&] { return add(many); }, 2.3, Suite::MANY);
    suite.compare(
        QStringLiteral("remove %1 alternate rows of %2").arg(half).arg(many),
        [&] { return remove(many / 2); }, [&] { return remove(many); }, 2.3);
    suite.growth(QStringLiteral("growth: add, objects in all"), most / 4,
                 [&](int factor) { return add(factor * (most / 4)); });
    suite.growth(QStringLiteral("growth: remove every second row"), most / 4,
                 [&](int factor) { return remove(factor * (most / 4)); });
    sortWork(suite, host);
    rateSortWork(suite);
}
