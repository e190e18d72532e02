#include "nlsdata/findnetdialog.h"

#include "host/nlsdata/othernames.h"
#include "support/modaldriver.h"
#include "support/netlistjson.h"

#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

using NlsData::FindNetDialog;
using NlsData::Net;

namespace {

/// The parts of the open picker.
struct Picker
{
    explicit Picker(QWidget *dialog)
        : filter(dialog->findChild<QLineEdit *>(QStringLiteral("lineEditFilter")))
        , list(dialog->findChild<QListView *>(QStringLiteral("listView")))
        , count(dialog->findChild<QLabel *>(QStringLiteral("labelCount")))
        , ok(dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok))
    {
    }

    QString shown() const
    {
        QStringList names;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            names.append(list->model()->index(row, 0).data().toString());
        return names.join(QLatin1Char(' '));
    }

    void click(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers,
                          list->visualRect(list->model()->index(row, 0)).center());
    }

    QLineEdit *filter;
    QListView *list;
    QLabel *count;
    QPushButton *ok;
};

QString paths(const QList<Net *> &nets)
{
    QStringList names;
    for (const Net *net : nets)
        names.append(net->path());
    return names.join(QLatin1Char(' '));
}

} // namespace

class TestFindNetDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void filters_data();
    void filters();
    void returnsChosenInListOrder();
    void findsOtherNames();
    void countsInBrackets();
    void survivesParentDeletion();
    void filtersLongListWhileTyping();

private:
    QTemporaryDir m_folder;
    std::unique_ptr<NlsData::Netlist> m_netlist;
    QList<Net *> m_nets;
};

void TestFindNetDialog::initTestCase()
{
    NetlistJson json;
    json.module("top")
        .top()
        .net("clk", {2})
        .net("CPU_clk", {3})
        .net("data", {4, 5, 6, 7})
        .net("x*y", {8});
    const QString path = m_folder.filePath(QStringLiteral("design.json"));
    QVERIFY(json.write(path));
    QString error;
    m_netlist.reset(NlsData::readNetlistFile(path, &error, false));
    QVERIFY2(m_netlist, qPrintable(error));
    m_nets = m_netlist->netMap().values();
    QCOMPARE(m_nets.size(), 7);
}

void TestFindNetDialog::filters_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("listed");
    QTest::newRow("everything") << "*"
                                << "CPU_clk clk data[0] data[1] data[2] data[3] x*y";
    QTest::newRow("part, any case") << "CLK"
                                    << "CPU_clk clk";
    QTest::newRow("beginning") << "clk*"
                               << "clk";
    QTest::newRow("one character") << "*c?k"
                                   << "CPU_clk clk";
    QTest::newRow("brackets") << "d*[2]"
                              << "data[2]";
    QTest::newRow("pasted with spaces") << " data[1] "
                                        << "data[1]";
    QTest::newRow("no match") << "("
                              << "";
}

void TestFindNetDialog::filters()
{
    QFETCH(QString, filter);
    ModalDriver driver([&filter](QWidget *dialog) {
        const Picker picker(dialog);
        QTest::keyClicks(picker.filter, filter);
        QTEST(picker.shown(), "listed");
        QVERIFY(!picker.ok->isEnabled());
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QVERIFY(FindNetDialog::getList(m_nets, nullptr).isEmpty());
}

void TestFindNetDialog::returnsChosenInListOrder()
{
    ModalDriver driver([](QWidget *dialog) {
        const Picker picker(dialog);
        picker.click(0);
        // Hiding a net by a filter deselects it.
        QTest::keyClicks(picker.filter, QStringLiteral("data"));
        picker.click(3);
        picker.click(0, Qt::ControlModifier);
        picker.click(1, Qt::ControlModifier);
        QCOMPARE(picker.count->text(), QStringLiteral("4 of 7 nets, 3 selected"));
        QTest::mouseClick(picker.ok, Qt::LeftButton);
    });
    QCOMPARE(paths(FindNetDialog::getList(m_nets, nullptr)),
             QStringLiteral("data[0] data[1] data[3]"));
}

void TestFindNetDialog::findsOtherNames()
{
    const QString path = m_folder.filePath(QStringLiteral("names.json"));
    const auto write = [&path](int bit) {
        NetlistJson json;
        json.module("unit").port("<i>", "input", {2}).net("inner", {2});
        json.module("top")
            .top()
            .net("clk", {2})
            .net("data", {3})
            .cell("u", "unit", {{"<i>", "input", {bit}}});
        return json.write(path);
    };
    QVERIFY(write(3));
    for (const bool isReplaced : {false, true}) {
        const std::unique_ptr<NlsData::Netlist> netlist(
            NlsData::readNetlistFile(path, nullptr, false));
        QVERIFY(netlist);
        const QList<Net *> nets = netlist->netMap().values();
        if (isReplaced) // what the file says now is of another netlist
            QVERIFY(QFile::remove(path) && write(2));
        ModalDriver driver([&](QWidget *dialog) {
            const Picker picker(dialog);
            QTest::keyClicks(picker.filter, QStringLiteral("u/inner"));
            const auto toolTip = [&picker] {
                return picker.list->model()->index(0, 0).data(Qt::ToolTipRole).toString();
            };
            if (!isReplaced) {
                QTRY_COMPARE(picker.shown(), QStringLiteral("data"));
                QVERIFY2(toolTip().contains(QLatin1String("u/&lt;i&gt;\nu/inner")),
                         qPrintable(toolTip()));
            } else {
                const auto *names = dialog->findChild<NlsData::OtherNames *>();
                QTRY_VERIFY(names->isDone());
                QTRY_VERIFY(!picker.count->text().contains(QLatin1String("Filtering")));
                QCOMPARE(picker.shown(), QString());
            }
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        QVERIFY(FindNetDialog::getList(nets, nullptr).isEmpty());
    }
}

void TestFindNetDialog::countsInBrackets()
{
    NetlistJson json;
    auto &top = json.module("top").top().net("d", {2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    top.net("g[2].q", {20}).net("g[10].q", {21}).net("g[9].q", {22}).net("h10", {23});
    const QString path = m_folder.filePath(QStringLiteral("wide.json"));
    QVERIFY(json.write(path));
    const std::unique_ptr<NlsData::Netlist> netlist(NlsData::readNetlistFile(path, nullptr, false));
    ModalDriver driver([](QWidget *dialog) {
        const Picker picker(dialog);
        QCOMPARE(picker.shown(),
                 QStringLiteral("d[0] d[1] d[2] d[3] d[4] d[5] d[6] d[7] d[8] d[9] d[10] "
                                "g[2].q g[9].q g[10].q h10"));
        QTest::keyClicks(picker.filter, QStringLiteral("g"));
        picker.list->selectAll();
        QTest::mouseClick(picker.ok, Qt::LeftButton);
    });
    QCOMPARE(paths(FindNetDialog::getList(netlist->netMap().values(), nullptr)),
             QStringLiteral("g[2].q g[9].q g[10].q"));
}

void TestFindNetDialog::survivesParentDeletion()
{
    auto *parent = new QWidget;
    ModalDriver driver([parent](QWidget *dialog) {
        Picker(dialog).click(2);
        delete parent;
    });
    QVERIFY(FindNetDialog::getList(m_nets, parent).isEmpty());
}

/// Typing faster than the filter works ends with the list of the last text, even with more nets
/// than one turn of the event loop can filter.
void TestFindNetDialog::filtersLongListWhileTyping()
{
    QList<Net *> nets;
    for (int i = 0; i < 20000; ++i)
        nets += m_nets;
    ModalDriver driver([&](QWidget *dialog) {
        const Picker picker(dialog);
        const int all = nets.size();
        const auto rows = [&picker] { return picker.list->model()->rowCount(); };
        QTest::keyClicks(picker.filter, QStringLiteral("ta[3"));
        QTRY_COMPARE_WITH_TIMEOUT(rows(), all / 7, 30000);
        QTest::keyClicks(picker.filter, QStringLiteral("]"));
        QTest::keyClick(picker.filter, Qt::Key_Backspace);
        QTest::keyClick(picker.filter, Qt::Key_Backspace);
        QTRY_COMPARE_WITH_TIMEOUT(rows(), 4 * (all / 7), 30000);
        picker.filter->clear();
        QCOMPARE(rows(), all);
        picker.list->selectAll();
        QTest::mouseClick(picker.ok, Qt::LeftButton);
    });
    QCOMPARE(FindNetDialog::getList(nets, nullptr), nets);
}

QTEST_MAIN(TestFindNetDialog)
#include "test_findnetdialog.moc"
