#include "rates/moduleinstselectdialog.h"

#include "support/netlistjson.h"

#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <QtTest>

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
    void keepsUpWithTyping();
    void returnsWhatIsSelected();

private:
    std::unique_ptr<NlsData::Netlist> read(NetlistJson &json)
    {
        const QString path = m_folder.filePath(QStringLiteral("design.json"));
        QString error;
        if (!json.write(path))
            return nullptr;
        std::unique_ptr<NlsData::Netlist> netlist(NlsData::readNetlistFile(path, &error, false));
        if (!netlist)
            qWarning().noquote() << error;
        return netlist;
    }

    /// The design "top" with instances of which some sort before its name, in no order.
    std::unique_ptr<NlsData::Netlist> smallDesign()
    {
        NetlistJson json;
        json.module("top")
            .top()
            .cell("u_uart", "FIFO")
            .cell("CPU0", "FIFO")
            .cell("a*b[1]", "FIFO")
            .cell("cpu1", "FIFO");
        return read(json);
    }

    QTemporaryDir m_folder;
};

void TestModuleInstSelectDialog::filters_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<QStringList>("expected");
    const auto list = [](const char *names) {
        return QString::fromLatin1(names).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    QTest::newRow("none") << QString() << list("top CPU0 a*b[1] cpu1 u_uart");
    QTest::newRow("blanks") << QStringLiteral("   ") << list("top CPU0 a*b[1] cpu1 u_uart");
    QTest::newRow("case") << QStringLiteral(" CpU ") << list("CPU0 cpu1");
    QTest::newRow("no wildcards") << QStringLiteral("*") << list("a*b[1]");
    QTest::newRow("no sets") << QStringLiteral("b[1]") << list("a*b[1]");
    QTest::newRow("the design") << QStringLiteral("op") << list("top");
    QTest::newRow("nothing") << QStringLiteral("xyz") << QStringList();
}

void TestModuleInstSelectDialog::filters()
{
    QFETCH(QString, filter);
    QFETCH(QStringList, expected);
    const auto netlist = smallDesign();
    QVERIFY(netlist);
    ModuleInstSelectDialog dialog(nullptr, netlist.get(), true);
    auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("lineEditFilter"));
    auto *list = dialog.findChild<QListWidget *>(QStringLiteral("listWidget"));

    QTest::keyClicks(edit, filter);
    QCOMPARE(shown(list), expected);
    edit->clear();
    QCOMPARE(shown(list).size(), 5);
}

/// The list that typing, correcting and clearing leaves is the list that a plain search gives, with
/// more entries than one turn of the event loop can list.
void TestModuleInstSelectDialog::keepsUpWithTyping()
{
    constexpr int COUNT = 60000;
    NetlistJson json;
    auto &top = json.module("top").top();
    for (int i = 0; i < COUNT; ++i)
        top.cell("reg_" + QByteArray::number(i), "DFF");
    const auto netlist = read(json);
    QVERIFY(netlist);
    QStringList all(netlist->name());
    all += netlist->instanceMap().keys();

    ModuleInstSelectDialog dialog(nullptr, netlist.get(), true);
    auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("lineEditFilter"));
    auto *list = dialog.findChild<QListWidget *>(QStringLiteral("listWidget"));
    const auto settled = [list] { return !list->viewport()->testAttribute(Qt::WA_SetCursor); };

    QTest::keyClicks(edit, QStringLiteral("G_1"));
    QTest::keyClicks(edit, QStringLiteral("23"));
    QTRY_VERIFY(settled());
    QCOMPARE(shown(list), all.filter(QStringLiteral("g_123"), Qt::CaseInsensitive));
    QTest::keyClick(edit, Qt::Key_Backspace);
    QTest::keyClicks(edit, QStringLiteral("4"));
    QTRY_VERIFY(settled());
    QCOMPARE(shown(list), all.filter(QStringLiteral("g_124"), Qt::CaseInsensitive));
    edit->clear();
    QTRY_VERIFY(settled());
    QCOMPARE(list->count(), all.size());
    QCOMPARE(shown(list), all);
}

void TestModuleInstSelectDialog::returnsWhatIsSelected()
{
    const auto netlist = smallDesign();
    QVERIFY(netlist);
    ModuleInstSelectDialog dialog(nullptr, netlist.get(), false);
    QVERIFY(dialog.getSelected().isEmpty());
    auto *list = dialog.findChild<QListWidget *>(QStringLiteral("listWidget"));
    dialog.show();
    const auto click = [list](int row, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, modifiers,
                          list->visualItemRect(list->item(row)).center());
    };
    click(1, Qt::NoModifier);
    click(3, Qt::ControlModifier);
    QCOMPARE(dialog.getSelected(), QStringList(QStringLiteral("cpu1")));
}

QTEST_MAIN(TestModuleInstSelectDialog)
#include "test_moduleinstselectdialog.moc"
