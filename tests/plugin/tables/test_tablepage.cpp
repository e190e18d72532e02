#include "samplemodel.h"
#include "support/modaldriver.h"

#include "document/vltview.h"
#include "tables/doubledelegate.h"
#include "tables/recordlist.h"
#include "tables/rowselection.h"
#include "tables/tablepage.h"

#include <QtTest>
#include <QtWidgets>

using namespace VLT;

namespace {

class SamplePage : public TablePage
{
public:
    explicit SamplePage(VLTView *view)
        : TablePage(view, nullptr)
        , table(new QTableView(this))
        , model(view, records.list(), this)
    {
        (new QVBoxLayout(this))->addWidget(table);
        records.follow(&model);
        setUpTable(table, &model, {120});
        connectCommands(nullptr, nullptr, &SamplePage::onAdd, &SamplePage::onShowContextMenu);
        resize(600, 400);
    }

    void onAdd() { add(1); }
    void onShowContextMenu(QPoint point) { showMenu(table->viewport()->mapToGlobal(point)); }

    void add(int count)
    {
        const int oldCount = model.rowCount();
        for (int i = 0; i < count; ++i) {
            auto sample = std::make_unique<Sample>();
            sample->name = QString::number(oldCount + i);
            sample->rate = float(-oldCount - i);
            records.append(std::move(sample));
        }
        showAdded(oldCount);
    }

    QTableView *const table;
    RecordList<Sample> records;
    SampleModel model;
};

} // namespace

class TestTablePage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void startsUnsorted();
    void newRowsHaveTheFocus();
    void removesSelectedRows();
    void asksBeforeRemoving();
    void selectionFollowsSortedRecords();
    void shiftSelectsFromSortedRecord_data();
    void shiftSelectsFromSortedRecord();
    void sortCommitsOpenEditor();
    void deletedWhileConfirming();

private:
    void select(const QVector<int> &rows)
    {
        for (const int row : rows)
            m_page->table->selectionModel()->select(m_page->model.index(row, 0),
                                                    QItemSelectionModel::Select |
                                                        QItemSelectionModel::Rows);
    }
    void clickHeader(int column)
    {
        QHeaderView *header = m_page->table->horizontalHeader();
        const QPoint middle(header->sectionViewportPosition(column) + 20, header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, middle);
    }

    std::unique_ptr<VLTView> m_view;
    std::unique_ptr<SamplePage> m_page;
};

void TestTablePage::init()
{
    m_view = std::make_unique<VLTView>(DEV::DeviceArg(), nullptr);
    m_page = std::make_unique<SamplePage>(m_view.get());
    m_page->add(6);
    m_page->table->clearSelection();
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
}

void TestTablePage::cleanup()
{
    m_page.reset();
    m_view.reset();
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void TestTablePage::startsUnsorted()
{
    const QHeaderView *header = m_page->table->horizontalHeader();
    QCOMPARE(header->sortIndicatorSection(), -1);
    clickHeader(1);
    QCOMPARE(m_page->model.names(), QStringLiteral("5 4 3 2 1 0"));
    m_page->onAdd();
    QCOMPARE(header->sortIndicatorSection(), -1);
    QCOMPARE(m_page->model.names(), QStringLiteral("5 4 3 2 1 0 6"));
}

void TestTablePage::newRowsHaveTheFocus()
{
    m_page->setFocus();
    m_page->onAdd();
    QCOMPARE(QApplication::focusWidget(), m_page->table);
    QCOMPARE(m_page->table->currentIndex(), m_page->model.index(6, 1)); // to type its value
    // The first cell that can be edited, not one that does not apply.
    m_page->records.list().at(2)->fixed = true;
    QTabWidget tabs;
    tabs.addTab(new QWidget, QString());
    tabs.addTab(m_page.get(), QString());
    m_page->reveal(2);
    QCOMPARE(tabs.currentIndex(), 1);
    m_page->setParent(nullptr);
    QCOMPARE(m_page->table->currentIndex(), m_page->model.index(2, 2));
    QCOMPARE(m_page->table->selectionModel()->selectedRows().size(), 1);
}

void TestTablePage::removesSelectedRows()
{
    select({2, 5, 3});
    m_page->table->setFocus();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    const ModalDriver driver([](QWidget *box) {
        QCOMPARE(qobject_cast<QMessageBox *>(box)->informativeText(),
                 QStringLiteral("3 rows are selected."));
        pressButton(QMessageBox::Yes)(box);
    });
    QTest::keyClick(m_page->table, Qt::Key_Delete);
    QCOMPARE(driver.title(), QStringLiteral("Confirm"));
    QCOMPARE(driver.text(), QStringLiteral("Sure to remove?"));
    QCOMPARE(m_page->model.names(), QStringLiteral("0 1 4"));
    QVERIFY(!m_page->table->selectionModel()->hasSelection());
    QVERIFY(m_view->isModified());
}

void TestTablePage::asksBeforeRemoving()
{
    m_page->onRemove(); // nothing is selected: no question
    select({1});
    {
        ModalDriver driver([](QWidget *box) {
            const auto *question = qobject_cast<QMessageBox *>(box);
            QVERIFY(question->defaultButton() == question->button(QMessageBox::No));
            QTest::keyClick(box, Qt::Key_Escape);
        });
        m_page->onRemove();
    }
    QCOMPARE(m_page->model.rowCount(), 6);
    QVERIFY(!m_view->isModified());
}

void TestTablePage::selectionFollowsSortedRecords()
{
    select({0, 1, 4});
    QItemSelectionModel *selection = m_page->table->selectionModel();
    selection->setCurrentIndex(m_page->model.index(4, 1), QItemSelectionModel::NoUpdate);
    clickHeader(1);
    QVector<int> rows;
    for (const QModelIndex &index : selection->selectedRows())
        rows << index.row();
    std::sort(rows.begin(), rows.end());
    QCOMPARE(rows, QVector<int>({1, 4, 5}));
    QCOMPARE(selection->currentIndex(), m_page->model.index(1, 1));

    ModalDriver driver(pressButton(QMessageBox::Yes));
    m_page->onRemove();
    QCOMPARE(m_page->model.names(), QStringLiteral("5 3 2"));
}

void TestTablePage::shiftSelectsFromSortedRecord_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("click") << false;
    QTest::newRow("arrow key") << true;
}

void TestTablePage::shiftSelectsFromSortedRecord()
{
    QFETCH(bool, byKey);
    const auto click = [this](int row, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(m_page->table->viewport(), Qt::LeftButton, modifiers,
                          m_page->table->visualRect(m_page->model.index(row, 0)).center());
    };
    click(1, {});
    clickHeader(1); // moves the record to row 4
    if (byKey)
        QTest::keyClick(m_page->table, Qt::Key_Up, Qt::ShiftModifier);
    else
        click(3, Qt::ShiftModifier);
    QVector<int> rows = selectedRows(m_page->table->selectionModel());
    std::sort(rows.begin(), rows.end());
    QCOMPARE(rows, QVector<int>({3, 4}));
}

void TestTablePage::sortCommitsOpenEditor()
{
    m_page->table->edit(m_page->model.index(0, 1));
    QTest::keyClicks(m_page->table->findChild<QDoubleSpinBox *>(), QStringLiteral("77"));
    const Sample *edited = m_page->records.list().first();
    clickHeader(1);
    QCOMPARE(edited->rate, 77.f);
    QCOMPARE(m_page->records.list().last(), edited);
}

void TestTablePage::deletedWhileConfirming()
{
    select({0});
    // Something else closes the page while the question of its context menu's command is open.
    QTimer::singleShot(0, this, [this] {
        QWidget *menu = QApplication::activePopupWidget();
        QVERIFY(menu);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    ModalDriver driver([this](QWidget *) { m_page.reset(); });
    m_page->onShowContextMenu({5, 5});
    QVERIFY(!m_page);
    QVERIFY(!m_view->isModified());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QTEST_MAIN(TestTablePage)
#include "test_tablepage.moc"
