#include "activitynetlist.h"
#include "support/modaldriver.h"
#include "support/pagefile.h"
#include "support/testhost.h"

#include "activity/bsramsetwidget.h"
#include "activity/clockenablesetwidget.h"
#include "activity/dffsetwidget.h"
#include "activity/portsetwidget.h"
#include "document/vltview.h"

#include <QtTest>
#include <QtWidgets>

using namespace VLT;

namespace {

/// In a finder: searches, selects all that was found, and accepts.
void takeAll(QWidget *dialog)
{
    QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("btnSearch")),
                      Qt::LeftButton);
    dialog->findChild<QListWidget *>()->selectAll();
    QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                      Qt::LeftButton);
}

} // namespace

class TestActivityPages : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_host = std::make_unique<TestHost>(); }
    void cleanupTestCase() { m_host.reset(); }
    void init();
    void cleanup() { m_view.reset(); }
    void sectionsRoundTrip_data();
    void sectionsRoundTrip();
    void addsFoundObjects_data();
    void addsFoundObjects();
    void editsPorts();
    void keyConfirmsOfferedDefault_data();
    void keyConfirmsOfferedDefault();
    void bsramEditableCellsByKind();
    void bsramGrayDiffersFromReadOnly();
    void validatesClockNames();
    void viewClosedWhileFinderOpen();
    void netlistReplacedWhileFinderOpen();

private:
    QWidget *page(const QString &name) const
    {
        for (QWidget *widget : m_view->findChildren<QWidget *>()) {
            if (QString::fromLatin1(widget->metaObject()->className()) == name)
                return widget;
        }
        return nullptr;
    }
    static QTableView *table(const QWidget *page) { return page->findChild<QTableView *>(); }
    static QModelIndex cell(const QWidget *page, int row, int column)
    {
        return table(page)->model()->index(row, column);
    }

    void read(const QString &name, const QString &sections) const
    {
        readSections(dynamic_cast<Page *>(page(name)), sections.toUtf8());
        m_view->setModified(false);
    }
    QString written(const QString &name) const
    {
        return QString::fromUtf8(writtenSections(*dynamic_cast<Page *>(page(name))));
    }

    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<VLTView> m_view;
};

void TestActivityPages::init()
{
    m_view = std::make_unique<VLTView>(m_host->device(), activityNetlist());
    m_view->resize(1200, 800);
    m_view->setModified(false);
}

void TestActivityPages::sectionsRoundTrip_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("read");
    QTest::addColumn<QString>("written");
    const auto other = [](const char *tag, const char *page, const char *read,
                          const char *written) {
        QTest::newRow(tag) << QString::fromLatin1(page) << QString::fromLatin1(read)
                           << QString::fromLatin1(written);
    };
    const auto same = [&other](const char *tag, const char *page, const char *xml) {
        other(tag, page, xml, xml);
    };
    const char *ports = "VLT::PortSetWidget";
    const char *dffs = "VLT::DFFSetWidget";
    const char *rams = "VLT::BsramSetWidget";
    const char *clocks = "VLT::ClockEnableSetWidget";
    same("ports", ports,
         R"(<PortOutEnable><Port name="a" out_enable="33.3" capacity="5.5" type="1"/>)"
         R"(<Port name="a" type="3"/><Port name="" type="0"/></PortOutEnable>)");
    other("port numbers", ports,
          R"(<PortOutEnable><Port out_enable="" capacity="nan"/>)"
          R"(<Port name="b" out_enable="-3" capacity="x" type="y"/></PortOutEnable>)",
          R"(<PortOutEnable><Port name="" out_enable="0" capacity="0" type="0"/>)"
          R"(<Port name="b" capacity="0" type="0"/></PortOutEnable>)");
    same("flip-flops", dffs,
         R"(<LocalEnable><Instance name="x/y" value="12.34"/><Instance name=""/>)"
         R"(<Instance name="z" value="0"/></LocalEnable>)");
    other("no block SRAMs", rams, "",
          R"(<GlobalBsram clock_enable="100" read_probability="100" write_probability="100"/>)");
    same("block SRAMs", rams,
         R"(<GlobalBsram clock_enable="12.5" read_probability="0" write_probability="7.25">)"
         R"(<BSRam name="r" clock_a_enable="1" clock_b_enable="2" port_a_read="3" )"
         R"(port_a_write="4" port_b_read="5" port_b_write="6" type="3"/>)"
         R"(<BSRam name="s" port_b_write="9" type="42"/></GlobalBsram>)");
    other("block SRAM oddities", rams,
          R"(<GlobalBsram clock_enable="250" read_probability="x"><BSRam name="" type="1"/>)"
          R"(<BSRam name="r"/></GlobalBsram>)",
          R"(<GlobalBsram clock_enable="100" read_probability="0" write_probability="100">)"
          R"(<BSRam name="r" type="0"/></GlobalBsram>)");
    other("no clocks", clocks, "", R"(<GlobalEnable value="100"/>)");
    same("clocks", clocks,
         R"(<GlobalEnable value="50"><Clock name="c" value="1" quad1="2" quad2="3" quad4="5"/>)"
         R"(<Clock name="c"/><Clock name="not a name"/></GlobalEnable>)");
    other("clock oddities", clocks,
          R"(<GlobalEnable><Clock/><Clock name="c" quad1=""/></GlobalEnable>)",
          R"(<GlobalEnable value="0"><Clock name="c" quad1="0"/></GlobalEnable>)");
}

void TestActivityPages::sectionsRoundTrip()
{
    QFETCH(QString, page);
    QFETCH(QString, read);
    QFETCH(QString, written);
    this->read(page, read);
    QCOMPARE(this->written(page), written);
}

void TestActivityPages::addsFoundObjects_data()
{
    QTest::addColumn<QString>("written");
    QTest::newRow("VLT::PortSetWidget")
        << R"(<PortOutEnable><Port name="led[0]" type="0"/><Port name="led[1]" type="0"/>)"
           R"(<Port name="led[2]" type="0"/><Port name="led[3]" type="0"/>)"
           R"(<Port name="CPU_q" type="1"/><Port name="loose" type="1"/>)"
           R"(<Port name="bus" type="2"/></PortOutEnable>)";
    QTest::newRow("VLT::DFFSetWidget")
        << R"(<LocalEnable><Instance name="CPU_reg"/><Instance name="u_cpu/reg_9"/></LocalEnable>)";
    const QString readOnly = QStringLiteral(R"(clock_a_enable="100" port_a_read="100")");
    const QString single =
        QStringLiteral(R"(clock_a_enable="100" port_a_read="100" port_a_write="50")");
    const QString writeAReadB = QStringLiteral(
        R"(clock_a_enable="100" clock_b_enable="100" port_a_write="100" port_b_read="100")");
    const QString dual =
        QStringLiteral(R"(clock_a_enable="100" clock_b_enable="100" port_a_read="100" )"
                       R"(port_a_write="50" port_b_read="100" port_b_write="50")");
    const QStringList kinds = {readOnly, single,      writeAReadB, dual,    writeAReadB,
                               readOnly, writeAReadB, dual,        readOnly};
    QString rams = QStringLiteral(
        R"(<GlobalBsram clock_enable="100" read_probability="100" write_probability="100">)");
    for (int kind = 0; kind < kinds.size(); ++kind)
        rams += QStringLiteral(R"(<BSRam name="ram%1" %2 type="%1"/>)").arg(kind).arg(kinds[kind]);
    QTest::newRow("VLT::BsramSetWidget") << rams + QStringLiteral("</GlobalBsram>");
}

void TestActivityPages::addsFoundObjects()
{
    QFETCH(QString, written);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    auto *add = page(name)->findChild<QAbstractButton *>(QStringLiteral("btnAdd"));
    for (const bool first : {true, false}) {
        m_view->setModified(false);
        const ModalDriver driver(takeAll);
        add->click();
        QCOMPARE(this->written(name), written);
        QCOMPARE(m_view->isModified(), first);
    }
}

void TestActivityPages::editsPorts()
{
    const QString name = QStringLiteral("VLT::PortSetWidget");
    read(name, QStringLiteral(R"(<PortOutEnable><Port name="a"/><Port name="b" type="2"/>)"
                              R"(<Port name="c" capacity="5.5" type="3"/></PortOutEnable>)"));
    const QWidget *ports = page(name);
    QVERIFY(!(cell(ports, 0, 1).flags() & Qt::ItemIsEditable));
    QCOMPARE(cell(ports, 2, 2).data().toString(), QStringLiteral("5.5pF"));
    QCOMPARE(cell(ports, 1, 2).data(Qt::EditRole).toDouble(), 5.0);

    m_view->show();
    for (QTabWidget *tabs : m_view->findChildren<QTabWidget *>())
        tabs->setCurrentIndex(tabs->count() - 1);
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    table(ports)->setCurrentIndex(cell(ports, 1, 1));
    QVERIFY(QMetaObject::invokeMethod(table(ports), "edit", Q_ARG(QModelIndex, cell(ports, 1, 1))));
    auto *editor = table(ports)->findChild<QDoubleSpinBox *>();
    QCOMPARE(editor->text(), QStringLiteral("50.00"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(cell(ports, 1, 1).data().toDouble(), 50.0);
    QVERIFY(m_view->isModified());
}

void TestActivityPages::keyConfirmsOfferedDefault_data()
{
    QTest::addColumn<int>("key"); // 0 when the editor loses the focus
    QTest::newRow("focus lost") << 0;
    QTest::newRow("Return") << int(Qt::Key_Return);
    QTest::newRow("Tab") << int(Qt::Key_Tab);
    QTest::newRow("Ctrl+Return") << int(Qt::CTRL) + Qt::Key_Return;
}

void TestActivityPages::keyConfirmsOfferedDefault()
{
    QFETCH(int, key);
    const QString name = QStringLiteral("VLT::DFFSetWidget");
    const QString section = QStringLiteral(R"(<LocalEnable><Instance name="a"/>)"
                                           R"(<Instance name="b" value="33.333"/></LocalEnable>)");
    m_view->findChild<QTabWidget *>()->setCurrentIndex(2);
    for (QTabWidget *tabs : m_view->findChildren<QTabWidget *>())
        tabs->setCurrentWidget(page(name));
    m_view->show();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    read(name, section);
    QTableView *view = table(page(name));
    for (const int row : {0, 1}) { // unset, set
        m_view->setModified(false);
        view->clearSelection();
        view->setCurrentIndex(cell(page(name), row, 1));
        QTest::keyClick(view, Qt::Key_F2);
        auto *editor = view->findChild<QDoubleSpinBox *>();
        QCOMPARE(editor->text(), QLatin1String(row == 0 ? "100.00" : "33.33"));
        if (key != 0)
            QTest::keyClick(editor, Qt::Key(key & ~Qt::CTRL),
                            Qt::KeyboardModifiers(key & Qt::CTRL));
        QCoreApplication::processEvents();
        view->setFocus(); // Tab opens the next editor
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(m_view->isModified(), row == 0 && key != 0);
    }
    QVERIFY(written(name).contains(QLatin1String(R"("33.333")")));
}

void TestActivityPages::bsramEditableCellsByKind()
{
    const QString name = QStringLiteral("VLT::BsramSetWidget");
    QString rams;
    for (int kind = 0; kind < 10; ++kind)
        rams += QStringLiteral(R"(<BSRam name="r" type="%1"/>)").arg(kind);
    read(name, QStringLiteral("<GlobalBsram>%1</GlobalBsram>").arg(rams));
    QString editable;
    for (int kind = 0; kind < 10; ++kind) {
        for (int column = 0; column < 7; ++column) {
            if (cell(page(name), kind, column).flags() & Qt::ItemIsEditable)
                editable += QString::number(column);
        }
        editable += QLatin1Char(' ');
    }
    QCOMPARE(editable, QStringLiteral("12 123 1345 123456 1345 12 1345 123456 12 1 "));
}

void TestActivityPages::bsramGrayDiffersFromReadOnly()
{
    const QString name = QStringLiteral("VLT::BsramSetWidget");
    read(name, QStringLiteral(
                   R"(<GlobalBsram><BSRam name="r" port_b_write="9" type="0"/></GlobalBsram>)"));
    const auto isGray = [this, name](int column) {
        return cell(page(name), 0, column).data(Qt::BackgroundRole).isValid();
    };
    QVERIFY(!isGray(1)); // unset, yet never gray
    QVERIFY(isGray(2));  // unset, though it can be edited
    QVERIFY(!isGray(6)); // set, though it cannot be edited
    page(name)->findChild<QDoubleSpinBox *>(QStringLiteral("spinReadProbability"))->setValue(3);
    QVERIFY(m_view->isModified());
}

void TestActivityPages::validatesClockNames()
{
    auto *clocks =
        qobject_cast<ClockEnableSetWidget *>(page(QStringLiteral("VLT::ClockEnableSetWidget")));
    clocks->onAdd();
    QVERIFY(!m_view->isModified());
    QCOMPARE(written(QStringLiteral("VLT::ClockEnableSetWidget")),
             QStringLiteral(R"(<GlobalEnable value="100"/>)"));
    const auto take = [&](const char *text) {
        return table(clocks)->model()->setData(cell(clocks, 0, 0), QString::fromLatin1(text));
    };
    for (const char *refused : {"9clk", "clk-a", "_", "_1", "", "a b"})
        QVERIFY2(!take(refused), refused);
    QVERIFY(!m_view->isModified());
    for (const char *accepted : {"_clk9", "clk_50m", "CLK2"})
        QVERIFY2(take(accepted) && clocks->isExist(QString::fromLatin1(accepted)), accepted);
    QVERIFY(!take("CLK2") && !clocks->isExist(QStringLiteral("clk_50m")));
    QVERIFY(m_view->isModified());
    QCOMPARE(cell(clocks, 0, 1).data(Qt::EditRole).toDouble(), 100.0);
    QVERIFY(table(clocks)->model()->setData(cell(clocks, 0, 1), QStringLiteral("100.00")));
    QCOMPARE(written(QStringLiteral("VLT::ClockEnableSetWidget")),
             QStringLiteral(R"(<GlobalEnable value="100"><Clock name="CLK2" value="100"/>)"
                            R"(</GlobalEnable>)"));

    // What is being typed is not lost to the next row.
    m_view->findChild<QTabWidget *>()->setCurrentIndex(2);
    m_view->show();
    auto *add = clocks->findChild<QAbstractButton *>(QStringLiteral("btnAdd"));
    QTest::mouseClick(add, Qt::LeftButton);
    auto *editor = table(clocks)->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("clk_b"));
    QTest::mouseClick(add, Qt::LeftButton);
    QCOMPARE(cell(clocks, 1, 0).data().toString(), QStringLiteral("clk_b"));
    QCOMPARE(table(clocks)->model()->rowCount(), 3);
}

void TestActivityPages::viewClosedWhileFinderOpen()
{
    auto *ports = qobject_cast<PortSetWidget *>(page(QStringLiteral("VLT::PortSetWidget")));
    const ModalDriver driver([this](QWidget *) { m_view.reset(); });
    ports->onAdd();
    QVERIFY(!m_view);
}

void TestActivityPages::netlistReplacedWhileFinderOpen()
{
    auto *ports = qobject_cast<PortSetWidget *>(page(QStringLiteral("VLT::PortSetWidget")));
    const NlsData::Netlist *old = m_view->getNetlist();
    const ModalDriver driver([&](QWidget *dialog) {
        m_host->finishSynthesis();
        QTRY_VERIFY(m_view->getNetlist() != old);
        takeAll(dialog);
    });
    ports->onAdd();
    QVERIFY(ports->isExist(QStringLiteral("led[0]")));
}

QTEST_MAIN(TestActivityPages)
#include "test_activitypages.moc"
