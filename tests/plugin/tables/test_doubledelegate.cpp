#include "tables/doubledelegate.h"

#include <QApplication>
#include <QDoubleSpinBox>
#include <QStandardItemModel>
#include <QTableView>
#include <QtTest>

using VLT::DoubleEditorDelegate;

class TestDoubleDelegate : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void commitsWhatIsTyped_data();
    void commitsWhatIsTyped();
    void takesWhatFitsTheRange();
    void committedByOthers();

private:
    QDoubleSpinBox *edit(int column = 1)
    {
        m_table->edit(m_model->index(0, column));
        return m_table->findChild<QDoubleSpinBox *>();
    }
    QString stored() const { return m_model->index(0, 1).data(Qt::EditRole).toString(); }

    std::unique_ptr<QStandardItemModel> m_model;
    std::unique_ptr<QTableView> m_table;
    DoubleEditorDelegate *m_delegate = nullptr;
};

void TestDoubleDelegate::initTestCase()
{
    QLocale::setDefault(QLocale(QLocale::German)); // a comma as decimal sign
}

void TestDoubleDelegate::init()
{
    m_model = std::make_unique<QStandardItemModel>(1, 2);
    m_model->setData(m_model->index(0, 0), QStringLiteral("name"));
    m_model->setData(m_model->index(0, 1), 12.5f);
    m_table = std::make_unique<QTableView>();
    m_delegate = new DoubleEditorDelegate(m_table.get(), 0.0, 100.0);
    m_table->setItemDelegate(m_delegate);
    m_table->setModel(m_model.get());
    m_table->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_table.get()));
    m_table->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_table.get()));
}

void TestDoubleDelegate::cleanup()
{
    m_table.reset();
    m_model.reset();
}

void TestDoubleDelegate::commitsWhatIsTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *tag, const char *typed, int key, const char *expected) {
        QTest::newRow(tag) << QString::fromLatin1(typed) << key << QString::fromLatin1(expected);
    };
    row("point", "33.3", Qt::Key_Return, "33.30");
    row("comma", "33,3", Qt::Key_Return, "33.30");
    row("with its unit", "7%", Qt::Key_Return, "7.00");
    row("stops at the maximum", "150", Qt::Key_Return, "15.00");
    row("emptied, entered", "", Qt::Key_Return, "-1");
    row("emptied, left", "", 0, "-1");
    row("left", "4", 0, "4.00");
    row("given up", "4", Qt::Key_Escape, "12.5");
}

void TestDoubleDelegate::commitsWhatIsTyped()
{
    QFETCH(QString, typed);
    QFETCH(int, key);
    QFETCH(QString, expected);
    QDoubleSpinBox *editor = edit();
    QVERIFY(editor);
    QCOMPARE(editor->text(), QStringLiteral("12.50"));
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(editor, Qt::Key_Backspace);
    QTest::keyClicks(editor, typed);
    if (key)
        QTest::keyClick(editor, Qt::Key(key));
    else
        m_table->setFocus();
    QTRY_COMPARE(stored(), expected);
    QTRY_VERIFY(!m_table->isPersistentEditorOpen(m_model->index(0, 1)));
}

void TestDoubleDelegate::takesWhatFitsTheRange()
{
    m_delegate->setMaximum(200);
    m_delegate->setMinimum(10);
    QDoubleSpinBox *editor = edit();
    QCOMPARE(editor->maximum(), 200.0);
    QCOMPARE(editor->minimum(), 10.0);
    QCOMPARE(m_delegate->displayText(33.3f, QLocale(QLocale::German)), QStringLiteral("33.3"));
    QString text = QStringLiteral("33.336");
    editor->fixup(text);
    QCOMPARE(text, QStringLiteral("33.34"));
    text = QStringLiteral("250.001");
    editor->fixup(text);
    QCOMPARE(text, QStringLiteral("250.001"));
}

void TestDoubleDelegate::committedByOthers()
{
    QTest::keyClicks(edit(), QStringLiteral("8"));
    m_delegate->commitOpenEditor();
    QCOMPARE(stored(), QStringLiteral("8.00"));
    m_delegate->commitOpenEditor(); // nothing is open
}

QTEST_MAIN(TestDoubleDelegate)
#include "test_doubledelegate.moc"
