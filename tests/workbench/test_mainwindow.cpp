#include "windowtest.h"

#include "support/modaldriver.h"

#include "core/iview.h"
#include "core/viewmanager.h"
#include "host/core/ifileopener.h"
#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/core/viewarea.h"
#include "host/te/deviceselection.h"

#include <QtTest>
#include <QtWidgets>

using namespace Workbench;

namespace {

QByteArray fileWithAmbientTemperature(int degrees)
{
    return QByteArray(EmptyFile).replace("<Config/>", "<Config><AmbientTemp>" +
                                                          QByteArray::number(degrees) +
                                                          "</AmbientTemp></Config>");
}

// Presses the button with this text, not counting the mark of its mnemonic.
ModalDriver::Script pressText(const QString &text)
{
    return [text](QWidget *dialog) {
        const auto buttons = dialog->findChildren<QAbstractButton *>();
        for (QAbstractButton *button : buttons) {
            if (button->text().remove(QLatin1Char('&')) == text)
                return QTest::mouseClick(button, Qt::LeftButton);
        }
        QTest::qFail("the dialog has no such button", __FILE__, __LINE__);
    };
}

} // namespace

class TestMainWindow : public WindowTest
{
    Q_OBJECT

private slots:
    void showsPluginFailures();
    void lowPanesGrowWhenShown();
    void routesSaveToTheActiveView();
    void asksViewByViewOnQuit();
    void asksToReloadChangedFile_data();
    void asksToReloadChangedFile();
    void keepsViewWhenReloadFails_data();
    void keepsViewWhenReloadFails();
    void removedFileMarksViewModified_data();
    void removedFileMarksViewModified();
    void removalDropsReloadQuestion();
    void ignoresOwnSaves();
    void dropsQuestionWhenViewCloses();
    void opensDroppedFiles();
    void remembersRecentFiles();
    void changesDevice();
    void opensProjectBesideFile();
    void saysWhyFileStaysClosed_data();
    void saysWhyFileStaysClosed();
    void removesProjectFilesOnly();

private:
    QAction *save();
    static void edit(Core::IView *view);
};

QAction *TestMainWindow::save()
{
    const auto menus = window().findChildren<QMenu *>();
    for (const QMenu *menu : menus) {
        for (QAction *action : menu->actions()) {
            if (action->shortcut() == QKeySequence(QKeySequence::Save))
                return action;
        }
    }
    return nullptr;
}

// As a user does: one step up in the first field.
void TestMainWindow::edit(Core::IView *view)
{
    const auto boxes = view->findChildren<QDoubleSpinBox *>();
    const auto box = std::find_if(boxes.begin(), boxes.end(), [](const QDoubleSpinBox *candidate) {
        return candidate->isVisible() && candidate->isEnabled();
    });
    QVERIFY(box != boxes.end());
    QTest::keyClick(*box, Qt::Key_Up);
    QVERIFY(view->windowTitle().endsWith(QLatin1Char('*')));
}

void TestMainWindow::showsPluginFailures()
{
    QVERIFY2(messages().contains(QLatin1String("libbroken.so")), qPrintable(messages()));
}

void TestMainWindow::lowPanesGrowWhenShown()
{
    const int line = window().fontMetrics().height();
    window().resize(1400, 900);
    auto *messages = window().findChild<QDockWidget *>(QStringLiteral("messagesDock"));
    for (const char *name : {"coverageDock", "checksDock"}) {
        auto *dock = window().findChild<QDockWidget *>(QLatin1String(name));
        messages->raise();
        window().resizeDocks({messages}, {1}, Qt::Vertical);
        QTRY_VERIFY(messages->height() < 5 * line); // the others leave the room to the views
        dock->raise();
        QTRY_VERIFY(dock->widget()->height() > 8 * line);
    }
}

void TestMainWindow::routesSaveToTheActiveView()
{
    QVERIFY(!save()->isEnabled());
    Core::IView *first = openView(QStringLiteral("a.vlr"));
    QVERIFY(!save()->isEnabled());
    edit(first);
    QVERIFY(save()->isEnabled());
    QCOMPARE(save()->text(), QStringLiteral("&Save \"a.vlr*\""));
    QCOMPARE(save()->toolTip(), QStringLiteral("Save \"a.vlr*\""));

    // Another configuration, then a view of another kind.
    openView(QStringLiteral("b.vlr"));
    QVERIFY(!save()->isEnabled());
    window().open(m_host->write(QStringLiteral("top.v"), "module top; endmodule"));
    QVERIFY(!save()->isEnabled());

    Core::ViewArea::get()->showView(first);
    QVERIFY(save()->isEnabled());
    QTest::keyClick(&window(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(first->windowTitle(), QStringLiteral("a.vlr"));
    QVERIFY(m_host->read(QStringLiteral("a.vlr")).contains("<Version>1.0</Version>"));
    QCOMPARE(m_host->read(QStringLiteral("b.vlr")), EmptyFile);
}

void TestMainWindow::asksViewByViewOnQuit()
{
    edit(openView(QStringLiteral("a.vlr")));
    openView(QStringLiteral("clean.vlr"));
    edit(openView(QStringLiteral("b.vlr")));
    {
        ModalDriver cancel(pressButton(QMessageBox::Cancel));
        action("quit")->trigger();
        QVERIFY2(cancel.text().contains(QLatin1String("b.vlr")), qPrintable(cancel.text()));
    }
    QVERIFY(window().isVisible());
    QCOMPARE(Core::ViewArea::get()->views().size(), 3);

    // The second question is asked when the first view has gone, so it needs the second driver.
    QStringList asked;
    ModalDriver saveOne([&asked](QWidget *dialog) {
        asked.append(qobject_cast<QMessageBox *>(dialog)->text());
        pressButton(QMessageBox::Ok)(dialog);
    });
    std::unique_ptr<ModalDriver> discard;
    connect(Core::ViewManager::instance(), &Core::ViewManager::viewClosed, this, [&] {
        if (!discard)
            discard = std::make_unique<ModalDriver>(pressButton(QMessageBox::Discard));
    });
    action("quit")->trigger();
    disconnect(Core::ViewManager::instance(), nullptr, this, nullptr);
    QVERIFY(asked.first().contains(QLatin1String("b.vlr")));
    QVERIFY(discard && discard->text().contains(QLatin1String("a.vlr")));
    QVERIFY(!window().isVisible());
    QVERIFY(Core::ViewArea::get()->views().isEmpty());
    QVERIFY(m_host->read(QStringLiteral("b.vlr")).contains("Version"));
    QCOMPARE(m_host->read(QStringLiteral("a.vlr")), EmptyFile);
}

void TestMainWindow::asksToReloadChangedFile_data()
{
    QTest::addColumn<bool>("modified");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("reads");
    QTest::newRow("reload") << false << "Reload" << true;
    QTest::newRow("keep") << false << "Keep" << false;
    QTest::newRow("discard changes") << true << "Discard Changes and Reload" << true;
    QTest::newRow("keep changes") << true << "Keep" << false;
}

void TestMainWindow::asksToReloadChangedFile()
{
    QFETCH(bool, modified);
    QFETCH(QString, answer);
    QFETCH(bool, reads);

    const QPointer<Core::IView> view = openView(QStringLiteral("a.vlr"));
    if (modified)
        edit(view);
    const QString title = view->windowTitle();
    ModalDriver question(pressText(answer));
    const QByteArray foreign = fileWithAmbientTemperature(61);
    const QString path = m_host->write(QStringLiteral("a.vlr"), foreign);
    QTRY_VERIFY(question.ran());
    QCOMPARE(question.text().contains(QLatin1String("unsaved")), modified);

    if (reads) {
        QTRY_VERIFY(!view);
        Core::IView *again = Core::IFileOpener::forFile(path)->view(path);
        QVERIFY(again);
        QCOMPARE(again->windowTitle(), QStringLiteral("a.vlr"));
        const auto boxes = again->findChildren<QDoubleSpinBox *>();
        QVERIFY(std::any_of(boxes.begin(), boxes.end(),
                            [](const QDoubleSpinBox *box) { return box->value() == 61; }));
    } else {
        QVERIFY(view);
        QCOMPARE(view->windowTitle(), title);
    }
    QCOMPARE(m_host->read(QStringLiteral("a.vlr")), foreign);
}

void TestMainWindow::keepsViewWhenReloadFails_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("netlist");
    QTest::addColumn<bool>("modified");
    const QByteArray good = fileWithAmbientTemperature(61);
    const QByteArray netlist = TestHost::defaultNetlist();
    QTest::newRow("broken file, modified") << good.left(90) << netlist << true;
    QTest::newRow("broken file, clean") << good.left(90) << netlist << false;
    QTest::newRow("broken netlist, modified") << good << netlist.left(90) << true;
}

void TestMainWindow::keepsViewWhenReloadFails()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, netlist);
    QFETCH(bool, modified);
    const QString cause = netlist == TestHost::defaultNetlist()
                              ? QStringLiteral("as it is: line ")
                              : QStringLiteral("Cannot read the netlist file");

    const QPointer<Core::IView> view = openView(QStringLiteral("a.vlr"));
    if (modified)
        edit(view);
    const QString title = view->windowTitle();
    m_host->useNetlist(netlist);
    std::unique_ptr<ModalDriver> error;
    ModalDriver question([&error, modified](QWidget *box) {
        error = std::make_unique<ModalDriver>(pressButton(QMessageBox::Ok));
        pressText(modified ? QStringLiteral("Discard Changes and Reload")
                           : QStringLiteral("Reload"))(box);
    });
    m_host->write(QStringLiteral("a.vlr"), bytes);
    QTRY_VERIFY(error && error->ran());
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(view);
    QVERIFY(messages().contains(QLatin1String("a.vlr has not been reloaded")));
    QVERIFY2(messages().contains(cause), qPrintable(messages()));
    QCOMPARE(view->windowTitle(), title);
    QCOMPARE(Core::ViewArea::get()->views(), QList<Core::IView *>{view});
}

void TestMainWindow::removedFileMarksViewModified_data()
{
    QTest::addColumn<bool>("editedBefore");
    QTest::addColumn<bool>("editedMeanwhile");
    QTest::newRow("clean") << false << false;
    QTest::newRow("edited before") << true << false;
    QTest::newRow("edited meanwhile") << false << true;
}

// Removed, put back with the same bytes, removed and saved again: nothing is asked at any time.
void TestMainWindow::removedFileMarksViewModified()
{
    QFETCH(bool, editedBefore);
    QFETCH(bool, editedMeanwhile);

    Core::IView *view = openView(QStringLiteral("a.vlr"));
    if (editedBefore)
        edit(view);
    window().messages()->clear();
    const QString path = m_host->path(QStringLiteral("a.vlr"));
    const auto remove = [&] {
        QVERIFY(QFile::remove(path));
        QTRY_VERIFY(messages().contains(QLatin1String("only copy")));
        QCOMPARE(view->windowTitle(), QStringLiteral("a.vlr*"));
        QVERIFY(save()->isEnabled());
    };
    remove();
    if (editedMeanwhile)
        edit(view);
    window().messages()->clear();
    m_host->write(QStringLiteral("a.vlr"), EmptyFile);
    QTRY_VERIFY(messages().contains(QLatin1String("unchanged")));
    const bool edited = editedBefore || editedMeanwhile;
    QCOMPARE(view->windowTitle(), edited ? QStringLiteral("a.vlr*") : QStringLiteral("a.vlr"));
    QCOMPARE(save()->isEnabled(), edited);
    remove();
    {
        ModalDriver stay(pressButton(QMessageBox::Cancel));
        QVERIFY(!Core::ViewArea::get()->closeView(view));
    }
    save()->trigger();
    QCOMPARE(view->windowTitle(), QStringLiteral("a.vlr"));
    QVERIFY(m_host->read(QStringLiteral("a.vlr")).contains("<Version>"));
}

void TestMainWindow::removalDropsReloadQuestion()
{
    const QPointer<Core::IView> view = openView(QStringLiteral("a.vlr"));
    bool dropped = false;
    ModalDriver question([&](QWidget *widget) {
        const QPointer<QWidget> box = widget;
        QVERIFY(QFile::remove(m_host->path(QStringLiteral("a.vlr"))));
        QTRY_VERIFY(!box || !box->isVisible());
        dropped = true;
    });
    m_host->write(QStringLiteral("a.vlr"), fileWithAmbientTemperature(61));
    QTRY_VERIFY(question.ran());
    QTRY_VERIFY(dropped);
    QVERIFY(view);
    QCOMPARE(view->windowTitle(), QStringLiteral("a.vlr*"));
}

void TestMainWindow::ignoresOwnSaves()
{
    Core::IView *own = openView(QStringLiteral("own.vlr"));
    openView(QStringLiteral("other.vlr"));
    Core::ViewArea::get()->showView(own);
    edit(own);
    save()->trigger();
    // The question about the other file shows that the program has looked.
    ModalDriver question(pressText(QStringLiteral("Keep")));
    m_host->write(QStringLiteral("other.vlr"), fileWithAmbientTemperature(61));
    QTRY_VERIFY(question.ran());
    QVERIFY(question.text().contains(QLatin1String("other.vlr")));
}

void TestMainWindow::dropsQuestionWhenViewCloses()
{
    const QPointer<Core::IView> view = openView(QStringLiteral("a.vlr"));
    ModalDriver question([&view](QWidget *) { Core::ViewArea::get()->closeView(view); });
    m_host->write(QStringLiteral("a.vlr"), fileWithAmbientTemperature(61));
    QTRY_VERIFY(question.ran());
    QTRY_VERIFY(!view);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QVERIFY(Core::ViewArea::get()->views().isEmpty());
}

void TestMainWindow::opensDroppedFiles()
{
    const auto drop = [this](const QString &path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(path)});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(&window(), &enter);
        if (!enter.isAccepted())
            return false;
        QDropEvent event(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window(), &event);
        return true;
    };
    const QString path = m_host->write(QStringLiteral("dropped.VLR"), EmptyFile);
    QVERIFY(drop(path));
    QTRY_VERIFY(Core::IFileOpener::forFile(path)->view(path));
    QVERIFY(!drop(m_host->write(QStringLiteral("notes.txt"), "no configuration")));
}

void TestMainWindow::remembersRecentFiles()
{
    RecentFiles().clear();
    openView(QStringLiteral("a.vlr"));
    openView(QStringLiteral("b.vlr"));
    window().open(m_host->path(QStringLiteral("./a.vlr")));
    const QStringList expected = {m_host->path(QStringLiteral("a.vlr")),
                                  m_host->path(QStringLiteral("b.vlr"))};
    QCOMPARE(window().recentFiles().paths().mid(0, 2), expected);
    // The next run of the program starts with them.
    QCOMPARE(RecentFiles().paths().mid(0, 2), expected);

    // A file that has gone is told, and is offered no more.
    QVERIFY(QFile::remove(expected.last()));
    m_host->closeAll();
    ModalDriver warning(pressButton(QMessageBox::Ok));
    window().open(expected.last());
    QVERIFY(warning.text().contains(QLatin1String("does not exist")));
    QVERIFY(!window().recentFiles().paths().contains(expected.last()));
}

void TestMainWindow::changesDevice()
{
    const QPointer<Core::IView> view = openView(QStringLiteral("a.vlr"));
    const auto choose = [this](const QString &filter, int button) {
        ModalDriver dialog([&](QWidget *widget) {
            QTest::keyClicks(widget->findChild<QLineEdit *>(), filter);
            QTest::keyClick(widget, button == QMessageBox::Ok ? Qt::Key_Return : Qt::Key_Escape);
        });
        action("chooseDevice")->trigger();
    };
    const QString before = TE::DeviceSelection::get()->deviceID();
    choose(QStringLiteral("QF1-05-LQ144"), QMessageBox::Cancel);
    QCOMPARE(TE::DeviceSelection::get()->deviceID(), before);
    choose(QStringLiteral("QF1-05-LQ144"), QMessageBox::Ok);
    QCOMPARE(TE::DeviceSelection::get()->deviceID(), QStringLiteral("QF1-05-LQ144"));
    QVERIFY(m_host->read(QStringLiteral("test.fpgaproj")).contains("QF1-05-LQ144"));
    QVERIFY(view);
}

void TestMainWindow::opensProjectBesideFile()
{
    Core::ProjectSession::get()->close();
    openView(QStringLiteral("a.vlr"));
    const auto *project = Core::ProjectSession::get()->current();
    QVERIFY(project);
    QCOMPARE(Core::ProjectFile::of(project)->path(), m_host->path(QStringLiteral("test.fpgaproj")));
}

void TestMainWindow::saysWhyFileStaysClosed_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("cause");
    QTest::newRow("no project") << QString() << EmptyFile << "no project is open";
    QTest::newRow("unknown device")
        << "NO-SUCH" << EmptyFile << "no device that the catalogue lists";
    QTest::newRow("device without supplies") << "QF3-50-BG900" << EmptyFile << "has no supply data";
    QTest::newRow("broken file") << "QF2-10-BG256" << EmptyFile + "<x"
                                 << "a.vlr has not been "
                                    "opened: line 3: ";
}

void TestMainWindow::saysWhyFileStaysClosed()
{
    QFETCH(QString, device);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, cause);
    m_host.reset();
    m_host = std::make_unique<TestHost>(device);
    if (device.isEmpty())
        Core::ProjectSession::get()->close();
    window().messages()->clear();
    const QString path = m_host->write(QStringLiteral("elsewhere/a.vlr"), bytes);
    ModalDriver error(pressButton(QMessageBox::Ok));
    window().open(path);
    QVERIFY(!Core::IFileOpener::forFile(path)->view(path));
    QVERIFY2(messages().contains(QLatin1String("has not been opened: ")), qPrintable(messages()));
    QVERIFY2(messages().contains(cause), qPrintable(messages()));
    QVERIFY(!messages().contains(QLatin1String("is opened")));
}

// Even when two headings read alike.
void TestMainWindow::removesProjectFilesOnly()
{
    class SameHeadings : public QTranslator
    {
    public:
        bool isEmpty() const override { return false; }
        QString translate(const char *, const char *text, const char *, int) const override
        {
            return qstrcmp(text, "Files") == 0 || qstrcmp(text, "Sources") == 0
                       ? QStringLiteral("Dateien")
                       : QString();
        }
    } translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    auto *project = Core::ProjectFile::current();
    project->addFile(m_host->write(QStringLiteral("a.vlr"), EmptyFile));
    auto *tree = window().findChild<QTreeWidget *>(QStringLiteral("projectTree"));
    const auto removable = [tree](const char *file) {
        const auto items =
            tree->findItems(QLatin1String(file), Qt::MatchExactly | Qt::MatchRecursive);
        bool enabled = false;
        QTimer::singleShot(0, tree, [&enabled] {
            auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
            enabled = menu->actions().last()->isEnabled();
            menu->close();
        });
        const QPoint at = tree->visualItemRect(items.value(0)).center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, tree->viewport()->mapToGlobal(at));
        QApplication::sendEvent(tree->viewport(), &event);
        return enabled;
    };
    QVERIFY(removable("a.vlr"));
    QVERIFY(!removable("top.v"));
}

QTEST_MAIN(TestMainWindow)
#include "test_mainwindow.moc"
