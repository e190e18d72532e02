#include "windowtest.h"

#include "support/modaldriver.h"
#include "support/netlistjson.h"

#include "core/iview.h"
#include "host/core/ifileopener.h"

#include <QtTest>
#include <QtWidgets>

namespace {

// Of the design as below: all but what is in u9.
const QByteArray DUMP = "$timescale 1ns $end\n$scope module tb $end $scope module dut $end\n"
                        "$var wire 1 ! c $end $var wire 8 % own [7:0] $end\n"
                        "$scope module u10 $end $var wire 2 # r [1:0] $end $upscope $end\n"
                        "$upscope $end $upscope $end $enddefinitions $end\n"
                        "#0\n0!\nb0 %\nb00 #\n#5\n1!\nb01 #\n#10\n0!\nb1 %\nb10 #\n#15\n";

QByteArray design(const char *third = "u9")
{
    NetlistJson json;
    const auto flipFlop = [](NetlistJson::Module &module, const QByteArray &name, int q) {
        module.cell(name, "$_DFF_P_",
                    {{"C", "input", {2}}, {"D", "input", {"0"}}, {"Q", "output", {q}}});
    };
    auto &unit = json.module("unit").port("c", "input", {2}).net("r", {3, 4});
    flipFlop(unit, "r_reg0", 3);
    flipFlop(unit, "r_reg1", 4);
    auto &top = json.module("top").top().port("c", "input", {2});
    top.net("own", {3, 4, 5, 6, 7, 8, 9, 10});
    for (int bit = 0; bit < 8; ++bit)
        flipFlop(top, "own_reg" + QByteArray::number(bit), 3 + bit);
    top.cell("u10", "unit", {{"c", "input", {2}}}).cell(third, "unit", {{"c", "input", {2}}});
    return json.toUtf8();
}

QByteArray bound(const QString &file, const QByteArray &rates, const QByteArray &instance = {})
{
    return QByteArray(EmptyFile).replace(
        "<Config/>", "<Config>\n<NetRate type=\"toggle\">" + rates +
                         "</NetRate>\n<SimuFile>\n<File type=\"vcd\" name=\"" + file.toUtf8() +
                         "\" "
                         "entity=\"" +
                         instance + "\"/>\n</SimuFile>\n</Config>");
}

} // namespace

class TestCoverage : public WindowTest
{
    Q_OBJECT

private slots:
    void showsInstances();
    void addsToNetRates();
    void countsAndStops();
    void bindsToWhatFits();

private:
    template<class T>
    T *part(const char *name)
    {
        return window().findChild<T *>(QLatin1String(name));
    }
    QTreeView *tree() { return part<QTreeView>("instances"); }
    QTreeView *list() { return part<QTreeView>("uncovered"); }
    QString state() { return part<QLabel>("coverageState")->text(); }
    /// What the tree says about an instance, in words.
    QString description(const QString &instance, int column)
    {
        const QModelIndexList found =
            tree()->model()->match(tree()->model()->index(0, 0), Qt::DisplayRole, instance, 1,
                                   Qt::MatchExactly | Qt::MatchRecursive);
        return found.value(0).siblingAtColumn(column).data(Qt::AccessibleTextRole).toString();
    }
    /// The instances in the top, in the order in which they are shown.
    QString order()
    {
        QStringList names;
        const QModelIndex top = tree()->model()->index(0, 0);
        for (int row = 0; row < tree()->model()->rowCount(top); ++row)
            names += tree()->model()->index(row, 0, top).data().toString();
        return names.join(QLatin1Char(' '));
    }
    Core::IView *show(const QByteArray &rates = {})
    {
        m_host->useNetlist(design());
        const QString dump = m_host->write(QStringLiteral("a.vcd"), DUMP);
        Core::IView *view = openView(QStringLiteral("a.vlr"), bound(dump, rates));
        window().resize(1400, 1000);
        action("showCoverage")->trigger();
        [this] { QTRY_VERIFY(list()->viewport()->height() > 80); }();
        [this] { QTRY_VERIFY(state().startsWith(QLatin1String("a.vlr: sources "))); }();
        return view;
    }
    void select(const QString &instance)
    {
        const QModelIndexList found =
            tree()->model()->match(tree()->model()->index(0, 0), Qt::DisplayRole, instance, 1,
                                   Qt::MatchExactly | Qt::MatchRecursive);
        clickRow(tree(), found.value(0));
    }
    void save() { QTest::keyClick(&window(), Qt::Key_S, Qt::ControlModifier); }
    QString uncovered()
    {
        QStringList nets;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            nets += list()->model()->index(row, 0).data().toString();
        return nets.join(QLatin1Char(' '));
    }
    void press(const char *button) { QTest::mouseClick(part<QToolButton>(button), Qt::LeftButton); }
    void clickRow(QTreeView *view, const QModelIndex &index)
    {
        view->scrollTo(index);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
    }
};

void TestCoverage::showsInstances()
{
    show();
    QVERIFY(state().contains(QLatin1String("sources 11 of 13 (85 %), logic 0 of 0")));
    QCOMPARE(description(QStringLiteral("top"), 2), QStringLiteral("11 file, 2 default"));
    QCOMPARE(description(QStringLiteral("top"), 4), QStringLiteral("10 of 12 (83 %)"));
    QCOMPARE(description(QStringLiteral("u9"), 4), QStringLiteral("0 of 2 (0 %)"));
    QVERIFY(tree()->isColumnHidden(5) && !tree()->isColumnHidden(4)); // there are no memories
    QCOMPARE(uncovered(), QStringLiteral("u9/r[0] u9/r[1]"));

    // Own nets, without what is inside.
    QTest::mouseClick(part<QCheckBox>("coverageNested"), Qt::LeftButton, {}, {8, 8});
    QCOMPARE(description(QStringLiteral("top"), 4), QStringLiteral("8 of 8 (100 %)"));
    QCOMPARE(uncovered(), QString());
    QTest::mouseClick(part<QCheckBox>("coverageNested"), Qt::LeftButton, {}, {8, 8});

    // By name and by what is covered, either way.
    const auto sortBy = [this](int column) {
        QHeaderView *header = tree()->header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                          {header->sectionViewportPosition(column) + 5, header->height() / 2});
    };
    QCOMPARE(order(), QStringLiteral("u10 u9"));
    sortBy(0);
    QCOMPARE(order(), QStringLiteral("u9 u10"));
    sortBy(4);
    const QString once = order();
    sortBy(4);
    QVERIFY(order() != once);

    select(QStringLiteral("u9"));
    QCOMPARE(part<QWidget>("coverageLegend")->accessibleName(),
             QStringLiteral("constant 0, rate 0, file 0, IO default 0, default 2"));
    press("copyUncovered");
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("u9/r[0]\nu9/r[1]\n"));
    clickRow(list(), list()->model()->index(1, 0));
    QTest::keyClick(list(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QStringLiteral("u9/r[1]\n"));

    // Another netlist; another configuration in front; none.
    m_host->useNetlist(design("u11"));
    m_host->finishSynthesis();
    QTRY_COMPARE(uncovered(), QStringLiteral("u11/r[0] u11/r[1]"));
    openView(QStringLiteral("b.vlr"));
    QTRY_VERIFY(state().startsWith(QLatin1String("b.vlr: sources 0 of 13")));
    m_host->closeAll();
    QTRY_VERIFY(state().startsWith(QLatin1String("Open a configuration")));
    QCOMPARE(tree()->model()->rowCount(), 0);
}

void TestCoverage::addsToNetRates()
{
    Core::IView *view = show("<Net name=\"own[0]\" value=\"5\"/>");
    const QByteArray before = m_host->read(QStringLiteral("a.vlr"));
    auto *table =
        view->findChild<QWidget *>(QStringLiteral("tableviewNet"))->findChild<QTableView *>();
    view->findChild<QTabWidget *>()->setCurrentIndex(1);
    // A value is being typed, and stays.
    table->setCurrentIndex(table->model()->index(0, 1));
    table->edit(table->currentIndex());
    auto *editor = table->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("7"));
    view->findChild<QTabWidget *>()->setCurrentIndex(1);
    clickRow(list(), list()->model()->index(1, 0));
    const auto rates = [table] {
        QStringList rows;
        for (int row = 0; row < table->model()->rowCount(); ++row)
            rows += table->model()->index(row, 0).data().toString() + QLatin1Char('=') +
                    table->model()->index(row, 1).data().toString();
        return rows.join(QLatin1Char(' '));
    };
    press("addUncovered");
    QCOMPARE(rates(), QStringLiteral("own[0]=7.00% u9/r[1]="));
    QVERIFY(view->windowTitle().endsWith(QLatin1Char('*')));
    QCOMPARE(m_host->read(QStringLiteral("a.vlr")), before);
    QVERIFY(table->isVisible() && table->currentIndex().row() == 1);
    QTRY_VERIFY(state().contains(QLatin1String("without the changes")));

    // All; what is listed is not listed again.
    list()->clearSelection();
    press("addUncovered");
    QCOMPARE(rates(), QStringLiteral("own[0]=7.00% u9/r[1]= u9/r[0]="));
    for (int row = 1; row < 3; ++row)
        QVERIFY(table->model()->setData(table->model()->index(row, 1), QStringLiteral("3")));
    save();
    QTRY_VERIFY(state().contains(QLatin1String("sources 13 of 13 (100 %)")));
    QCOMPARE(uncovered(), QString());
}

void TestCoverage::countsAndStops()
{
    Core::IView *view = show();
    const int toggles = tree()->model()->columnCount() - 1;
    QVERIFY(tree()->isColumnHidden(toggles));
    // Stopped at once: what has been found out stays.
    press("countToggles");
    QVERIFY(part<QProgressBar>("countProgress")->isVisible());
    press("stopCounting");
    QTRY_VERIFY(state().endsWith(QLatin1String("counting was stopped")));
    QTRY_VERIFY(part<QToolButton>("countToggles")->isVisible());
    QVERIFY(tree()->isColumnHidden(toggles));
    QCOMPARE(uncovered(), QStringLiteral("u9/r[0] u9/r[1]"));

    press("countToggles");
    QTRY_VERIFY(!tree()->isColumnHidden(toggles));
    QCOMPARE(description(QStringLiteral("top"), toggles), QStringLiteral("6"));
    QCOMPARE(description(QStringLiteral("u10"), toggles), QStringLiteral("3"));
    // The scope that was found is in the project now.
    QVERIFY(m_host->read(QStringLiteral("test.fpgaproj"))
                .contains("\"activityScopes\": {\"a.vcd\": {\"\": \"tb/dut\"}}"));

    // Kept while the file is the same, and not counted again unasked when it is not.
    const auto edit = [this, view] {
        view->findChild<QTabWidget *>()->setCurrentIndex(0);
        QTest::keyClick(view->findChild<QDoubleSpinBox *>(QStringLiteral("spinAmbTemp")),
                        Qt::Key_Up);
        QTRY_VERIFY(state().contains(QLatin1String("without the changes")));
        save();
        QTRY_VERIFY(!state().contains(QLatin1String("without the changes")));
    };
    edit();
    QTest::qWait(50);
    QTRY_COMPARE(description(QStringLiteral("top"), toggles), QStringLiteral("6"));
    m_host->write(QStringLiteral("a.vcd"), DUMP + "#20\n1!\n#25\n");
    edit();
    QTRY_VERIFY(tree()->isColumnHidden(toggles));
    press("countToggles");
    QTRY_COMPARE(description(QStringLiteral("top"), toggles), QStringLiteral("7"));
}

/// The row of the activity file in the checks offers what fits, also with unsaved changes.
void TestCoverage::bindsToWhatFits()
{
    m_host->useNetlist(design());
    const QString dump = m_host->write(QStringLiteral("a.vcd"), DUMP);
    QPointer<Core::IView> view = openView(QStringLiteral("a.vlr"), bound(dump, {}, "u9"));
    window().resize(1400, 1000);
    action("showChecks")->trigger();
    auto *findings = part<QTreeView>("findings");
    QTRY_COMPARE(findings->model()->rowCount(), 1);
    QTRY_VERIFY(findings->viewport()->height() > 80);
    auto *bind = part<QToolButton>("bindActivityFile");
    QVERIFY(!bind->isVisible());
    clickRow(findings, findings->model()->index(0, 1));
    QVERIFY(bind->isVisible());
    QCOMPARE(bind->text(), QStringLiteral("Bind to top\u2026"));
    QTest::keyClick(view->findChild<QDoubleSpinBox *>(QStringLiteral("spinAmbTemp")), Qt::Key_Up);
    QVERIFY(view->windowTitle().endsWith(QLatin1Char('*')));
    std::unique_ptr<ModalDriver> inner;
    ModalDriver question([&inner](QWidget *box) {
        // The review opens when the question is answered.
        inner = std::make_unique<ModalDriver>([](QWidget *dialog) {
            auto *apply = dialog->findChild<QPushButton *>(QStringLiteral("applyReview"));
            QTRY_VERIFY(apply->isEnabled());
            QVERIFY(dialog->findChild<QPlainTextEdit *>(QStringLiteral("reviewChanges"))
                        ->toPlainText()
                        .endsWith(QLatin1String("\"u9\" becomes \"top\"")));
            QTest::mouseClick(apply, Qt::LeftButton);
        });
        pressButton(QMessageBox::Save)(box);
    });
    QTest::mouseClick(bind, Qt::LeftButton);
    QVERIFY(m_host->read(QStringLiteral("a.vlr")).contains("entity=\"top\""));
    QTRY_VERIFY(!view); // another one shows the new file
    const QString path = m_host->path(QStringLiteral("a.vlr"));
    QVERIFY(Core::IFileOpener::forFile(path)->view(path));
    QVERIFY(!Core::IFileOpener::forFile(path)->isModified(path));
    QTRY_COMPARE(findings->model()->rowCount(), 0);
    QVERIFY(!bind->isVisible());
    QTRY_VERIFY(
        m_host->read(QStringLiteral("test.fpgaproj")).contains("{\"a.vcd\": {\"\": \"tb/dut\"}}"));
}

QTEST_MAIN(TestCoverage)
#include "test_coverage.moc"
