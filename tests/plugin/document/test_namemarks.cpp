#include "config/filenames.h"
#include "document/namelookup.h"
#include "document/vltview.h"
#include "frame/vltsettingplugin.h"
#include "frame/vltviewmanager.h"
#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"
#include "support/testhost.h"
#include "tables/markednames.h"
#include "tables/page.h"
#include "tables/tablepage.h"

#include <QDomDocument>
#include <QtTest>
#include <QtWidgets>

#include <ctime>

using namespace VLT;

namespace {

QByteArray fileOf(const QByteArray &sections)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n<Config>" +
           sections + "</Config>";
}

QImage cell(QTableView *table, int row)
{
    return table->viewport()->grab(table->visualRect(table->model()->index(row, 0))).toImage();
}

} // namespace

class TestNameMarks : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_plugin.initialize()); }
    void init() { m_host.reset(new TestHost); }
    void cleanup() { m_host.reset(); }
    void cleanupTestCase() { m_plugin.shutDown(); }

    void marksMissingNamesOfEveryKind();
    void showsMarks();
    void followsNetlistAndRows();
    void keepsTurnsShort();
    void isFinishedAfterItsView();

private:
    VLTView *open(const QByteArray &sections)
    {
        VLTViewManager::openView(m_host->device(),
                                 m_host->write(QStringLiteral("a.vlr"), fileOf(sections)));
        VLTView *view = VLTViewManager::vltViews().value(0);
        view->window()->show();
        return view;
    }
    /// The table of a section; its tab is in front.
    static MarkedNames *marks(VLTView *view, const QString &section)
    {
        view->showRecord(section, QString(), 1);
        const auto pages = view->findChildren<TablePage *>();
        for (const TablePage *page : pages) {
            if (page->section() == section && page->findChild<QTableView *>()->model()->rowCount())
                return page->findChild<MarkedNames *>();
        }
        return nullptr;
    }

    VLTSettingPlugin m_plugin;
    std::unique_ptr<TestHost> m_host;
};

void TestNameMarks::marksMissingNamesOfEveryKind()
{
    // Of each kind one that is there, one that is not, and one of another kind.
    VLTView *view = open("<NetRate><Net name=\"next\"/><Net name=\"gone\"/><Net name=\"store\"/>"
                         "</NetRate><SimuFile><File entity=\"core\">a</File><File>b</File>"
                         "<File entity=\"gone\">c</File></SimuFile>"
                         "<GlobalEnable value=\"1\"><Clock name=\"gone\"/></GlobalEnable>"
                         "<PortOutEnable><Port name=\"q[1]\"/><Port name=\"gone\"/>"
                         "<Port name=\"next\"/></PortOutEnable>"
                         "<GlobalBsram><BSRam name=\"store\"/><BSRam name=\"gone\"/>"
                         "<BSRam name=\"q_reg0\"/></GlobalBsram>"
                         "<LocalEnable><Instance name=\"core/state_reg\"/><Instance name=\"gone\"/>"
                         "<Instance name=\"store\"/></LocalEnable>");
    const auto missing = [&](const QString &section) {
        const MarkedNames *names = marks(view, section);
        QStringList result;
        for (int row = 0; names && row < names->table()->model()->rowCount(); ++row) {
            const QString name = names->table()->model()->index(row, 0).data().toString();
            if (names->isMissing(name))
                result += name;
        }
        return result.join(QLatin1Char(' '));
    };
    QTRY_COMPARE(missing(NODE_INSTANCE), QStringLiteral("gone store"));
    QCOMPARE(missing(NODE_BSRAM), QStringLiteral("gone q_reg0"));
    QCOMPARE(missing(NODE_PORT), QStringLiteral("gone next"));
    QCOMPARE(missing(NODE_NET), QStringLiteral("gone store"));
    QCOMPARE(missing(NODE_FILE), QStringLiteral("gone"));
    QCOMPARE(marks(view, NODE_CLOCK), nullptr);
    QVERIFY(!view->isModified());
}

void TestNameMarks::showsMarks()
{
    VLTView *view = open("<LocalEnable><Instance name=\"gone\" value=\"1\"/>"
                         "<Instance name=\"q_reg0\" value=\"2\"/></LocalEnable>");
    MarkedNames *names = marks(view, NODE_INSTANCE);
    QTableView *table = names->table();
    // The same as without marks.
    names->setNames(nullptr);
    table->clearSelection();
    const QImage plain = cell(table, 0);
    table->selectRow(0);
    const QImage plainSelected = cell(table, 0);
    QTRY_VERIFY(names->isMissing(QStringLiteral("gone")));
    QVERIFY(cell(table, 0) != plainSelected);
    const QString why = table->accessibleDescription();
    QVERIFY2(why.contains(QLatin1String("no flip-flop \"gone\"")), qPrintable(why));
    table->selectRow(1);
    QVERIFY(table->accessibleDescription().isEmpty());
    QVERIFY(cell(table, 0) != plain);

    const auto toolTip = [table](int row) {
        QToolTip::hideText();
        const QPoint at = table->visualRect(table->model()->index(row, 0)).center();
        QHelpEvent help(QEvent::ToolTip, at, table->viewport()->mapToGlobal(at));
        QCoreApplication::sendEvent(table->viewport(), &help);
        return QToolTip::text();
    };
    QVERIFY(toolTip(0).contains(why.toHtmlEscaped()));
    QVERIFY(!toolTip(1).contains(QLatin1String("no flip-flop")));

    // The roles of the model have not changed.
    const QModelIndex index = table->model()->index(0, 0);
    for (int role : {int(Qt::FontRole), int(Qt::DecorationRole), int(Qt::AccessibleTextRole),
                     int(Qt::AccessibleDescriptionRole), int(Qt::ForegroundRole)})
        QVERIFY(!index.data(role).isValid());
    QCOMPARE(index.data(Qt::ToolTipRole).toString(), QStringLiteral("gone"));
}

void TestNameMarks::followsNetlistAndRows()
{
    VLTView *view = open("<LocalEnable><Instance name=\"gone\"/><Instance name=\"q_reg0\"/>"
                         "</LocalEnable><SimuFile><File>a</File><File entity=\"core\">b</File>"
                         "</SimuFile>");
    MarkedNames *names = marks(view, NODE_INSTANCE);
    QTRY_VERIFY(names->isMissing(QStringLiteral("gone")));
    m_host->useNetlist(
        TestHost::defaultNetlist().replace("q_reg0", "gone").replace("\"top\"", "\"best\""));
    m_host->finishSynthesis();
    QTRY_VERIFY(names->isMissing(QStringLiteral("q_reg0")));
    QCOMPARE(view->getNetlist()->name(), QStringLiteral("best"));
    QVERIFY(view->showRecord(NODE_FILE, QString(), 1)); // the design, which has another name now
    QVERIFY(!view->showRecord(NODE_FILE, QString(), 2));
    QVERIFY(!names->isMissing(QStringLiteral("gone")));
    // A row that is added is looked up, too.
    QDomDocument more;
    QVERIFY(more.setContent(QByteArray("<Config><LocalEnable><Instance name=\"new\"/>"
                                       "</LocalEnable></Config>")));
    QDomElement root = more.documentElement();
    for (Page *part : view->pages())
        part->readData(&root);
    QTRY_VERIFY(names->isMissing(QStringLiteral("new")));
    // A view may go while its names are looked up.
    m_host->finishSynthesis();
    m_host->closeAll();
}

void TestNameMarks::keepsTurnsShort()
{
#ifdef __SANITIZE_ADDRESS__ // many times slower
    const int count = 10000;
#else
    const int count = 300000;
#endif
    QByteArray records;
    for (int i = 0; i < count; ++i)
        records += "<Instance name=\"soc/cpu/stage/reg_" + QByteArray::number(i) + "\"/>";
    VLTView *view = open("<LocalEnable>" + records + "</LocalEnable>");
    const MarkedNames *names = marks(view, NODE_INSTANCE);
    // Between two turns of a timer without an interval is one turn of the others. This thread's own
    // time: what else the machine does is not counted.
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return qint64(time.tv_sec) * 1000 + time.tv_nsec / 1000000;
    };
    QApplication::processEvents(); // the first picture
    qint64 longest = 0;
    qint64 last = now();
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        longest = qMax(longest, now() - last);
        last = now();
    });
    timer.start(0);
    const QString lastName = QStringLiteral("soc/cpu/stage/reg_%1").arg(count - 1);
    QTRY_VERIFY_WITH_TIMEOUT(names->isMissing(lastName), 30000);
    QVERIFY2(longest <= 100, qPrintable(QString::number(longest)));
}

void TestNameMarks::isFinishedAfterItsView()
{
    auto view = std::make_unique<VLTView>(
        m_host->device(), NlsData::readNetlistFile(m_host->netlistPath(), nullptr, false));
    QVERIFY(view->readCfgFile(m_host->write(
        QStringLiteral("b.vlr"), fileOf("<LocalEnable><Instance name=\"gone\"/></LocalEnable>"))));
    view->show();
    const std::weak_ptr<NlsData::Netlist> netlist = view->holdNetlist();
    while (netlist.use_count() < 2)
        QApplication::processEvents();
    view.reset();
    NameLookup::finish();
    QVERIFY(netlist.expired());
}

QTEST_MAIN(TestNameMarks)
#include "test_namemarks.moc"
