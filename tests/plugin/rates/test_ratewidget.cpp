#include "rates/ratewidget.h"

#include "rates/ratetableview.h"
#include "ratesfixture.h"
#include "support/modaldriver.h"

#include <QtTest>
#include <QtWidgets>

using namespace VLT;

namespace {

struct Fixture : RatesFixture<RateWidget>
{
    explicit Fixture(const TestHost &host)
        : RatesFixture(host)
        , nets(find<RateTableView>("tableviewNet"))
        , table(nets->findChild<QTableView *>())
    {
    }

    QStringList names() const { return shownColumn(table->model(), 0); }
    QStringList values() const { return shownColumn(table->model(), 1); }

    /// Types over the value of a row.
    void type(int row, const char *text) const
    {
        doubleClickCell(table, row, 1);
        auto *editor = table->findChild<QAbstractSpinBox *>();
        QVERIFY(editor);
        editor->selectAll();
        QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, QLatin1String(text));
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents(); // Enter commits through the event queue
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Clicks a radio button; the question that comes is answered by `button`.
    QString clickUnit(const char *radio, QMessageBox::StandardButton button) const
    {
        ModalDriver driver(pressButton(button));
        QTest::mouseClick(find<QRadioButton>(radio), Qt::LeftButton);
        return driver.text();
    }

    RateTableView *nets;
    QTableView *table;
};

const char TWO_NETS[] = R"(<NetRate type="toggle"><Net name="a" value="9"/>)"
                        R"(<Net name="b" value="10"/></NetRate>)";

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '));
}

} // namespace

class TestRateWidget : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void readsAndWrites_data();
    void readsAndWrites();
    void editsInBothUnits();
    void untypedRatesStayUnset_data();
    void untypedRatesStayUnset();
    void pastesOnlyRates();
    void sortsValuesAsText();
    void asksBeforeChangingUnit();
    void addsNets();
    void netlistReplacedOrViewClosedWhilePickerOpen();
    void reportsEmptyRates();

private:
    const TestHost m_host;
};

void TestRateWidget::readsAndWrites_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QByteArray>("written");
    QTest::addColumn<bool>("isToggle");
    const QByteArray nets(R"(<Net name="a&lt;b&gt;" value="1e2"/><Net name="a" value=""/>)");
    const auto section = [](const char *type, const QByteArray &content) {
        return "<NetRate" + QByteArray(type) + '>' + content + "</NetRate>";
    };
    const char *toggle = R"( type="toggle")";
    const char *signal = R"( type="signal")";
    QTest::newRow("no section") << QByteArray() << QByteArray() << true; // the form's own unit
    QTest::newRow("toggle") << section(toggle, nets) << section(toggle, nets) << true;
    QTest::newRow("signal") << section(signal, nets) << section(signal, nets) << false;
    QTest::newRow("other case") << section(R"( type="Toggle")", nets) << section(signal, nets)
                                << false;
    QTest::newRow("no type") << section("", nets) << section(signal, nets) << false;
    QTest::newRow("unknown element") << section(toggle, "<Net/><Port/>")
                                     << section(toggle, R"(<Net name="" value=""/>)") << true;
    QTest::newRow("no nets") << section(signal, "") << QByteArray() << false;
}

void TestRateWidget::readsAndWrites()
{
    QFETCH(QByteArray, xml);
    QFETCH(bool, isToggle);
    const Fixture f(m_host);
    f.read(xml);
    QTEST(f.written(), "written");
    QCOMPARE(f.find<QRadioButton>("radioToggle")->isChecked(), isToggle);
    QCOMPARE(f.nets->valueType(), isToggle);
    QVERIFY(f.find<QGroupBox>("groupIORate")->isHidden());
}

void TestRateWidget::editsInBothUnits()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const Fixture f(m_host);
    f.read(TWO_NETS);
    f.type(0, "12,5");
    QCOMPARE(f.values(), words("12.50% 10%"));
    QVERIFY(f.view->isModified());
    f.type(1, "200");
    f.type(0, "201"); // the last digit is refused
    QCOMPARE(f.values(), words("20.00% 200.00%"));
    f.type(0, "");
    QCOMPARE(f.nets->getData().first()->value, QString());

    f.clickUnit("radioSignal", QMessageBox::Yes);
    f.type(0, "99999999");
    f.type(1, "0.25");
    QCOMPARE(f.values(), words("99999999.00 0.25"));

    f.view->setModified(false);
    f.type(1, "0.25");
    QVERIFY(!f.view->isModified());

    // A file may hold any text; the editor opens on the number in it.
    f.table->model()->setData(f.table->model()->index(0, 1), QStringLiteral("inf"));
    doubleClickCell(f.table, 0, 1);
    QCOMPARE(f.table->findChild<QDoubleSpinBox *>()->text(), QStringLiteral("0.00"));
}

void TestRateWidget::untypedRatesStayUnset_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("typed"); // null when the editor is only opened
    QTest::addColumn<QString>("after");
    const QString seven = QStringLiteral("7");
    QTest::newRow("unset, opened") << "" << QString() << "";
    QTest::newRow("unset, negative") << ""
                                     << "-5"
                                     << "";
    QTest::newRow("unset, sign") << ""
                                 << "-"
                                 << "";
    QTest::newRow("unset, point") << ""
                                  << "."
                                  << "";
    QTest::newRow("unset, zero") << ""
                                 << "0"
                                 << "0.00";
    QTest::newRow("set, opened") << seven << QString() << seven;
    QTest::newRow("set, emptied") << seven << ""
                                  << "";
    QTest::newRow("set, negative") << seven << "-5"
                                   << "";
    QTest::newRow("set, sign") << seven << "-" << seven;
}

void TestRateWidget::untypedRatesStayUnset()
{
    QFETCH(QString, before);
    QFETCH(QString, typed);
    QFETCH(QString, after);
    for (const int key : {0, int(Qt::Key_Return), int(Qt::Key_Tab)}) {
        const Fixture f(m_host);
        f.read(R"(<NetRate type="toggle"><Net name="a" value=")" + before.toUtf8() +
               R"("/><Net name="b"/></NetRate>)");
        QVERIFY(QTest::qWaitForWindowActive(f.view.get()));
        doubleClickCell(f.table, 0, 1);
        auto *editor = f.table->findChild<QDoubleSpinBox *>();
        QCOMPARE(editor->text(), before.isEmpty() ? QString() : QStringLiteral("7.00"));
        if (!typed.isNull()) {
            editor->selectAll();
            QTest::keyClick(editor, Qt::Key_Delete);
            QTest::keyClicks(editor, typed);
        }
        // As opening and closing a menu does.
        QFocusEvent out(QEvent::FocusOut, Qt::PopupFocusReason);
        QCoreApplication::sendEvent(editor, &out);
        key ? QTest::keyClick(editor, Qt::Key(key)) : f.table->setFocus();
        QTRY_VERIFY(!f.table->viewport()->isAncestorOf(QApplication::focusWidget()));
        QCOMPARE(f.nets->getData().first()->value, after);
        QCOMPARE(f.view->isModified(), before != after);
    }
}

void TestRateWidget::pastesOnlyRates()
{
    const Fixture f(m_host);
    f.read(R"(<NetRate type="toggle"><Net name="a" value=""/>)"
           R"(<Net name="b" value="7"/></NetRate>)");
    f.table->setCurrentIndex(f.table->model()->index(0, 1));
    f.table->clearSelection();
    QApplication::clipboard()->setText(QStringLiteral("-5\n-5"));
    QTest::keyClick(f.table, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(f.values(), QStringList({QString(), QStringLiteral("7%")}));
    QVERIFY(!f.view->isModified());
    QApplication::clipboard()->setText(QStringLiteral("0"));
    QTest::keyClick(f.table, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(f.values().first(), QStringLiteral("0.00%"));
}

void TestRateWidget::sortsValuesAsText()
{
    const Fixture f(m_host);
    f.read(R"(<NetRate type="toggle"><Net name="b" value="9"/><Net name="A" value="10"/>)"
           R"(<Net name="B" value=""/><Net name="a" value="10"/></NetRate>)");
    const auto sorted = [&f](int column, Qt::SortOrder order) {
        f.table->model()->sort(column, order);
        return f.names();
    };
    QCOMPARE(sorted(1, Qt::AscendingOrder), words("B A a b"));
    QCOMPARE(sorted(1, Qt::DescendingOrder), words("b A a B"));
    QCOMPARE(sorted(0, Qt::AscendingOrder), words("A a b B"));
    QVERIFY(!f.view->isModified());
}

void TestRateWidget::asksBeforeChangingUnit()
{
    const Fixture f(m_host);
    f.read(TWO_NETS);
    auto *toggle = f.find<QRadioButton>("radioToggle");
    auto *signal = f.find<QRadioButton>("radioSignal");
    const QString question = QStringLiteral(
        "Are you sure to change unit?\nThe edited values will be clear after changed.");

    QCOMPARE(f.clickUnit("radioSignal", QMessageBox::No), question);
    QVERIFY(toggle->isChecked());
    QCOMPARE(f.clickUnit("radioToggle", QMessageBox::No), question); // the checked one
    QVERIFY(toggle->isChecked());
    QCOMPARE(f.values(), words("9% 10%"));
    QVERIFY(!f.view->isModified());

    f.clickUnit("radioSignal", QMessageBox::Yes);
    QVERIFY(f.view->isModified());
    QCOMPARE(f.names(), words("a b"));
    QVERIFY(f.nets->getData().first()->value.isEmpty());
    f.clickUnit("radioToggle", QMessageBox::No);
    QVERIFY(signal->isChecked());

    Fixture other(m_host);
    QTest::mouseClick(other.find<QRadioButton>("radioSignal"), Qt::LeftButton);
    QVERIFY(!other.nets->valueType()); // without a question, as there is no value
    QVERIFY(!other.view->isModified());
    other.read(TWO_NETS);
    ModalDriver driver([&other](QWidget *) { other.view.reset(); });
    QTest::mouseClick(other.find<QRadioButton>("radioSignal"), Qt::LeftButton);
}

void TestRateWidget::addsNets()
{
    const Fixture f(m_host);
    const auto add = [&f](int rows) {
        ModalDriver driver([rows](QWidget *picker) {
            auto *list = picker->findChild<QListView *>(QStringLiteral("listView"));
            for (int row = 0; row < rows; ++row) {
                QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                                  list->visualRect(list->model()->index(row, 0)).center());
            }
            QTest::keyClick(picker, Qt::Key_Return);
        });
        QTest::mouseClick(f.find<QToolButton>("btnAdd"), Qt::LeftButton);
    };
    const QStringList nets = f.view->getNetlist()->netMap().keys();
    add(2);
    QCOMPARE(f.names(), nets.mid(0, 2));
    QVERIFY(f.view->isModified());
    f.view->setModified(false);
    add(2); // both are listed
    QVERIFY(!f.view->isModified());
    add(3);
    QCOMPARE(f.names(), nets.mid(0, 3));
    QVERIFY(f.view->isModified());
}

void TestRateWidget::netlistReplacedOrViewClosedWhilePickerOpen()
{
    const Fixture f(m_host);
    {
        ModalDriver driver([&](QWidget *picker) {
            m_host.finishSynthesis();
            const NlsData::Netlist *before = f.view->getNetlist();
            QTRY_VERIFY(f.view->getNetlist() != before);
            picker->findChild<QListView *>(QStringLiteral("listView"))->selectAll();
            QTest::keyClick(picker, Qt::Key_Return);
        });
        QTest::mouseClick(f.find<QToolButton>("btnAdd"), Qt::LeftButton);
    }
    QCOMPARE(f.names(), f.view->getNetlist()->netMap().keys());

    Fixture closed(m_host);
    ModalDriver driver([&closed](QWidget *picker) {
        picker->findChild<QListView *>(QStringLiteral("listView"))->selectAll();
        closed.view.reset();
    });
    closed.nets->onNew();
}

void TestRateWidget::reportsEmptyRates()
{
    const Fixture f(m_host);
    QVERIFY(f.page->checkData());
    f.find<RateTableView>("tableviewPort")->setData({new VLT_Rate{QStringLiteral("p%1"), {}}});
    const auto refusal = [&f] {
        ModalDriver driver([](QWidget *box) {
            QCOMPARE(qobject_cast<QMessageBox *>(box)->textFormat(), Qt::PlainText);
        });
        return f.page->checkData() ? QString()
                                   : driver.title() + QLatin1String(": ") + driver.text();
    };
    const QString port = QStringLiteral("Warning: Rate value of Port 'p%1' is empty.");
    QCOMPARE(refusal(), port);
    f.read(R"(<NetRate><Net name="x" value="1"/><Net name="y"/><Net name="z"/></NetRate>)");
    QCOMPARE(refusal(), QStringLiteral("Warning: Rate value of Net 'y' is empty."));
    QCOMPARE(f.table->currentIndex(), f.table->model()->index(1, 1));
    QVERIFY(f.table->selectionModel()->isRowSelected(1, {}));
    f.type(1, "5");
    f.type(2, "0");
    QCOMPARE(refusal(), port);
}

QTEST_MAIN(TestRateWidget)
#include "test_ratewidget.moc"
