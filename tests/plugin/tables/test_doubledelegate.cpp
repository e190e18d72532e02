#include "tables/doubledelegate.h"
#include "tables/elidedpath.h"

#include <QtTest>
#include <QtWidgets>

using VLT::DoubleEditorDelegate;

class TestDoubleDelegate : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German)); } // a comma
    void init();
    void cleanup();
    void commitsTypedValue_data();
    void commitsTypedValue();
    void commitOpenEditor();
    void elidesInFrontOfTheLastPart();
    void backgroundShinesThroughASelection();

private:
    QDoubleSpinBox *edit()
    {
        m_table->edit(m_model->index(0, 1));
        return m_table->findChild<QDoubleSpinBox *>();
    }
    QString stored() const { return m_model->index(0, 1).data(Qt::EditRole).toString(); }

    std::unique_ptr<QStandardItemModel> m_model;
    std::unique_ptr<QTableView> m_table;
    DoubleEditorDelegate *m_delegate = nullptr;
};

void TestDoubleDelegate::init()
{
    m_model = std::make_unique<QStandardItemModel>(1, 2);
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

void TestDoubleDelegate::commitsTypedValue_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key"); // 0 when the editor loses the focus
    QTest::addColumn<QString>("stored");
    const auto row = [](const char *typed, int key, const char *stored) {
        const char *end = key == 0 ? "focus lost" : key == Qt::Key_Escape ? "Escape" : "Return";
        QTest::addRow("%s, %s", *typed ? typed : "nothing", end)
            << QString::fromLatin1(typed) << key << QString::fromLatin1(stored);
    };
    row("33.3", Qt::Key_Return, "33.30");
    row("33,3", Qt::Key_Return, "33.30");
    row("7%", Qt::Key_Return, "7.00");
    row("-0", Qt::Key_Return, "0.00");
    row("-5", Qt::Key_Return, "-1");
    row("-,5", Qt::Key_Return, "-1");
    row("-5", 0, "-1");
    row("-", Qt::Key_Return, "12.5");
    row("--", 0, "12.5");
    row("12.50", 0, "12.5");
    row("12,5", Qt::Key_Return, "12.5");
    row("150", Qt::Key_Return, "15.00"); // the last digit is refused
    row("", Qt::Key_Return, "-1");
    row("", 0, "-1");
    row("4", 0, "4.00");
    row("4", Qt::Key_Escape, "12.5");
}

void TestDoubleDelegate::commitsTypedValue()
{
    QFETCH(QString, typed);
    QFETCH(int, key);
    QFETCH(QString, stored);
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
    QTRY_COMPARE(this->stored(), stored);
    QTRY_VERIFY(!m_table->isPersistentEditorOpen(m_model->index(0, 1)));
}

void TestDoubleDelegate::commitOpenEditor()
{
    QTest::keyClicks(edit(), QStringLiteral("8"));
    m_delegate->commitOpenEditor();
    QCOMPARE(stored(), QStringLiteral("8.00"));
    m_delegate->commitOpenEditor(); // nothing is open
}

void TestDoubleDelegate::elidesInFrontOfTheLastPart()
{
    const QFontMetrics metrics(m_table->font());
    const auto width = [&metrics](const char *text) {
        return metrics.horizontalAdvance(QString::fromUtf8(text));
    };
    const QString path = QStringLiteral("u_core/u_decoder/state_reg[12]");
    QCOMPARE(VLT::elidedPath(path, metrics, width("u_core/u_decoder/state_reg[12]")), path);
    const QString shorter = VLT::elidedPath(path, metrics, width("u_core/u_…/state_reg[12]") + 1);
    QVERIFY2(shorter.startsWith(QLatin1String("u_core/u")) &&
                 shorter.endsWith(QStringLiteral("…/state_reg[12]")),
             qPrintable(shorter));
    QVERIFY(VLT::elidedPath(path, metrics, width("…_reg[12]") + 1).endsWith(QLatin1String("[12]")));
}

// What does not apply stays so to the eye when its row is selected.
void TestDoubleDelegate::backgroundShinesThroughASelection()
{
    m_model->setData(m_model->index(0, 1), QVariant());
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->selectRow(0);
    const auto shown = [this] {
        const QRect cell = m_table->visualRect(m_model->index(0, 1));
        return m_table->viewport()->grab().toImage().pixelColor(cell.center());
    };
    const QColor selected = shown();
    m_model->setData(m_model->index(0, 1), QBrush(Qt::gray), Qt::BackgroundRole);
    const QColor gray = shown();
    QVERIFY2(gray.saturation() < selected.saturation() / 2, qPrintable(gray.name()));
}

QTEST_MAIN(TestDoubleDelegate)
#include "test_doubledelegate.moc"
