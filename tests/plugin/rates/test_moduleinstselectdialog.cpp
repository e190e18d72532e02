#include "rates/moduleinstselectdialog.h"

#include "support/netlistjson.h"

#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

using VLT::ModuleInstSelectDialog;

namespace {

QStringList shown(const QListWidget *list)
{
    QStringList texts;
    for (int row = 0; row < list->count(); ++row)
        texts.append(list->item(row)->text());
    return texts;
}

} // namespace

class TestModuleInstSelectDialog : public QObject
{
    Q_OBJECT

private slots:
    void filters_data();
    void filters();
    void modulesOnly();
    void filtersLongListWhileTyping();

private:
    std::unique_ptr<NlsData::Netlist> read(const NetlistJson &json) const
    {
        const QString path = m_folder.filePath(QStringLiteral("design.json"));
        const bool written = json.write(path);
        return std::unique_ptr<NlsData::Netlist>(
            written ? NlsData::readNetlistFile(path, nullptr, false) : nullptr);
    }

    QTemporaryDir m_folder;
};

void TestModuleInstSelectDialog::filters_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QString>("listed");
    const char *all = "top CPU0 a*b[1] cpu1 u_uart"; // the design first, the others by name
    QTest::newRow("none") << "" << all;
    QTest::newRow("spaces") << "   " << all;
    QTest::newRow("any case") << " CpU "
                              << "CPU0 cpu1";
    QTest::newRow("no pattern") << "*"
                                << "a*b[1]";
    QTest::newRow("brackets") << "b[1]"
                              << "a*b[1]";
    QTest::newRow("design") << "op"
                            << "top";
    QTest::newRow("no match") << "xyz"
                              << "";
}

void TestModuleInstSelectDialog::filters()
{
    QFETCH(QString, filter);
    NetlistJson json;
    auto &top = json.module("top").top();
    for (const char *cell : {"u_uart", "CPU0", "a*b[1]", "cpu1"})
        top.cell(cell, "FIFO");
    const auto netlist = read(json);
    QVERIFY(netlist);
    ModuleInstSelectDialog dialog(nullptr, netlist.get(), true);
    auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("lineEditFilter"));
    auto *list = dialog.findChild<QListWidget *>(QStringLiteral("listWidget"));
    QTest::keyClicks(edit, filter);
    QTEST(shown(list).join(QLatin1Char(' ')), "listed");
}

void TestModuleInstSelectDialog::modulesOnly()
{
    NetlistJson json;
    json.module("sub").cell("ff", "FERN_DFF");
    json.module("top")
        .top()
        .cell("u_sub", "sub")
        .cell("u_unknown", "FIFO")
        .cell("u_flat", "$scopeinfo")
        .cell("u_flat.ff", "FERN_DFF");
    const auto netlist = read(json);
    QVERIFY(netlist);
    ModuleInstSelectDialog dialog(nullptr, netlist.get(), true);
    dialog.show();
    auto *modules = dialog.findChild<QCheckBox *>();
    auto *list = dialog.findChild<QListWidget *>();
    QVERIFY(!modules->isChecked());
    QCOMPARE(list->count(), 6);
    QTest::keyClicks(dialog.findChild<QLineEdit *>(), QStringLiteral("u"));
    QCOMPARE(list->count(), 5);
    modules->click();
    QCOMPARE(shown(list), QStringList({QStringLiteral("u_flat"), QStringLiteral("u_sub")}));
    dialog.findChild<QLineEdit *>()->clear();
    QCOMPARE(shown(list).size(), 3); // with the design
    modules->click();
    QCOMPARE(list->count(), 6);
}

/// Typing, correcting and clearing end with the list of a plain search, even with more entries than
/// one turn of the event loop can list.
void TestModuleInstSelectDialog::filtersLongListWhileTyping()
{
    NetlistJson json;
    auto &top = json.module("top").top();
    for (int i = 0; i < 60000; ++i)
        top.cell("reg_" + QByteArray::number(i), "DFF");
    const auto netlist = read(json);
    QVERIFY(netlist);
    const QStringList all = QStringList(netlist->name()) + netlist->instanceMap().keys();

    ModuleInstSelectDialog dialog(nullptr, netlist.get(), true);
    auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("lineEditFilter"));
    auto *list = dialog.findChild<QListWidget *>(QStringLiteral("listWidget"));
    const auto listed = [list] {
        return QTest::qWaitFor(
                   [list] { return !list->viewport()->testAttribute(Qt::WA_SetCursor); })
                   ? shown(list)
                   : QStringList();
    };
    QTest::keyClicks(edit, QStringLiteral("G_1"));
    QTest::keyClicks(edit, QStringLiteral("23"));
    QCOMPARE(listed(), all.filter(QStringLiteral("g_123")));
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClicks(edit, QStringLiteral("4"));
    QCOMPARE(listed(), all.filter(QStringLiteral("g_124")));
    edit->clear();
    QCOMPARE(listed(), all);
}

QTEST_MAIN(TestModuleInstSelectDialog)
#include "test_moduleinstselectdialog.moc"
