#include "rates/vcdfilewidget.h"

#include "ratesfixture.h"
#include "support/modaldriver.h"

#include <QtTest>
#include <QtWidgets>

using namespace VLT;

namespace {

struct Fixture : RatesFixture<VcdFileWidget>
{
    explicit Fixture(const TestHost &host)
        : RatesFixture(host)
        , table(find<QTableView>("tableView"))
        , ioValue(find<QDoubleSpinBox>("editIOValue"))
        , ioUnit(find<QComboBox>("comboIOUnit"))
        , glitch(find<QCheckBox>("checkGlitch"))
    {
    }

    QStringList column(int column) const { return shownColumn(table->model(), column); }

    QTableView *table;
    QDoubleSpinBox *ioValue;
    QComboBox *ioUnit;
    QCheckBox *glitch;
};

/// A section of default rates, by the two elements' names and texts.
QByteArray rates(const char *io, const char *ioValue, const char *rm, const char *rmValue)
{
    const auto element = [](const QByteArray &name, const char *text) {
        return '<' + name + '>' + text + "</" + name + '>';
    };
    return "<DefaultConfig>" + element(QByteArray("DefaultIo") + io, ioValue) +
           element(QByteArray("DefaultRm") + rm, rmValue) + "</DefaultConfig>";
}

QByteArray startRates()
{
    return rates("ToggleRate", "12.50", "ToggleRate", "12.50");
}

QByteArray files(const QByteArray &content, const char *glitch = "FALSE")
{
    return "<SimuFile>" + content + "<FilterGlitch>" + glitch + "</FilterGlitch></SimuFile>";
}

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

const char THREE_FILES[] =
    R"(<File type="saif" name="/z/a.saif" entity="core"/>)"
    R"(<File type="vcd" name="/a/Z.vcd" entity="" start_time="1.5" end_time="10" time_unit="ns"/>)"
    R"(<File type="vcd" name="/b/y.vcd" entity="Alu" end_time="9" time_unit="us"/>)";

} // namespace

class TestVcdFileWidget : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void readsAndWrites_data();
    void readsAndWrites();
    void editsRatesInCommaLocale();
    void changesUnits();
    void showsAndSorts();
    void glitchFilterNeedsFiles();
    void addsEditsAndRemoves();
    void viewClosedWhileDialogOpen();
    void reportsMissingFile();
    void renamedDesignKeepsBinding();
    void editsByKey();
    void showsLargestRateInFull();

private:
    const TestHost m_host;
};

void TestVcdFileWidget::readsAndWrites_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QByteArray>("written");
    const auto row = [](const char *name, const QByteArray &xml, const QByteArray &written) {
        QTest::newRow(name) << xml << written;
    };
    const char *toggle = "ToggleRate";
    const char *signal = "SignalRate";
    const QByteArray both = rates(toggle, "0.25", signal, "99999999.00");
    const QByteArray start = startRates();
    const QByteArray three = files(THREE_FILES, "TRUE");
    row("no section", "", start);
    row("both units", both, both);
    row("out of range", rates(signal, "1e9", toggle, "200.01"),
        rates(signal, "99999999.00", toggle, "200.00"));
    row("no number", rates(toggle, "x", signal, "12,5"), rates(toggle, "0.00", signal, "0.00"));
    row("not finite", rates(toggle, "nan", signal, "inf"), rates(toggle, "0.00", signal, "0.00"));
    row("one rate", "<DefaultConfig><DefaultRmSignalRate>7</DefaultRmSignalRate></DefaultConfig>",
        rates(toggle, "12.50", signal, "7.00"));
    row("a rate in both units",
        "<DefaultConfig><DefaultIoSignalRate>7</DefaultIoSignalRate>"
        "<DefaultIoToggleRate>8</DefaultIoToggleRate></DefaultConfig>",
        rates(toggle, "8.00", toggle, "12.50"));
    row("files", start + three, start + three);
    row("the design by name", files(R"(<File type="vcd" name="x" entity="top"/>)"),
        start + files(R"(<File type="vcd" name="x" entity=""/>)"));
    row("unknown type and element", files(R"(<File type="VCD"/><Other/>)", "true"),
        start + files(R"(<File type="saif" name="" entity=""/>)"));
    row("no files", files("", "TRUE"), start);
}

void TestVcdFileWidget::readsAndWrites()
{
    QFETCH(QByteArray, xml);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const Fixture f(m_host);
    f.read(xml);
    QTEST(f.written(), "written");
}

void TestVcdFileWidget::editsRatesInCommaLocale()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const Fixture f(m_host);
    QTest::keyClick(f.ioValue, Qt::Key_Return);
    QVERIFY(!f.view->isModified()); // the number is the same
    f.ioValue->selectAll();
    QTest::keyClicks(f.ioValue, QStringLiteral("7,2"));
    QTest::keyClick(f.ioValue, Qt::Key_Return);
    QVERIFY(f.view->isModified());
    QCOMPARE(f.written(), rates("ToggleRate", "7.20", "ToggleRate", "12.50"));
}

void TestVcdFileWidget::changesUnits()
{
    const Fixture f(m_host);
    f.ioValue->setValue(150);
    f.view->setModified(false);
    const auto choose = [&f](Qt::Key key) { QTest::keyClick(f.ioUnit, key); };
    choose(Qt::Key_Down);
    QVERIFY(f.view->isModified());
    QCOMPARE(f.ioValue->value(), 150.0);
    QCOMPARE(f.ioValue->maximum(), 99999999.0);
    choose(Qt::Key_Up);
    QCOMPARE(f.ioValue->value(), 150.0);
    choose(Qt::Key_Down);
    f.ioValue->setValue(5000);
    choose(Qt::Key_Up);
    QCOMPARE(f.ioValue->value(), 12.5);
}

void TestVcdFileWidget::showsAndSorts()
{
    const Fixture f(m_host);
    f.read(files(THREE_FILES));
    QAbstractItemModel *model = f.table->model();
    QCOMPARE(model->columnCount(), 3);
    QCOMPARE(f.column(0), words("core top Alu"));
    QCOMPARE(f.column(1), words("a.saif Z.vcd y.vcd"));
    QCOMPARE(f.column(2), words("Saif Vcd Vcd"));
    QCOMPARE(model->index(0, 1).data(Qt::ToolTipRole).toString(), QStringLiteral("/z/a.saif"));
    for (int column = 0; column < 3; ++column)
        QVERIFY(!model->setData(model->index(0, column), 1));

    const auto sorted = [&](int column, Qt::SortOrder order) {
        model->sort(column, order);
        return f.column(1);
    };
    QCOMPARE(sorted(0, Qt::AscendingOrder), words("y.vcd a.saif Z.vcd"));
    QCOMPARE(sorted(1, Qt::AscendingOrder), words("Z.vcd y.vcd a.saif")); // by the full path
    QCOMPARE(sorted(2, Qt::DescendingOrder), words("a.saif Z.vcd y.vcd"));
    QCOMPARE(sorted(3, Qt::DescendingOrder), words("Z.vcd a.saif y.vcd")); // no time is 0
    QCOMPARE(sorted(4, Qt::AscendingOrder), words("a.saif y.vcd Z.vcd"));  // by number
    QVERIFY(!f.view->isModified());
}

void TestVcdFileWidget::glitchFilterNeedsFiles()
{
    const Fixture f(m_host);
    QTest::mouseClick(f.glitch, Qt::LeftButton, Qt::NoModifier, {8, f.glitch->height() / 2});
    QVERIFY(f.glitch->isChecked());
    QVERIFY(!f.view->isModified());
    f.read(files(THREE_FILES));
    QVERIFY(!f.glitch->isChecked());
    QTest::mouseClick(f.glitch, Qt::LeftButton, Qt::NoModifier, {8, f.glitch->height() / 2});
    QVERIFY(f.view->isModified());
    QVERIFY(f.written().endsWith("<FilterGlitch>TRUE</FilterGlitch></SimuFile>"));
}

void TestVcdFileWidget::addsEditsAndRemoves()
{
    const QString file = m_host.write(QStringLiteral("a.vcd"), "");
    const Fixture f(m_host);
    f.read(files(THREE_FILES));
    const auto fill = [&file](QWidget *dialog) {
        dialog->findChild<QLineEdit *>(QStringLiteral("editFile"))->setText(file);
        dialog->findChild<QLineEdit *>(QStringLiteral("editInstance"))
            ->setText(QStringLiteral("core"));
        QTest::keyClick(dialog, Qt::Key_Return);
    };
    {
        ModalDriver driver([](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
        QTest::mouseClick(f.find<QToolButton>("btnAdd"), Qt::LeftButton);
    }
    QVERIFY(!f.view->isModified());
    {
        ModalDriver driver(fill);
        QTest::mouseClick(f.find<QToolButton>("btnAdd"), Qt::LeftButton);
    }
    QCOMPARE(f.column(1), words("a.saif Z.vcd y.vcd a.vcd"));
    QVERIFY(f.view->isModified());

    f.view->setModified(false);
    f.table->model()->sort(1, Qt::AscendingOrder); // by the full path: /z/a.saif is last
    const int row = f.column(1).indexOf(QStringLiteral("a.saif"));
    {
        // The model's indexes from before the sort carry other records.
        ModalDriver driver(fill);
        doubleClickCell(f.table, row, 0);
        QCoreApplication::processEvents();
    }
    QVERIFY(f.view->isModified());
    QCOMPARE(f.column(1).count(QStringLiteral("a.vcd")), 2);
    QVERIFY(!f.column(1).contains(QStringLiteral("a.saif")));
}

void TestVcdFileWidget::viewClosedWhileDialogOpen()
{
    for (const bool adding : {true, false}) {
        Fixture f(m_host);
        f.read(files(THREE_FILES));
        ModalDriver driver([&f](QWidget *) { f.view.reset(); });
        if (adding)
            f.page->onNew();
        else
            doubleClickCell(f.table, 1, 0);
        QCoreApplication::processEvents();
        QVERIFY(!f.view);
    }
}

void TestVcdFileWidget::reportsMissingFile()
{
    const QByteArray there = m_host.write(QStringLiteral("b.vcd"), "").toUtf8();
    const Fixture f(m_host);
    f.read(files(R"(<File type="vcd" name=")" + there +
                 R"("/><File type="vcd" name="&lt;i&gt;%2.vcd"/><File name="/no"/>)"));
    ModalDriver driver([](QWidget *box) {
        QCOMPARE(qobject_cast<QMessageBox *>(box)->textFormat(), Qt::PlainText);
    });
    QVERIFY(!f.page->checkData());
    QCOMPARE(driver.title(), QStringLiteral("Warning"));
    QCOMPARE(driver.text(), QStringLiteral("The vcd file '<i>%2.vcd' doesn't exist."));
    QVERIFY(f.find<QTableView>("tableView")->selectionModel()->isRowSelected(1, {}));
}

void TestVcdFileWidget::renamedDesignKeepsBinding()
{
    const TestHost host;
    const Fixture f(host);
    f.read(
        files(R"(<File type="vcd" name="x" entity=""/><File type="vcd" name="y" entity="core"/>)"));
    const QByteArray before = f.written();
    host.useNetlist(TestHost::defaultNetlist().replace("\"top\"", "\"soc\""));
    host.finishSynthesis();
    QTRY_COMPARE(f.view->getNetlist()->name(), QStringLiteral("soc"));
    QCOMPARE(f.written(), before);

    // An edit of something else leaves it bound to the design.
    host.write(QStringLiteral("x.vcd"), "");
    ModalDriver driver([&](QWidget *dialog) {
        dialog->findChild<QLineEdit *>(QStringLiteral("editFile"))
            ->setText(host.path(QStringLiteral("x.vcd")));
        qobject_cast<QDialog *>(dialog)->accept();
    });
    f.page->onEditData(f.table->model()->index(0, 0));
    QVERIFY2(f.written().contains("x.vcd\" entity=\"\""), f.written());
}

void TestVcdFileWidget::editsByKey()
{
    const Fixture f(m_host);
    f.read(files(R"(<File type="vcd" name="x" entity=""/>)"));
    f.page->raise(); // in front of the view's own pages
    f.page->show();
    f.table->setCurrentIndex(f.table->model()->index(0, 0));
    for (const Qt::Key key : {Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter}) {
        f.view->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(f.view.get()));
        f.table->setFocus();
        QTRY_VERIFY(f.table->hasFocus());
        ModalDriver driver([](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
        QTest::keyClick(f.table, key);
        QTRY_VERIFY(driver.ran());
        QTRY_VERIFY(!QApplication::activeModalWidget());
    }
}

void TestVcdFileWidget::showsLargestRateInFull()
{
    const Fixture f(m_host);
    QCOMPARE(f.ioValue->minimumWidth(), 110);
    f.ioUnit->setCurrentIndex(1);
    f.ioValue->setValue(99999999);
    f.view->grab(); // lays out
    const auto *field = f.ioValue->findChild<QLineEdit *>();
    QVERIFY(field->fontMetrics().horizontalAdvance(field->text()) < field->width());
    f.ioUnit->setCurrentIndex(0);
    QCOMPARE(f.ioValue->maximumWidth(), 110);
}

QTEST_MAIN(TestVcdFileWidget)
#include "test_vcdfilewidget.moc"
