#include "utils/tableview.h"

#include "host/utils/columnsharing.h"

#include <QtTest>
#include <QtWidgets>

namespace {

/// Refuses a text that begins with "no", without a word.
class Model : public QStandardItemModel
{
public:
    using QStandardItemModel::QStandardItemModel;

    bool setData(const QModelIndex &index, const QVariant &value, int role) override
    {
        return !value.toString().startsWith(QLatin1String("no")) &&
               QStandardItemModel::setData(index, value, role);
    }
};

} // namespace

class TestTableView : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_window.reset(); }
    void copiesSelection();
    void pastes_data();
    void pastes();
    void fillsDown();
    void typeAheadFindsRows();
    void digitOpensEditor();
    void enterAndTab();
    void sharesWidths();

private:
    void set(const QString &rows);
    QString all() const;
    QString status() const { return m_window->statusBar()->currentMessage(); }
    void select(const QVector<int> &rows, int column)
    {
        m_table->clearSelection();
        m_table->setCurrentIndex(m_model->index(rows.first(), column));
        for (const int row : rows)
            m_table->selectionModel()->select(m_model->index(row, column),
                                              QItemSelectionModel::Select |
                                                  QItemSelectionModel::Rows);
    }

    std::unique_ptr<QMainWindow> m_window;
    Utils::TableView *m_table = nullptr;
    Model *m_model = nullptr;
};

/// Columns: a text that cannot be edited, a number from 0 to 100, a text.
void TestTableView::init()
{
    m_window = std::make_unique<QMainWindow>();
    m_window->statusBar();
    m_table = new Utils::TableView;
    m_model = new Model(m_table);
    m_table->setModel(m_model);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setEditTriggers(QAbstractItemView::EditKeyPressed); // letters do not open an editor
    m_window->setCentralWidget(m_table);
    set(QStringLiteral("a 1 x|b 2 y|c 3 z|d 4 w"));
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_table->setFocus();
}

void TestTableView::set(const QString &rows)
{
    m_model->clear();
    for (const QString &row : rows.split(QLatin1Char('|'))) {
        const QStringList cells = row.split(QLatin1Char(' '));
        auto *name = new QStandardItem(cells.at(0));
        name->setEditable(false);
        auto *number = new QStandardItem;
        number->setData(cells.at(1).toDouble(), Qt::EditRole);
        m_model->appendRow({name, number, new QStandardItem(cells.at(2))});
    }
}

QString TestTableView::all() const
{
    QStringList rows;
    for (int row = 0; row < m_model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < m_model->columnCount(); ++column)
            cells << m_model->index(row, column).data().toString();
        rows << cells.join(QLatin1Char(' '));
    }
    return rows.join(QLatin1Char('|'));
}

void TestTableView::copiesSelection()
{
    m_model->setData(m_model->index(2, 2), QStringLiteral("a\t\"b\""), Qt::EditRole);
    select({2, 0}, 1);
    QTest::keyClick(m_table, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(),
             QStringLiteral("a\t1\tx\nc\t3\t\"a\t\"\"b\"\"\"\n"));
}

void TestTableView::pastes_data()
{
    QTest::addColumn<QVector<int>>("rows");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("status");
    const auto row = [](const char *name, const QVector<int> &rows, int column, const char *text,
                        const char *result, const char *status) {
        QTest::newRow(name) << rows << column << text << result << status;
    };
    row("one value into every selected row", {0, 2}, 1, "7", "a 7 x|b 2 y|c 7 z|d 4 w",
        "2 cells changed.");
    row("a column, down from the current cell", {1}, 1, "7\r\n8\r\n", "a 1 x|b 7 y|c 8 z|d 4 w",
        "2 cells changed.");
    row("as many rows as are selected", {0, 3}, 2, "p\nq", "a 1 p|b 2 y|c 3 z|d 4 q",
        "2 cells changed.");
    row("whole rows, their names left alone", {0}, 2, "a\t5\tu\nB\t6\tv\n",
        "a 5 u|b 6 v|c 3 z|d 4 w", "4 cells changed, 1 cell refused.");
    row("validated", {0}, 1, "abc\ndef\n9", "a 1 x|b 2 y|c 9 z|d 4 w",
        "1 cell changed, 2 cells refused.");
    row("refused in silence by the model", {0}, 2, "no\nyes", "a 1 x|b 2 yes|c 3 z|d 4 w",
        "1 cell changed, 1 cell refused.");
    row("beyond the edges", {3}, 2, "p\tq\nr\ts", "a 1 x|b 2 y|c 3 z|d 4 p",
        "1 cell changed, 3 cells outside the table.");
}

void TestTableView::pastes()
{
    QFETCH(QVector<int>, rows);
    QFETCH(int, column);
    QFETCH(QString, text);
    QFETCH(QString, result);
    QFETCH(QString, status);
    select(rows, column);
    QApplication::clipboard()->setText(text);
    QTest::keyClick(m_table, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(all(), result);
    QCOMPARE(this->status(), status);
}

void TestTableView::fillsDown()
{
    select({3, 1}, 1);
    QTest::keyClick(m_table, Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(all(), QStringLiteral("a 1 x|b 2 y|c 3 z|d 2 w"));
    select({1}, 2); // a single row takes from the one above
    QTest::keyClick(m_table, Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(all(), QStringLiteral("a 1 x|b 2 x|c 3 z|d 2 w"));
    select({0, 1, 2}, 0);
    QTest::keyClick(m_table, Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(status(), QStringLiteral("0 cells changed, 2 cells refused."));
}

void TestTableView::typeAheadFindsRows()
{
    set(QStringLiteral("top 1 x|cpu/reg_1 2 y|cpu/reg_2 3 z|ctl 4 w"));
    select({0}, 1);
    const auto row = [this] { return m_table->currentIndex().row(); };
    QTest::keyClicks(m_table, QStringLiteral("CT"));
    QCOMPARE(row(), 3);
    QCOMPARE(m_table->currentIndex().column(), 1);
    m_table->keyboardSearch({});
    QTest::keyClicks(m_table, QStringLiteral("g_1")); // no row begins so
    QCOMPARE(row(), 1);
}

void TestTableView::digitOpensEditor()
{
    select({0, 2, 3}, 1);
    const auto editor = [this] { return m_table->viewport()->findChild<QAbstractSpinBox *>(); };
    QTest::keyClick(m_table, Qt::Key_7);
    QVERIFY(editor());
    QTest::keyClick(editor(), Qt::Key_Return, Qt::ControlModifier); // into every selected row
    QTRY_VERIFY(!editor());
    QCOMPARE(all(), QStringLiteral("a 7 x|b 2 y|c 7 z|d 7 w"));
    select({1}, 0);
    QTest::keyClick(m_table, Qt::Key_5); // no number, and not editable
    QVERIFY(!m_table->viewport()->findChild<QLineEdit *>());
}

void TestTableView::enterAndTab()
{
    select({1}, 1);
    QTest::keyClick(m_table, Qt::Key_Return);
    QCOMPARE(m_table->currentIndex().row(), 2);
    QTest::keyClick(m_table, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(m_table->currentIndex().row(), 1);
    QSignalSpy opened(m_table, &QTableView::activated); // where it opens something
    QTest::keyClick(m_table, Qt::Key_Return);
    QCOMPARE(opened.count(), 1);
    QCOMPARE(m_table->currentIndex().row(), 1);
    auto *next = new QLineEdit;
    m_window->statusBar()->addWidget(next);
    next->show();
    QTest::keyClick(m_table, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), next);
}

void TestTableView::sharesWidths()
{
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    QCoreApplication::setOrganizationName(QStringLiteral("test_tableview"));
    const auto width = [this](int column) { return m_table->columnWidth(column); };
    Utils::ColumnSharing::setEnabled(true);
    m_table->setColumnWidth(0, 300);
    m_table->setColumnWidth(1, 200);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_window->resize(360, 200);
    QTRY_COMPARE(width(0) + width(1) + width(2), m_table->viewport()->width());
    QVERIFY2(width(1) > 20 && width(2) > 20 && width(0) > 20,
             qPrintable(QString::number(width(0))));
    m_window->resize(900, 200); // names get what is left
    QTRY_COMPARE(width(1), 200);
    QVERIFY(width(0) > 300);

    const QHeaderView *header = m_table->horizontalHeader();
    const QPoint edge(header->sectionPosition(1) - 1, header->height() / 2);
    QTest::mousePress(header->viewport(), Qt::LeftButton, Qt::NoModifier, edge);
    QMouseEvent drag(QEvent::MouseMove, edge - QPoint(60, 0), Qt::NoButton, Qt::LeftButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(header->viewport(), &drag);
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, Qt::NoModifier, edge - QPoint(60, 0));
    const int moved = width(0);
    QCOMPARE(moved, header->sectionPosition(1));
    QVERIFY(moved < edge.x() - 40);
    m_window->resize(500, 200);
    QCOMPARE(width(0), moved);
    init(); // another table of the kind
    QTRY_COMPARE(width(0), moved);
    m_table->horizontalHeader()->actions().first()->trigger(); // resets
    QTRY_VERIFY(width(0) != moved);
    Utils::ColumnSharing::setEnabled(false);
}

QTEST_MAIN(TestTableView)
#include "test_tableview.moc"
