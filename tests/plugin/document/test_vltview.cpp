#include "document/plainmessage.h"
#include "document/vlrfile.h"
#include "document/vltview.h"
#include "frame/vltsettingplugin.h"
#include "frame/vltviewmanager.h"
#include "support/modaldriver.h"
#include "support/testhost.h"
#include "support/vlrschema.h"

#include "core/viewmanager.h"
#include "nlsdata/netlist.h"

#include <QCloseEvent>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTabWidget>
#include <QTableView>
#include <QtTest>

using VLT::VLTView;
using VLT::VLTViewManager;

namespace {

constexpr char NO_VOLTAGE_DEVICE[] = "QF3-50-BG900";

} // namespace

class TestVLTView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_plugin.initialize()); }
    void init() { m_host.reset(new TestHost); }
    void cleanup() { m_host.reset(); }
    void cleanupTestCase() { m_plugin.shutDown(); }

    void titleFollowsTheState();
    void fileWithoutRootOpensModified();
    void reloadShowsTheBanner();
    void otherEventsAreIgnored();
    void netlistIsKeptForWhoHoldsIt();
    void failedReloadClosesOnce();
    void closeQuestion_data();
    void closeQuestion();
    void viewMayGoWhileItAsks();
    void deviceWithoutVoltages_data();
    void deviceWithoutVoltages();
    void failedSaveKeepsTheChanges_data();
    void failedSaveKeepsTheChanges();
    void openEditorIsSaved();
    void savedFileIsValidAndStable();

private:
    VLTView *open(const QByteArray &bytes = VLT::emptyFile(),
                  const QString &name = QStringLiteral("a.vlr"))
    {
        VLTViewManager::openView(m_host->device(), m_host->write(name, bytes));
        return VLTViewManager::vltViews().value(VLTViewManager::vltViews().size() - 1);
    }
    static void finishDeletions()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static QWidget *banner(const VLTView *view)
    {
        return view->findChild<QWidget *>(QStringLiteral("VLT__ChangedBanner"));
    }
    void synthesise(const QByteArray &netlist)
    {
        m_host->useNetlist(netlist);
        m_host->finishSynthesis();
    }

    VLT::VLTSettingPlugin m_plugin;
    QScopedPointer<TestHost> m_host;
};

void TestVLTView::titleFollowsTheState()
{
    VLTView *view = open();
    const auto *tabs = view->findChild<QTabWidget *>();
    QCOMPARE(tabs->tabText(0), QStringLiteral("General Setting"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("Rate Setting"));
    QCOMPARE(tabs->tabText(2), QStringLiteral("Clock Setting"));
    QVERIFY(!view->isModified());
    QCOMPARE(view->windowTitle(), QStringLiteral("a.vlr"));
    QString titleAtSignal;
    QSignalSpy spy(view, &VLTView::modificationStatusChanged);
    connect(view, &VLTView::modificationStatusChanged, this,
            [&] { titleAtSignal = view->windowTitle(); });
    view->setModified(true);
    view->setModified(true);
    QCOMPARE(spy, QList<QVariantList>{{true}});
    QCOMPARE(titleAtSignal, QStringLiteral("a.vlr*"));
    QCOMPARE(view->shortTitle(), QStringLiteral("a.vlr*"));
    QVERIFY(view->save());
    QCOMPARE(view->windowTitle(), QStringLiteral("a.vlr"));
}

void TestVLTView::fileWithoutRootOpensModified()
{
    VLTView *view = open("<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n<!-- nothing -->\n");
    QVERIFY(view && view->isModified());
    QVERIFY(view->save());
    auto *vcc = view->findChild<QDoubleSpinBox *>(QStringLiteral("doubleSpinVCC"));
    QCOMPARE(vcc->value(), 1.0);
    vcc->setValue(1.05);
    QVERIFY(view->isModified());
}

void TestVLTView::reloadShowsTheBanner()
{
    VLTView *view = open();
    QVERIFY(!banner(view));
    const NlsData::Netlist *old = view->getNetlist();
    synthesise(TestHost::defaultNetlist());
    QVERIFY(!banner(view)); // not inside the event
    QTRY_VERIFY(banner(view));
    QVERIFY(view->getNetlist() != old);
    QWidget *first = banner(view);
    QVERIFY(!first->isHidden());
    QCOMPARE(view->layout()->itemAt(0)->widget(), first);
    QVERIFY(!first->findChild<QLabel *>(QStringLiteral("labelIcon"))
                 ->pixmap(Qt::ReturnByValue)
                 .isNull());
    QTest::mouseClick(first->findChild<QPushButton *>(), Qt::LeftButton);
    QVERIFY(first->isHidden());
    synthesise(TestHost::defaultNetlist());
    QTRY_VERIFY(!first->isHidden());
    QCOMPARE(banner(view), first);
    QVERIFY(!view->isModified());
}

void TestVLTView::otherEventsAreIgnored()
{
    VLTView *view = open();
    const NlsData::Netlist *old = view->getNetlist();
    const QString status = QStringLiteral("TE.Process.Status.Change");
    const QString process = QStringLiteral("process");
    m_host->raise(status,
                  {{process, QStringLiteral("Process.Pnr")}, {QStringLiteral("status"), 2}});
    m_host->raise(status,
                  {{process, QStringLiteral("Process.Syn")}, {QStringLiteral("status"), 1}});
    m_host->raise(status, {{process, QStringLiteral("Process.Syn")}});
    QTest::qWait(0);
    QCOMPARE(view->getNetlist(), old);
    QVERIFY(!banner(view));
}

void TestVLTView::netlistIsKeptForWhoHoldsIt()
{
    VLTView *view = open();
    std::shared_ptr<NlsData::Netlist> held = view->holdNetlist();
    const std::weak_ptr<NlsData::Netlist> watched = held;
    // As a page does that runs a dialog on the netlist's objects.
    const NlsData::Port *port = held->ports().first();
    ModalDriver driver([&](QWidget *dialog) {
        synthesise(TestHost::defaultNetlist());
        QTRY_VERIFY(view->getNetlist() != held.get()); // at once, while the dialog is open
        dialog->close();
    });
    VLT::showMessage(QMessageBox::Information, view, QString(), QString());
    QCOMPARE(port->path(), QStringLiteral("clk"));
    held.reset();
    QVERIFY(watched.expired());
}

void TestVLTView::failedReloadClosesOnce()
{
    const QPointer<VLTView> view = open();
    QSignalSpy closed(Core::ViewManager::instance(), &Core::ViewManager::viewClosed);
    ModalDriver driver([&](QWidget *dialog) {
        m_host->finishSynthesis(); // fails too, inside the first message
        QTest::qWait(0);
        QCOMPARE(QApplication::activeModalWidget(), dialog);
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    synthesise("{");
    QTRY_COMPARE(closed.size(), 1);
    finishDeletions();
    QVERIFY(!view);
    QCOMPARE(driver.title(), QStringLiteral("Error"));
    QCOMPARE(driver.text(), QStringLiteral("Netlist file does not exist or some errors are in the "
                                           "netlist file. VLR view will be closed"));
}

void TestVLTView::closeQuestion_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("saves");
    QTest::newRow("ok") << int(QMessageBox::Ok) << true << true;
    QTest::newRow("cancel") << int(QMessageBox::Cancel) << false << false;
    QTest::newRow("escape") << 0 << false << false;
    QTest::newRow("discard") << int(QMessageBox::Discard) << true << false;
}

void TestVLTView::closeQuestion()
{
    QFETCH(int, button);
    QFETCH(bool, closes);
    const QString name = QStringLiteral("a <b>&amp;%1.vlr");
    VLTView *view = open(VLT::emptyFile(), name);
    // Typed and not confirmed: closing takes it over first.
    auto *spin = view->findChild<QDoubleSpinBox *>(QStringLiteral("spinAmbTemp"));
    spin->selectAll();
    QTest::keyClicks(spin, QStringLiteral("31,5"));
    ModalDriver driver([button](QWidget *dialog) {
        QCOMPARE(qobject_cast<QMessageBox *>(dialog)->textFormat(), Qt::PlainText);
        button ? pressButton(button)(dialog) : QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QCOMPARE(Core::ViewManager::instance()->closeView(view), closes);
    QCOMPARE(driver.title(), QStringLiteral("Save"));
    QCOMPARE(driver.text(), QStringLiteral("Save changes to \"%1\" ?").arg(m_host->path(name)));
    QCOMPARE(VLTViewManager::vltViews().isEmpty(), closes);
    const bool saved = m_host->read(name).contains("<AmbientTemp>31.5</AmbientTemp>");
    QTEST(saved, "saves");
}

void TestVLTView::viewMayGoWhileItAsks()
{
    auto *view = new VLTView(m_host->device(), nullptr);
    QVERIFY(view->getVoltageInfo());
    QVERIFY(view->readCfgFile(m_host->write(QStringLiteral("a.vlr"), VLT::emptyFile())));
    view->setModified(true);
    ModalDriver driver([&](QWidget *) { delete view; });
    QCloseEvent event;
    QCoreApplication::sendEvent(view, &event);
    QVERIFY(!event.isAccepted());
}

void TestVLTView::deviceWithoutVoltages_data()
{
    QTest::addColumn<bool>("modified");
    QTest::addColumn<int>("views");
    QTest::addColumn<QString>("dialog");
    QTest::newRow("modified") << true << 1 << QString();
    QTest::newRow("two views") << true << 2 << QString();
    QTest::newRow("dialog") << true << 1 << QStringLiteral("message");
    QTest::newRow("close question") << true << 1 << QStringLiteral("question");
}

void TestVLTView::deviceWithoutVoltages()
{
    QFETCH(bool, modified);
    QFETCH(int, views);
    QFETCH(QString, dialog);
    const QPointer<VLTView> view = open();
    const QPointer<VLTView> second =
        views == 2 ? open(VLT::emptyFile(), QStringLiteral("b.vlr")) : nullptr;
    view->setModified(modified);
    auto *spin = view->findChild<QDoubleSpinBox *>(QStringLiteral("spinAmbTemp"));
    spin->selectAll();
    QTest::keyClicks(spin, QStringLiteral("3")); // dropped like every other change
    const auto changeDevice = [this] { m_host->setDevice(QString::fromLatin1(NO_VOLTAGE_DEVICE)); };
    if (dialog.isEmpty()) {
        changeDevice();
    } else {
        ModalDriver driver([&](QWidget *) { changeDevice(); });
        if (dialog == QLatin1String("question"))
            Core::ViewManager::instance()->closeView(view);
        else
            VLT::showMessage(QMessageBox::Information, view, QString(), QString());
    }
    QTRY_VERIFY(VLTViewManager::vltViews().isEmpty());
    QTRY_VERIFY(!view && !second);
    QCOMPARE(m_host->read(QStringLiteral("a.vlr")), VLT::emptyFile());
}

void TestVLTView::failedSaveKeepsTheChanges_data()
{
    QTest::addColumn<QString>("target"); // what the file's path leads to when it is saved
    QTest::addColumn<QString>("text");
    QTest::newRow("open") << QStringLiteral("missing/folder")
                          << QStringLiteral("Cannot open the config file '%1'!");
    QTest::newRow("write") << QStringLiteral("/dev/full")
                           << QStringLiteral("Cannot write the config file '%1'!");
}

void TestVLTView::failedSaveKeepsTheChanges()
{
    QFETCH(QString, target);
    QFETCH(QString, text);
    VLTView *view = open();
    view->setModified(true);
    QVERIFY(QFile::remove(view->file()));
    QVERIFY(QFile::link(target, view->file()));
    ModalDriver driver(pressButton(QMessageBox::Ok));
    QVERIFY(!view->save());
    QCOMPARE(driver.title(), QStringLiteral("Warning"));
    QCOMPARE(driver.text(), text.arg(view->file()));
    QVERIFY(view->isModified());
    QFile::remove(view->file());
    QVERIFY(view->save());
}

void TestVLTView::openEditorIsSaved()
{
    VLTView *view = open();
    QStandardItemModel model(1, 2);
    model.setItem(0, 0, new QStandardItem(QStringLiteral("old")));
    auto *table = new QTableView(view);
    table->setModel(&model);
    connect(&model, &QStandardItemModel::itemChanged, view, [view] { view->setModified(true); });
    const QPersistentModelIndex cell = model.index(0, 0);
    table->setCurrentIndex(cell);
    table->edit(cell);
    auto *editor = table->findChild<QLineEdit *>();
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("new"));
    QVERIFY(view->save());
    QCOMPARE(cell.data().toString(), QStringLiteral("new"));
    QVERIFY(!view->isModified());
    finishDeletions();
    QVERIFY(!view->isModified()); // the editor has gone without a second commit
}

void TestVLTView::savedFileIsValidAndStable()
{
    QVERIFY(open()->save());
    QCOMPARE(schemaErrors(m_host->read(QStringLiteral("a.vlr"))), QByteArray());

    QFile file(QStringLiteral(EVERY_SECTION));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QByteArray bytes = file.readAll();
    bytes.replace("run.vcd", m_host->write(QStringLiteral("run.vcd"), QByteArray()).toUtf8());
    m_host->closeAll();
    VLTView *view = open(bytes);
    QVERIFY(!view->isModified());
    QVERIFY(view->save());
    QCOMPARE(m_host->read(QStringLiteral("a.vlr")), bytes);
    QCOMPARE(schemaErrors(bytes), QByteArray());
}

QTEST_MAIN(TestVLTView)

#include "test_vltview.moc"
