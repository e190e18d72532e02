#include "host/utils/findbar.h"
#include "utils/tableview.h"

#include <QtTest>
#include <QtWidgets>

class TestFindBar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }
    void stepsThroughHits();
    void selectsAllHits();
    void closesWithKeyOrTable();

private:
    QString result() { return m_bar->findChild<QLabel *>(QStringLiteral("findResult"))->text(); }
    int row() { return m_table->currentIndex().row(); }
    void type(const char *text)
    {
        m_bar->open();
        QTest::keyClicks(m_text, QLatin1String(text));
    }

    std::unique_ptr<QGroupBox> m_window;
    Utils::TableView *m_table = nullptr;
    Utils::FindBar *m_bar = nullptr;
    QLineEdit *m_text = nullptr;
};

void TestFindBar::init()
{
    m_window = std::make_unique<QGroupBox>(QStringLiteral("IO"));
    m_table = new Utils::TableView;
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    auto *model = new QStandardItemModel(m_table);
    for (const char *name : {"cpu/a", "top", "CPU/b", "cpu/c", "io"})
        model->appendRow(
            {new QStandardItem(QLatin1String(name)), new QStandardItem(QStringLiteral("5pF"))});
    m_table->setModel(model);
    m_bar = new Utils::FindBar;
    auto *layout = new QVBoxLayout(m_window.get());
    layout->addWidget(m_table);
    layout->addWidget(m_bar);
    m_bar->setTable(m_table);
    m_text = m_bar->findChild<QLineEdit *>();
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_table->setCurrentIndex(model->index(1, 1));
}

void TestFindBar::stepsThroughHits()
{
    QVERIFY(!m_bar->isVisible());
    type("cpu");
    QCOMPARE(QApplication::focusWidget(), m_text);
    QCOMPARE(m_bar->findChild<QLabel *>()->text(), QStringLiteral("Find in IO:"));
    QCOMPARE(row(), 2);
    QCOMPARE(m_table->currentIndex().column(), 1); // where Ctrl+Enter will fill
    QTest::keyClick(m_text, Qt::Key_Return);
    QCOMPARE(row(), 3);
    QVERIFY(result().isEmpty());
    QTest::keyClick(m_text, Qt::Key_Return);
    QCOMPARE(row(), 0);
    QCOMPARE(result(), QStringLiteral("Continued from the top"));
    QTest::keyClick(m_text, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(row(), 3);
    QCOMPARE(result(), QStringLiteral("Continued from the bottom"));
    type("5pf"); // what a value shows is found, too
    QCOMPARE(row(), 3);
    type("nothing");
    QCOMPARE(row(), 3);
    QCOMPARE(result(), QStringLiteral("Not found"));
}

void TestFindBar::selectsAllHits()
{
    type("cpu");
    QTest::mouseClick(m_bar->findChild<QToolButton *>(QStringLiteral("selectHits")),
                      Qt::LeftButton);
    QVector<int> rows;
    const QModelIndexList selected = m_table->selectionModel()->selectedRows();
    for (const QModelIndex &index : selected)
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    QCOMPARE(rows, QVector<int>({0, 2, 3}));
    QCOMPARE(result(), QStringLiteral("3 rows selected"));
    QCOMPARE(QApplication::focusWidget(), m_table);
    for (int i = 0; i < m_table->model()->rowCount(); ++i)
        QVERIFY(!m_table->isRowHidden(i));
}

void TestFindBar::closesWithKeyOrTable()
{
    type("cpu");
    QTest::keyClick(m_text, Qt::Key_Escape);
    QVERIFY(!m_bar->isVisible());
    QCOMPARE(QApplication::focusWidget(), m_table);
    m_bar->findNext(); // asks for the text first
    QVERIFY(m_bar->isVisible());
    m_table->hide(); // as on another tab
    QVERIFY(!m_bar->isVisible());
    delete m_table;
    m_bar->open();
    QVERIFY(!m_bar->isVisible());
}

QTEST_MAIN(TestFindBar)
#include "test_findbar.moc"
