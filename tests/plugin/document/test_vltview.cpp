#include "activity/dffsetwidget.h"
#include "config/vlrfile.h"
#include "document/vltview.h"
#include "frame/vltsettingplugin.h"
#include "frame/vltviewmanager.h"
#include "support/modaldriver.h"
#include "support/testhost.h"
#include "support/vlrschema.h"
#include "widgets/plainmessage.h"

#include "core/viewmanager.h"
#include "nlsdata/netlist.h"

#include <QtTest>
#include <QtWidgets>

using VLT::VLTView;
using VLT::VLTViewManager;

class TestVLTView : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_plugin.initialize()); }
    void init() { m_host.reset(new TestHost); }
    void cleanup() { m_host.reset(); }
    void cleanupTestCase() { m_plugin.shutDown(); }

    void titleShowsModification();
    void netlistReloadShowsBanner();
    void heldNetlistStaysAlive();
    void failedReloadClosesOnce();
    void readableNetlistKeepsView();
    void closeQuestion_data();
    void closeQuestion();
    void cancelCountsWhenTheFileIsBack();
    void deletedWhileConfirming();
    void deviceWithoutSuppliesClosesViews_data();
    void deviceWithoutSuppliesClosesViews();
    void rejectsPartlyParsedFile_data();
    void rejectsPartlyParsedFile();
    void failedSaveKeepsChanges_data();
    void failedSaveKeepsChanges();
    void refusedSaveLeadsToTheRow();
    void savesOpenEditor();
    void refusedCloseKeepsTypedText();
    void messagesShowLongNamesInFull();
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
    /// Leaves "new" in the open editor of a table of the view; a change marks the view modified.
    void typeIntoTable(VLTView *view, QStandardItemModel *model)
    {
        model->setItem(0, 0, new QStandardItem(QStringLiteral("old")));
        auto *table = new QTableView(view);
        table->setModel(model);
        connect(model, &QStandardItemModel::itemChanged, view, [view] { view->setModified(true); });
        table->setCurrentIndex(model->index(0, 0));
        table->edit(model->index(0, 0));
        auto *editor = table->findChild<QLineEdit *>();
        QVERIFY(editor);
        QTest::keyClicks(editor, QStringLiteral("new"));
    }
    void synthesize(const QByteArray &netlist)
    {
        m_host->useNetlist(netlist);
        m_host->finishSynthesis();
    }

    VLT::VLTSettingPlugin m_plugin;
    QScopedPointer<TestHost> m_host;
};

void TestVLTView::titleShowsModification()
{
    VLTView *view = open();
    QCOMPARE(view->windowTitle(), QStringLiteral("a.vlr"));
    QString titleAtSignal;
    QSignalSpy spy(view, &VLTView::modificationStatusChanged);
    connect(view, &VLTView::modificationStatusChanged, this,
            [&] { titleAtSignal = view->windowTitle(); });
    view->setModified(true);
    view->setModified(true);
    QCOMPARE(spy, QList<QVariantList>{{true}});
    QCOMPARE(titleAtSignal, QStringLiteral("a.vlr*"));
    QVERIFY(view->save());
    QCOMPARE(view->windowTitle(), QStringLiteral("a.vlr"));

    m_host->closeAll();
    view = open("<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n<!-- nothing -->\n");
    QVERIFY(view && view->isModified()); // a file without a root gets one
    QVERIFY(view->save());
}

void TestVLTView::netlistReloadShowsBanner()
{
    VLTView *view = open();
    const NlsData::Netlist *old = view->getNetlist();
    for (const char *process : {"Process.Pnr", "Process.Syn"}) // not of synthesis; not its end
        m_host->raise(QStringLiteral("TE.Process.Status.Change"),
                      {{QStringLiteral("process"), QLatin1String(process)},
                       {QStringLiteral("status"), process == QByteArray("Process.Pnr") ? 2 : 1}});
    QTest::qWait(0);
    QCOMPARE(view->getNetlist(), old);
    synthesize(TestHost::defaultNetlist());
    QVERIFY(!banner(view)); // not inside the event
    QTRY_VERIFY(banner(view));
    QVERIFY(view->getNetlist() != old);
    QWidget *first = banner(view);
    QCOMPARE(view->layout()->itemAt(0)->widget(), first);
    QTest::mouseClick(first->findChild<QPushButton *>(), Qt::LeftButton);
    QVERIFY(first->isHidden());
    synthesize(TestHost::defaultNetlist());
    QTRY_VERIFY(!first->isHidden());
    QCOMPARE(banner(view), first);
    QVERIFY(!view->isModified());
}

void TestVLTView::heldNetlistStaysAlive()
{
    VLTView *view = open();
    std::shared_ptr<NlsData::Netlist> held = view->holdNetlist();
    const std::weak_ptr<NlsData::Netlist> watched = held;
    // As a page does that runs a dialog on the netlist's objects.
    const NlsData::Port *port = held->ports().first();
    ModalDriver driver([&](QWidget *dialog) {
        synthesize(TestHost::defaultNetlist());
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
    synthesize("{");
    QTRY_COMPARE(closed.size(), 1);
    finishDeletions();
    QVERIFY(!view);
    QCOMPARE(driver.title(), QStringLiteral("Error"));
    QCOMPARE(driver.text(), QStringLiteral("Netlist file does not exist or some errors are in the "
                                           "netlist file. VLR view will be closed"));
}

void TestVLTView::readableNetlistKeepsView()
{
    const QPointer<VLTView> view = open();
    const NlsData::Netlist *old = view->getNetlist();
    ModalDriver driver([&](QWidget *dialog) {
        const QPointer<QWidget> message = dialog;
        synthesize(TestHost::defaultNetlist()); // the next run, during the first one's message
        QTRY_VERIFY(!message || !message->isVisible());
    });
    synthesize("{");
    QTRY_VERIFY(banner(view));
    QTest::qWait(0);
    QVERIFY(view && VLTViewManager::vltViews().contains(view));
    QVERIFY(view->getNetlist() != old);
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

void TestVLTView::cancelCountsWhenTheFileIsBack()
{
    VLTView *view = open();
    view->setFileMissing(true);
    const ModalDriver driver([view](QWidget *dialog) {
        view->setFileMissing(false); // another program has put it back
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    QVERIFY(!Core::ViewManager::instance()->closeView(view));
    QCOMPARE(VLTViewManager::vltViews().size(), 1);
}

void TestVLTView::deletedWhileConfirming()
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

void TestVLTView::deviceWithoutSuppliesClosesViews_data()
{
    QTest::addColumn<QString>("dialog");
    QTest::newRow("no dialog") << "";
    QTest::newRow("during a message") << "message";
    QTest::newRow("during the close question") << "question";
}

void TestVLTView::deviceWithoutSuppliesClosesViews()
{
    QFETCH(QString, dialog);
    const auto changeDevice = [this] { m_host->setDevice(QStringLiteral("QF3-50-BG900")); };
    const QPointer<VLTView> view = open();
    const QPointer<VLTView> second = open(VLT::emptyFile(), QStringLiteral("b.vlr"));
    view->setModified(true);
    auto *spin = view->findChild<QDoubleSpinBox *>(QStringLiteral("spinAmbTemp"));
    spin->selectAll();
    QTest::keyClicks(spin, QStringLiteral("3")); // discarded like every other change
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

void TestVLTView::rejectsPartlyParsedFile_data()
{
    QTest::addColumn<QByteArray>("inTag");
    QTest::newRow("no-break space") << QByteArray("\xc2\xa0");
    QTest::newRow("zero-width space") << QByteArray("\xe2\x80\x8b");
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf");
}

void TestVLTView::rejectsPartlyParsedFile()
{
    QFETCH(QByteArray, inTag);
    const QByteArray bytes = "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG><Config><GlobalEnable " +
                             inTag + "value='100'><Clock name='clk'/></GlobalEnable></Config>";
    QCOMPARE(VLT::inspectFile(bytes), VLT::VlrContent::Document); // or it is no case of this test
    VLTView view(m_host->device(), nullptr);
    QVERIFY(view.getVoltageInfo());
    QVERIFY(!view.readCfgFile(m_host->write(QStringLiteral("a.vlr"), bytes)));
}

void TestVLTView::failedSaveKeepsChanges_data()
{
    QTest::addColumn<QString>("target"); // of the link that replaces the file
    QTest::addColumn<QString>("verb");
    QTest::newRow("missing folder") << "missing/folder"
                                    << "open";
    QTest::newRow("full disk") << "/dev/full"
                               << "write";
}

void TestVLTView::failedSaveKeepsChanges()
{
    QFETCH(QString, target);
    QFETCH(QString, verb);
    VLTView *view = open();
    view->setModified(true);
    QVERIFY(QFile::remove(view->file()));
    QVERIFY(QFile::link(target, view->file()));
    QString detail;
    ModalDriver driver([&detail](QWidget *dialog) {
        detail = qobject_cast<QMessageBox *>(dialog)->informativeText();
        pressButton(QMessageBox::Ok)(dialog);
    });
    QVERIFY(!view->save());
    QVERIFY(detail.contains(QLatin1String("The file is as it was.")));
    QCOMPARE(driver.title(), QStringLiteral("Warning"));
    QCOMPARE(driver.text(),
             QStringLiteral("Cannot %1 the config file '%2'!").arg(verb, view->file()));
    QVERIFY(view->isModified());
    QFile::remove(view->file());
    QVERIFY(view->save());
}

void TestVLTView::refusedSaveLeadsToTheRow()
{
    m_host->useNetlist(TestHost::defaultNetlist().replace("q_reg1", "q\\u0001_reg1"));
    VLTView *view = open();
    auto *page = view->findChild<VLT::DFFSetWidget *>();
    {
        ModalDriver finder([](QWidget *dialog) {
            dialog->findChild<QPushButton *>(QStringLiteral("btnSearch"))->click();
            dialog->findChild<QListWidget *>()->selectAll();
            dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
        });
        page->findChild<QAbstractButton *>(QStringLiteral("btnAdd"))->click();
    }
    auto *table = page->findChild<QTableView *>();
    QCOMPARE(table->model()->rowCount(), 3);
    table->setCurrentIndex(table->model()->index(0, 0));
    ModalDriver refusal(pressButton(QMessageBox::Ok));
    QVERIFY(!view->save());
    QVERIFY2(refusal.text().contains(QLatin1String("'q_reg1' has a character")),
             qPrintable(refusal.text()));
    QCOMPARE(m_host->read(QStringLiteral("a.vlr")), VLT::emptyFile());
    QVERIFY(table->isVisibleTo(view));
    QCOMPARE(table->currentIndex().siblingAtColumn(0).data().toString(),
             QStringLiteral("q\x01_reg1"));
}

void TestVLTView::savesOpenEditor()
{
    VLTView *view = open();
    QStandardItemModel model(1, 2);
    typeIntoTable(view, &model);
    QVERIFY(view->save());
    QCOMPARE(model.item(0)->text(), QStringLiteral("new"));
    QVERIFY(!view->isModified());
    finishDeletions();
    QVERIFY(!view->isModified()); // the editor has gone without a second commit
}

void TestVLTView::refusedCloseKeepsTypedText()
{
    VLTView *view = open();
    QStandardItemModel model(1, 2);
    typeIntoTable(view, &model);
    view->abandonEdits();
    QTest::qWait(0); // the host has not closed it
    const ModalDriver driver(pressButton(QMessageBox::Cancel));
    view->close();
    QCOMPARE(model.item(0)->text(), QStringLiteral("new"));
}

void TestVLTView::messagesShowLongNamesInFull()
{
    const QString name = QString(200, QLatin1Char('m')) + QStringLiteral("_end");
    ModalDriver driver([&](QWidget *dialog) {
        auto *text = dialog->findChild<QTextEdit *>();
        QVERIFY(text && text->isVisible());
        QVERIFY(text->document()->size().width() <= text->viewport()->width());
        QVERIFY(text->document()->size().height() <= text->viewport()->height());
        QTest::mouseClick(text->viewport(), Qt::LeftButton);
        QTest::keySequence(text, QKeySequence::SelectAll);
        QTest::keySequence(text, QKeySequence::Copy);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    VLT::showMessage(QMessageBox::Warning, nullptr, QString(), QStringLiteral("<b>%1").arg(name));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("<b>%1").arg(name));
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
