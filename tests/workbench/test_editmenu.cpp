#include "windowtest.h"

#include "core/iview.h"
#include "host/utils/findbar.h"
#include "utils/tableview.h"

#include <QtTest>
#include <QtWidgets>

/// The Edit menu on the tables and fields of a configuration, driven by keys.
class TestEditMenu : public WindowTest
{
    Q_OBJECT

private slots:
    void actsOnTheTable();
    void actsOnTheField();
    void findsInTheTableOfTheFocus();
    void statusBarFollowsTheFocus();

private:
    Utils::TableView *ports();
    void press(const char *keys);
    QString enabled();

    Core::IView *m_open = nullptr;
};

/// The table of ports of a new view: q[0] without values, q[1] with 5 pF, io with 7 pF.
Utils::TableView *TestEditMenu::ports()
{
    m_open = openView(QStringLiteral("a.vlr"),
                      QByteArray(EmptyFile).replace(
                          "<Config/>", "<Config><PortOutEnable><Port name=\"q[0]\" type=\"1\"/>"
                                       "<Port name=\"q[1]\" capacity=\"5\" type=\"1\"/>"
                                       "<Port name=\"io\" capacity=\"7\" type=\"2\"/>"
                                       "</PortOutEnable></Config>"));
    m_open->findChild<QTabWidget *>()->setCurrentIndex(2);
    const auto tables = m_open->findChildren<Utils::TableView *>();
    for (Utils::TableView *table : tables) {
        if (table->isVisible() && table->model()->rowCount() == 3) {
            table->setFocus();
            return table;
        }
    }
    return nullptr;
}

/// Opens the menu and presses a mnemonic in it.
void TestEditMenu::press(const char *key)
{
    QTest::keyClick(&window(), Qt::Key_E, Qt::AltModifier);
    QWidget *menu = QApplication::activePopupWidget();
    QVERIFY(menu);
    QTest::keyClicks(menu, QLatin1String(key));
    QVERIFY(!QApplication::activePopupWidget());
}

/// What the open menu offers.
QString TestEditMenu::enabled()
{
    QTest::keyClick(&window(), Qt::Key_E, Qt::AltModifier);
    QWidget *menu = QApplication::activePopupWidget();
    QStringList names;
    for (const QAction *action : menu->actions()) {
        if (action->isEnabled() && !action->isSeparator())
            names.append(action->objectName());
    }
    menu->close();
    return names.join(QLatin1Char(' '));
}

void TestEditMenu::actsOnTheTable()
{
    Utils::TableView *table = ports();
    QVERIFY(table);
    QApplication::clipboard()->clear();
    table->setCurrentIndex(table->model()->index(1, 2));
    QCOMPARE(enabled(), QStringLiteral("copy fillDown selectAll find findNextRow findPreviousRow"));
    press("c");
    QVERIFY(QApplication::clipboard()->text().startsWith(QLatin1String("q[1]\t\t5pF")));
    QApplication::clipboard()->setText(QStringLiteral("9"));
    QVERIFY(enabled().contains(QLatin1String("paste")));
    press("p");
    const auto load = [table](int row) { return table->model()->index(row, 2).data().toString(); };
    QCOMPARE(load(1), QStringLiteral("9pF"));
    table->setCurrentIndex(table->model()->index(2, 2));
    press("d");
    QCOMPARE(load(2), QStringLiteral("9pF"));
    press("a");
    QCOMPARE(table->selectionModel()->selectedRows().size(), 3);
    table->setCurrentIndex(table->model()->index(2, 0)); // names are not edited
    QVERIFY(!enabled().contains(QLatin1String("fillDown")));
}

void TestEditMenu::actsOnTheField()
{
    ports();
    const auto boxes = m_open->findChildren<QDoubleSpinBox *>();
    const auto box = std::find_if(boxes.begin(), boxes.end(),
                                  [](const QDoubleSpinBox *each) { return each->isVisible(); });
    QVERIFY(box != boxes.end());
    (*box)->setFocus();
    (*box)->selectAll();
    QCOMPARE(enabled().left(8), QStringLiteral("cut copy"));
    (*box)->setFocus(); // the menu bar has it after a menu that is left
    press("a");
    const QString text = (*box)->text();
    press("t");
    QCOMPARE(QApplication::clipboard()->text(), text);
    QVERIFY((*box)->text().isEmpty());
    press("p");
    QCOMPARE((*box)->text(), text);
    window().messages()->setFocus();
    window().messages()->selectAll();
    QVERIFY(enabled().startsWith(QLatin1String("copy selectAll"))); // it is only read
}

void TestEditMenu::findsInTheTableOfTheFocus()
{
    Utils::TableView *table = ports();
    auto *bar = window().findChild<Utils::FindBar *>();
    QTest::keyClick(table, Qt::Key_F, Qt::ControlModifier);
    QVERIFY(bar->isVisible());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("q["));
    QCOMPARE(table->currentIndex().row(), 0);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F3);
    QCOMPARE(table->currentIndex().row(), 1);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!bar->isVisible());
    QVERIFY(table->hasFocus());

    // A page without a table says why, the next one needs no focus in its table.
    auto *pages = m_open->findChild<QTabWidget *>();
    pages->setCurrentIndex(0);
    QTest::keyClick(&window(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(!bar->isVisible());
    QVERIFY(window().statusBar()->currentMessage().contains(QLatin1String("none in view")));
    QVERIFY(!enabled().contains(QLatin1String("find")));
    pages->setCurrentIndex(1);
    window().messages()->setFocus();
    QTest::keyClick(&window(), Qt::Key_F, Qt::ControlModifier);
    QVERIFY(bar->isVisible() && bar->table() != table && bar->table()->isVisible());
    pages->setCurrentIndex(0);
    QVERIFY(!bar->isVisible());
}

void TestEditMenu::statusBarFollowsTheFocus()
{
    Utils::TableView *table = ports();
    auto *status = window().findChild<QLabel *>(QStringLiteral("tableStatus"));
    QStatusBar *bar = window().statusBar();
    table->setCurrentIndex(table->model()->index(1, 2));
    QCOMPARE(status->text(), QStringLiteral("3 rows, 1 selected"));
    QTest::keyClick(table, Qt::Key_D, Qt::ControlModifier);
    QVERIFY(bar->currentMessage().contains(QLatin1String("changed")));
    QTest::keyClick(table, Qt::Key_Down, Qt::ShiftModifier);
    QCOMPARE(status->text(), QStringLiteral("3 rows, 2 selected"));
    QVERIFY(bar->currentMessage().isEmpty());
    QTest::keyClick(table, Qt::Key_D, Qt::ControlModifier);
    QVERIFY(!bar->currentMessage().isEmpty());
    window().messages()->setFocus();
    QVERIFY(bar->currentMessage().isEmpty());
    QVERIFY(!status->isVisible());
}

QTEST_MAIN(TestEditMenu)
#include "test_editmenu.moc"
