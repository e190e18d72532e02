#include "plugin/activity/activitynetlist.h"

#include "host/nlsdata/netlistnotices.h"
#include "nlsdata/netlistreader.h"
#include "support/netlistjson.h"
#include "tables/nlsdatafinderdialog.h"

#include <QtTest>
#include <QtWidgets>

using VLT::NlsDataFinderDialog;

namespace {

QStringList words(const char *text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// A finder driven by its widgets.
class Finder : public NlsDataFinderDialog
{
public:
    Finder(NlsData::Netlist *netlist, int type)
        : NlsDataFinderDialog(nullptr, netlist, FindType(type))
        , filter(findChild<QLineEdit *>(QStringLiteral("lineEditFilter")))
        , list(findChild<QListWidget *>(QStringLiteral("listWidget")))
        , found(findChild<QLabel *>(QStringLiteral("labelFound")))
    {
        show();
    }

    QStringList search(const QString &pattern)
    {
        filter->setText(pattern);
        QTest::keyClick(filter, Qt::Key_Return);
        QStringList texts;
        for (int row = 0; row < list->count(); ++row)
            texts << list->item(row)->text();
        return texts;
    }

    void click(int row)
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::ControlModifier,
                          list->visualItemRect(list->item(row)).center());
    }

    QLineEdit *const filter;
    QListWidget *const list;
    QLabel *const found;
};

} // namespace

class TestNlsDataFinderDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { m_netlist.reset(activityNetlist()); }
    void listsObjectsOfType_data();
    void listsObjectsOfType();
    void matchesWholePaths();
    void advisesWhenNothingMatches_data();
    void advisesWhenNothingMatches();
    void tellsPortsOfOnePathApart();
    void prefilterKeepsResults();
    void returnsSelectedObjects();
    void enterInListAccepts();

private:
    std::unique_ptr<NlsData::Netlist> m_netlist;
};

void TestNlsDataFinderDialog::listsObjectsOfType_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QStringList>("objects");
    QTest::newRow("ports") << 0 << "Port Finder"
                           << words("clk led[0] led[1] led[2] led[3] CPU_q loose bus");
    QTest::newRow("block SRAMs") << 3 << "BSRAM Finder"
                                 << words("ram0 ram1 ram2 ram3 ram4 ram5 ram6 ram7 ram8");
    QTest::newRow("output ports") << 4 << "Port Finder"
                                  << words("led[0] led[1] led[2] led[3] CPU_q loose bus");
    QTest::newRow("flip-flops") << 5 << "DFF Finder" << words("CPU_reg u_cpu/reg_9");
    QTest::newRow("other") << 1 << "Dialog" << QStringList();
}

void TestNlsDataFinderDialog::listsObjectsOfType()
{
    QFETCH(int, type);
    QFETCH(QString, title);
    QFETCH(QStringList, objects);
    Finder finder(m_netlist.get(), type);
    QCOMPARE(finder.windowTitle(), title);
    QCOMPARE(finder.list->count(), 0);
    QCOMPARE(finder.filter->text(), QStringLiteral("*"));
    QCOMPARE(finder.search({}), objects);
    QCOMPARE(finder.found->text(), QStringLiteral("%1 objects found").arg(objects.size()));
}

void TestNlsDataFinderDialog::matchesWholePaths()
{
    Finder finder(m_netlist.get(), NlsDataFinderDialog::FindDff);
    QCOMPARE(finder.search(QStringLiteral("cpu*")), words("CPU_reg"));
    QCOMPARE(finder.search(QStringLiteral("*CPU*")), words("CPU_reg u_cpu/reg_9"));
    QCOMPARE(finder.search(QStringLiteral("[")), QStringList());

    Finder ports(m_netlist.get(), NlsDataFinderDialog::FindPort);
    QCOMPARE(ports.search(QStringLiteral("led[3]")), QStringList());
    QCOMPARE(ports.search(QStringLiteral("led\\[3\\]")), words("led[3]"));
    QCOMPARE(ports.found->text(), QStringLiteral("1 object found"));
}

void TestNlsDataFinderDialog::advisesWhenNothingMatches_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("advice");
    const QString whole = QStringLiteral(". The pattern has to match the whole path; try ");
    QTest::newRow("part") << "eg_9" << whole + QStringLiteral("*eg_9*");
    QTest::newRow("half a part") << "eg_9*" << whole + QStringLiteral("*eg_9*");
    QTest::newRow("bracket") << "reg[3]"
                             << ". Brackets stand for one of the characters in them; write "
                                "\\[3\\] to find [3]";
    QTest::newRow("escaped bracket") << "reg\\[3\\]" << whole + QStringLiteral("*reg\\[3\\]*");
    QTest::newRow("nothing to say") << "*xyz*" << QString();
}

void TestNlsDataFinderDialog::advisesWhenNothingMatches()
{
    QFETCH(QString, pattern);
    QFETCH(QString, advice);
    Finder finder(m_netlist.get(), NlsDataFinderDialog::FindDff);
    QVERIFY(finder.search(pattern).isEmpty());
    QCOMPARE(finder.found->text(), QStringLiteral("0 objects found") + advice);
}

void TestNlsDataFinderDialog::tellsPortsOfOnePathApart()
{
    NetlistJson json;
    json.module("top")
        .top()
        .port("a", "input", {2})
        .port("d", "input", {3, 4})
        .port("d[1]", "input", {5});
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("netlist.json"));
    QVERIFY(json.write(path));
    QSignalSpy warned(NlsData::NetlistNotices::get(), &NlsData::NetlistNotices::ambiguous);
    const auto read = [&path] {
        return std::unique_ptr<NlsData::Netlist>(NlsData::readNetlistFile(path, nullptr, false));
    };
    const auto netlist = read();
    read(); // as each view does
    QCOMPARE(warned.count(), 1);
    QVERIFY(warned.first().first().toString().contains(QLatin1String("called d[1]")));

    Finder finder(netlist.get(), NlsDataFinderDialog::FindPort);
    QCOMPARE(finder.search({}), words("a d[0] d[1] d[1]"));
    QVERIFY(finder.list->item(1)->toolTip().isEmpty());
    QVERIFY(finder.list->item(2)->toolTip().startsWith(QLatin1String("Port 3 of 4")));
    QVERIFY(finder.list->item(3)->toolTip().startsWith(QLatin1String("Port 4 of 4")));
}

// Most paths are ruled out without asking the pattern; that must never change the answer.
void TestNlsDataFinderDialog::prefilterKeepsResults()
{
    const QStringList names{
        QStringLiteral("index"),  QStringLiteral("\u0130NDEX"), QStringLiteral("in[1]dex"),
        QStringLiteral("\u212A"), QStringLiteral("k"),          QStringLiteral("\u017Fum"),
        QStringLiteral("a*b"),    QStringLiteral("a.b"),        QStringLiteral("STRASSE")};
    NetlistJson json;
    NetlistJson::Module &top = json.module("top").top();
    for (int i = 0; i < names.size(); ++i)
        top.port(names[i].toUtf8(), "input", {2 + i});
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("netlist.json"));
    QVERIFY(json.write(path));
    const std::unique_ptr<NlsData::Netlist> netlist(NlsData::readNetlistFile(path, nullptr, false));
    QVERIFY(netlist);

    Finder finder(netlist.get(), NlsDataFinderDialog::FindPort);
    for (const char *text :
         {"*index", "i*X", "?NDEX", "k", "\xE2\x84\xAA", "s*", "*sum", "a\\*b", "a?b", "a.b",
          "[a-i]*", "in[[]1]*", "in]dex", "stra*sse", "ndex", "\xC4\xB0*", "*n*d*e*", "xyz*"}) {
        const QString pattern = QString::fromUtf8(text);
        const QRegExp matcher(pattern, Qt::CaseInsensitive, QRegExp::WildcardUnix);
        QStringList expected;
        std::copy_if(names.begin(), names.end(), std::back_inserter(expected),
                     [&](const QString &name) { return matcher.exactMatch(name); });
        QCOMPARE(finder.search(pattern), expected);
    }
}

void TestNlsDataFinderDialog::returnsSelectedObjects()
{
    Finder finder(m_netlist.get(), NlsDataFinderDialog::FindOBuff);
    finder.search(QStringLiteral("*"));
    finder.click(5);
    finder.click(2);
    QCOMPARE(finder.getSelected(), words("loose led[2]"));
    QCOMPARE(finder.found->text(), QStringLiteral("7 objects found, 2 selected"));
    QStringList paths;
    for (const NlsData::Port *port : finder.getBuff())
        paths << port->path();
    QCOMPARE(paths, finder.getSelected());

    QCOMPARE(finder.search(QStringLiteral("bus")), words("bus"));
    QVERIFY(finder.getBuff().isEmpty());
    finder.click(0);
    QCOMPARE(finder.getBuff().first()->path(), QStringLiteral("bus"));
}

void TestNlsDataFinderDialog::enterInListAccepts()
{
    Finder finder(m_netlist.get(), NlsDataFinderDialog::FindDff);
    QVERIFY(QTest::qWaitForWindowActive(&finder));
    finder.search(QStringLiteral("*"));
    finder.list->setFocus();
    QTest::keyClick(finder.list, Qt::Key_Down);
    QTest::keyClick(finder.list, Qt::Key_Return);
    QCOMPARE(finder.result(), int(QDialog::Accepted));
    QCOMPARE(finder.getSelected().size(), 1);
}

QTEST_MAIN(TestNlsDataFinderDialog)
#include "test_nlsdatafinderdialog.moc"
