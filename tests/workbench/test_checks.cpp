#include "windowtest.h"

#include "core/constants.h"
#include "core/iview.h"
#include "host/core/commandregistry.h"
#include "host/core/ifileopener.h"
#include "host/core/projectfile.h"
#include "workbench/checks/checkservice.h"

#include <QtTest>
#include <QtWidgets>

namespace {

QByteArray fileOf(const QByteArray &sections)
{
    return QByteArray(EmptyFile).replace("<Config/>", "<Config>\n" + sections + "</Config>");
}

QByteArray flipFlops(const QByteArrayList &names)
{
    QByteArray records;
    for (const QByteArray &name : names)
        records += "<Instance name=\"" + name + "\" value=\"5\"/>\n";
    return fileOf("<LocalEnable>\n" + records + "</LocalEnable>\n");
}

} // namespace

class TestChecks : public WindowTest
{
    Q_OBJECT

private slots:
    void followsTheFile();
    void remembersNamesOnSave();
    void filtersAndCopies();
    void goesToTheRecord();

private:
    QTreeView *list() { return window().findChild<QTreeView *>(QStringLiteral("findings")); }
    QString title()
    {
        return window().findChild<QDockWidget *>(QStringLiteral("checksDock"))->windowTitle();
    }
    QString status()
    {
        return window().findChild<QToolButton *>(QStringLiteral("checksStatus"))->text().trimmed();
    }
    QString state() { return window().findChild<QLabel *>(QStringLiteral("checksState"))->text(); }
    QString rules();
    void edit(Core::IView *view);
    static void save()
    {
        Core::CommandRegistry::command(QLatin1String(Core::Constants::A_FILE_SAVE))->trigger();
    }
};

/// "name-missing gone, name-moved q_reg0"
QString TestChecks::rules()
{
    QStringList rules;
    for (int row = 0; row < list()->model()->rowCount(); ++row)
        rules += list()->model()->index(row, 1).data().toString() + QLatin1Char(' ') +
                 list()->model()->index(row, 2).data().toString();
    return rules.join(QLatin1String(", "));
}

void TestChecks::edit(Core::IView *view)
{
    auto *box = view->findChild<QDoubleSpinBox *>(QStringLiteral("spinAmbTemp"));
    view->findChild<QTabWidget *>()->setCurrentIndex(0);
    QTest::keyClick(box, Qt::Key_Up);
    QVERIFY(view->windowTitle().endsWith(QLatin1Char('*')));
}

void TestChecks::followsTheFile()
{
    window().messages()->clear();
    Core::IView *view = openView(QStringLiteral("a.vlr"), flipFlops({"q_reg0", "gone"}));
    QTRY_COMPARE(rules(), QStringLiteral("name-missing gone"));
    QCOMPARE(title(), QStringLiteral("Checks (1 error, 0 warnings, 0 notes)"));
    QCOMPARE(status(), QStringLiteral("1 error, 0 warnings, 0 notes"));
    QTRY_COMPARE(messages().count(QLatin1String("a.vlr: 1 error, 0 warnings, 0 notes")), 1);

    // Another netlist, which has it; then another device.
    m_host->useNetlist(TestHost::defaultNetlist().replace("q_reg1", "gone"));
    m_host->finishSynthesis();
    QTRY_COMPARE(rules(), QString());
    QCOMPARE(title(), QStringLiteral("Checks (0 errors, 0 warnings, 0 notes)"));

    // As saved: what is being edited does not count, and the pane says so.
    QVERIFY(!state().contains(QLatin1String("changes")));
    edit(view);
    QTRY_VERIFY(state().contains(QLatin1String("changes in a.vlr are not included")));
    m_host->useNetlist(TestHost::defaultNetlist());
    m_host->finishSynthesis();
    QTRY_COMPARE(rules(), QStringLiteral("name-missing gone"));
    save();
    QVERIFY(!view->windowTitle().endsWith(QLatin1Char('*')));
    QTRY_VERIFY(!state().contains(QLatin1String("changes")));
    QTRY_COMPARE(rules(), QStringLiteral("name-missing gone"));

    // The pane shows the configuration in front, and nothing when none is open.
    openView(QStringLiteral("b.vlr"));
    QTRY_VERIFY(state().startsWith(QLatin1String("b.vlr")));
    QCOMPARE(rules(), QString());
    m_host->closeAll();
    QCOMPARE(title(), QStringLiteral("Checks"));
}

void TestChecks::remembersNamesOnSave()
{
    Core::IView *view = openView(QStringLiteral("a.vlr"), flipFlops({"q_reg0"}));
    QTRY_VERIFY(!title().isEmpty() && title() != QLatin1String("Checks"));
    QVERIFY(!QFile::exists(m_host->path(QStringLiteral("a.vlr.names"))));
    edit(view);
    save();
    const auto memory = [this] { return m_host->read(QStringLiteral("a.vlr.names")); };
    QTRY_VERIFY(memory().contains("\"name\":\"q_reg0\",\"names\":[\"q[0]\"]"));

    // The names change places: each means something else now, and keeps what it meant.
    QByteArray swapped = TestHost::defaultNetlist();
    swapped.replace("q_reg0", "other").replace("q_reg1", "q_reg0").replace("other", "q_reg1");
    m_host->useNetlist(swapped);
    m_host->finishSynthesis();
    QTRY_COMPARE(rules(), QStringLiteral("name-moved q_reg0"));
    edit(view);
    save();
    QTRY_VERIFY(!state().contains(QLatin1String("again")));
    QTRY_COMPARE(rules(), QStringLiteral("name-moved q_reg0"));
    QVERIFY(memory().contains("\"q[0]\""));

    // Closing right after the save does not lose the record.
    view = openView(QStringLiteral("b.vlr"), flipFlops({"q_reg1"}));
    edit(view);
    save();
    m_host->closeAll();
    window().findChild<Workbench::CheckService *>()->finishRecording();
    QVERIFY(m_host->read(QStringLiteral("b.vlr.names")).contains("q_reg1"));

    // Switched off in the project.
    QAction *record = action("recordNames");
    QVERIFY(record->isChecked());
    record->trigger();
    QVERIFY(m_host->read(QStringLiteral("test.fpgaproj")).contains("\"recordNames\": false"));
    view = openView(QStringLiteral("c.vlr"), flipFlops({"q_reg1", "gone"}));
    edit(view);
    save();
    QTRY_COMPARE(rules(), QStringLiteral("name-missing gone"));
    QTRY_VERIFY(state() == QLatin1String("c.vlr, as saved"));
    QVERIFY(!QFile::exists(m_host->path(QStringLiteral("c.vlr.names"))));
}

void TestChecks::filtersAndCopies()
{
    openView(QStringLiteral("a.vlr"),
             fileOf("<New/>\n<LocalEnable><Instance name=\"gone\"/></LocalEnable>\n"));
    QTRY_COMPARE(list()->model()->rowCount(), 2);
    list()->window()->activateWindow();
    action("showChecks")->trigger();
    auto *errors = window().findChild<QToolButton *>(QStringLiteral("errorLevel"));
    QCOMPARE(errors->text().trimmed(), QStringLiteral("1 error"));
    QTest::mouseClick(errors, Qt::LeftButton);
    QCOMPARE(list()->model()->rowCount(), 1);
    QCOMPARE(list()->model()->index(0, 1).data().toString(), QStringLiteral("unknown-element"));
    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_C, Qt::ControlModifier);
    const QString copied = QApplication::clipboard()->text();
    QVERIFY2(copied.contains(QLatin1String("a.vlr:4: warning: ")) &&
                 copied.endsWith(QLatin1String(" [unknown-element]\n")) &&
                 copied.count(QLatin1Char('\n')) == 1,
             qPrintable(copied));
    QTest::mouseClick(errors, Qt::LeftButton);
    QCOMPARE(list()->model()->rowCount(), 2);
}

void TestChecks::goesToTheRecord()
{
    Core::IView *view = openView(QStringLiteral("a.vlr"),
                                 fileOf("<NetRate><Net name=\"next\" value=\"5\"/></NetRate>\n"
                                        "<LocalEnable><Instance name=\"zz\" value=\"1\"/>"
                                        "<Instance name=\"q_reg0\" value=\"2\"/>"
                                        "<Instance name=\"aa\" value=\"3\"/>"
                                        "<Instance name=\"zz\" value=\"4\"/></LocalEnable>\n"));
    openView(QStringLiteral("b.vlr"));
    auto *views = window().findChild<QTabWidget *>(QStringLiteral("views"));
    views->setCurrentWidget(view);
    QTRY_COMPARE(rules(), QStringLiteral("duplicate zz, name-missing zz, name-missing aa, "
                                         "name-missing zz"));
    action("showChecks")->trigger();
    QTableView *table = nullptr;
    const auto tables = view->findChildren<QTableView *>();
    for (QTableView *candidate : tables) {
        if (candidate->model()->rowCount() == 4)
            table = candidate;
    }
    QVERIFY(table);
    // By name and number among its like, whatever the table is sorted by.
    table->sortByColumn(0, Qt::AscendingOrder);
    int second = -1;
    for (int row = 0; row < list()->model()->rowCount(); ++row) {
        if (list()->model()->index(row, 1).data() == QLatin1String("duplicate"))
            second = row;
    }
    const QModelIndex index = list()->model()->index(second, 3);
    QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, list()->visualRect(index).center());
    QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, list()->visualRect(index).center());
    QVERIFY(table->isVisible());
    QCOMPARE(table->currentIndex().siblingAtColumn(0).data().toString(), QStringLiteral("zz"));
    QCOMPARE(table->currentIndex().siblingAtColumn(1).data().toFloat(), 4.0F);
    QCOMPARE(table->selectionModel()->selectedRows().size(), 1);
    const QRect shown = table->visualRect(table->currentIndex());
    QVERIFY(shown.top() >= 0 && shown.bottom() <= table->viewport()->height());
    QVERIFY(table->hasFocus());

    list()->setFocus();
    QTest::keyClick(list(), Qt::Key_Home);
    QTest::keyClick(list(), Qt::Key_Return);
    QVERIFY(table->hasFocus());
}

QTEST_MAIN(TestChecks)
#include "test_checks.moc"
