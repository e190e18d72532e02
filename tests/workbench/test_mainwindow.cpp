#include "workbench/session.h"

#include "workbench/documents.h"
#include "workbench/messagespane.h"

#include "support/modaldriver.h"
#include "support/testhost.h"

#include "core/iview.h"
#include "core/viewmanager.h"
#include "host/core/ifileopener.h"
#include "host/core/project_p.h"
#include "host/core/projectmanager_p.h"
#include "host/core/viewmanager_p.h"
#include "host/te/flowmanager_p.h"
#include "host/te/proinfomanager_p.h"

#include <QAbstractButton>
#include <QAction>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QTreeWidget>
#include <QtTest>

using namespace Workbench;

namespace {

const QByteArray EmptyFile = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                             "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n"
                             "<Config/>";

QByteArray fileWithAmbientTemperature(int degrees)
{
    return QByteArray(EmptyFile).replace("<Config/>", "<Config><AmbientTemp>" +
                                                          QByteArray::number(degrees) +
                                                          "</AmbientTemp></Config>");
}

// A box whose buttons are the program's own, by the text without the mnemonic's mark.
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

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void showsPluginFailures();
    void routesSaveToTheActiveView();
    void asksViewByViewOnQuit();
    void offersForeignChanges_data();
    void offersForeignChanges();
    void keepsQuietAboutOwnSaves();
    void dropsQuestionWhenTheViewGoes();
    void opensDroppedFiles();
    void remembersRecentFiles();
    void changesTheDevice();
    void runsSynthesis();
    void stopsSynthesis();
    void tellsWhySynthesisFails_data();
    void tellsWhySynthesisFails();
    void opensTheProjectBesideAFile();

private:
    MainWindow &window() { return m_session->window(); }
    QAction *action(const char *name) { return window().findChild<QAction *>(QLatin1String(name)); }
    QAction *save() const;
    Core::IView *openView(const QString &name, const QByteArray &bytes = EmptyFile);
    static void edit(Core::IView *view);
    QString messages() { return window().messages()->toPlainText(); }

    QTemporaryDir m_plugins;
    std::unique_ptr<TestHost> m_host;
    std::unique_ptr<Session> m_session;
};

// One session for all: plug-ins are initialised once in the life of a process.
void TestMainWindow::initTestCase()
{
    m_host = std::make_unique<TestHost>();
    const QDir real(QStringLiteral(VLT_PLUGIN_DIR));
    const QStringList libraries = real.entryList({QStringLiteral("*.so")}, QDir::Files);
    QCOMPARE(libraries.size(), 2);
    for (const QString &library : libraries)
        QVERIFY(QFile::link(real.filePath(library), m_plugins.filePath(library)));
    QFile broken(m_plugins.filePath(QStringLiteral("libbroken.so")));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("this is no library");
    broken.close();
    m_session = std::make_unique<Session>(m_plugins.path());
    m_host.reset();
}

void TestMainWindow::init()
{
    m_host = std::make_unique<TestHost>();
    window().show();
    QVERIFY(QTest::qWaitForWindowExposed(&window()));
    window().activateWindow();
}

void TestMainWindow::cleanup()
{
    if (!QTest::currentTestFailed())
        QVERIFY(!QApplication::activeModalWidget());
    m_host.reset();
}

void TestMainWindow::cleanupTestCase()
{
    m_session.reset();
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

QAction *TestMainWindow::save() const
{
    const auto menus = m_session->window().findChildren<QMenu *>();
    for (const QMenu *menu : menus) {
        for (QAction *action : menu->actions()) {
            if (action->shortcut() == QKeySequence(QKeySequence::Save))
                return action;
        }
    }
    return nullptr;
}

Core::IView *TestMainWindow::openView(const QString &name, const QByteArray &bytes)
{
    const QString path = m_host->write(name, bytes);
    window().open(path);
    Core::IView *view = Core::IFileOpener::forFile(path)->view(path);
    if (!view)
        QTest::qFail("the file does not open", __FILE__, __LINE__);
    return view;
}

// As a person does: one step up in the first field.
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

void TestMainWindow::routesSaveToTheActiveView()
{
    QVERIFY(!save()->isEnabled());
    Core::IView *first = openView(QStringLiteral("a.vlr"));
    QVERIFY(!save()->isEnabled());
    edit(first);
    QVERIFY(save()->isEnabled());
    QCOMPARE(save()->text(), QStringLiteral("&Save \"a.vlr*\""));
    QCOMPARE(save()->toolTip(), QStringLiteral("Save \"a.vlr*\""));

    // Another configuration, then a view that is none.
    openView(QStringLiteral("b.vlr"));
    QVERIFY(!save()->isEnabled());
    window().open(m_host->write(QStringLiteral("top.v"), "module top; endmodule"));
    QVERIFY(!save()->isEnabled());

    Core::ViewManagerPrivate::get()->showView(first);
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
    QCOMPARE(Core::ViewManagerPrivate::get()->views().size(), 3);

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
    QVERIFY(Core::ViewManagerPrivate::get()->views().isEmpty());
    QVERIFY(m_host->read(QStringLiteral("b.vlr")).contains("Version"));
    QCOMPARE(m_host->read(QStringLiteral("a.vlr")), EmptyFile);
}

void TestMainWindow::offersForeignChanges_data()
{
    QTest::addColumn<bool>("modified");
    QTest::addColumn<QString>("answer");
    QTest::addColumn<bool>("reads");
    QTest::newRow("read again") << false << "Read again" << true;
    QTest::newRow("keep") << false << "Keep open" << false;
    QTest::newRow("drop changes") << true << "Drop changes and read again" << true;
    QTest::newRow("keep changes") << true << "Keep open" << false;
}

void TestMainWindow::offersForeignChanges()
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
    QCOMPARE(question.text().contains(QLatin1String("not saved")), modified);

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

void TestMainWindow::keepsQuietAboutOwnSaves()
{
    Core::IView *own = openView(QStringLiteral("own.vlr"));
    openView(QStringLiteral("other.vlr"));
    Core::ViewManagerPrivate::get()->showView(own);
    edit(own);
    save()->trigger();
    // The question about the other file shows that the program has looked.
    ModalDriver question(pressText(QStringLiteral("Keep open")));
    m_host->write(QStringLiteral("other.vlr"), fileWithAmbientTemperature(61));
    QTRY_VERIFY(question.ran());
    QVERIFY(question.text().contains(QLatin1String("other.vlr")));
}

void TestMainWindow::dropsQuestionWhenTheViewGoes()
{
    const QPointer<Core::IView> view = openView(QStringLiteral("a.vlr"));
    ModalDriver question([&view](QWidget *) { Core::ViewManagerPrivate::get()->closeView(view); });
    m_host->write(QStringLiteral("a.vlr"), fileWithAmbientTemperature(61));
    QTRY_VERIFY(question.ran());
    QTRY_VERIFY(!view);
    QTRY_VERIFY(!QApplication::activeModalWidget());
    QVERIFY(Core::ViewManagerPrivate::get()->views().isEmpty());
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

void TestMainWindow::changesTheDevice()
{
    const QPointer<Core::IView> view = openView(QStringLiteral("a.vlr"));
    const auto choose = [this](const QString &filter, int button) {
        ModalDriver dialog([&](QWidget *widget) {
            QTest::keyClicks(widget->findChild<QLineEdit *>(), filter);
            QTest::keyClick(widget, button == QMessageBox::Ok ? Qt::Key_Return : Qt::Key_Escape);
        });
        action("chooseDevice")->trigger();
    };
    const QString before = TE::ProInfoManagerPrivate::get()->deviceID();
    choose(QStringLiteral("QF1-05-LQ144"), QMessageBox::Cancel);
    QCOMPARE(TE::ProInfoManagerPrivate::get()->deviceID(), before);
    choose(QStringLiteral("QF1-05-LQ144"), QMessageBox::Ok);
    QCOMPARE(TE::ProInfoManagerPrivate::get()->deviceID(), QStringLiteral("QF1-05-LQ144"));
    QVERIFY(m_host->read(QStringLiteral("test.fpgaproj")).contains("QF1-05-LQ144"));
    QVERIFY(view);
}

void TestMainWindow::runsSynthesis()
{
    Core::IView *view = openView(QStringLiteral("a.vlr"));
    // The run goes on when the test has seen its first line.
    m_host->write(QStringLiteral("synth.sh"), "echo first\nwhile [ ! -e go ]; do sleep 0.05; done\n"
                                              "echo last >&2\nprintf ' ' >> impl/netlist.json\n");
    window().messages()->clear();
    action("runSynthesis")->trigger();
    QVERIFY(!action("runSynthesis")->isEnabled());
    QVERIFY(action("stopSynthesis")->isEnabled());
    QTRY_VERIFY(messages().contains(QLatin1String("first")));
    QVERIFY(!messages().contains(QLatin1String("last")));
    m_host->write(QStringLiteral("go"), "");
    QTRY_VERIFY(action("runSynthesis")->isEnabled());
    QVERIFY(messages().contains(QLatin1String("last")));
    QTRY_VERIFY(view->findChild<QWidget *>(QStringLiteral("VLT__ChangedBanner")));
}

void TestMainWindow::stopsSynthesis()
{
    Core::IView *view = openView(QStringLiteral("a.vlr"));
    const QByteArray netlist = m_host->read(QStringLiteral("impl/netlist.json"));
    m_host->write(QStringLiteral("synth.sh"), "echo begun\nsleep 600\n");
    window().messages()->clear();
    action("runSynthesis")->trigger();
    QTRY_VERIFY(messages().contains(QLatin1String("begun")));
    // Quitting meanwhile is a question too.
    ModalDriver stay(pressButton(QMessageBox::Cancel));
    window().close();
    QVERIFY(stay.ran() && window().isVisible());
    action("stopSynthesis")->trigger();
    QTRY_VERIFY(action("runSynthesis")->isEnabled());
    QVERIFY2(messages().contains(QLatin1String("stopped")), qPrintable(messages()));
    QCOMPARE(m_host->read(QStringLiteral("impl/netlist.json")), netlist);
    QVERIFY(!view->findChild<QWidget *>(QStringLiteral("VLT__ChangedBanner")));
}

void TestMainWindow::tellsWhySynthesisFails_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("words");
    QTest::newRow("a failing script")
        << QByteArray("echo 'syntax error' >&2\nexit 3\n") << QStringLiteral("3");
    QTest::newRow("a missing tool") << QByteArray("set -e\nno-such-synthesis-tool\n")
                                    << QStringLiteral("no-such-synthesis-tool");
}

void TestMainWindow::tellsWhySynthesisFails()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, words);
    Core::IView *view = openView(QStringLiteral("a.vlr"));
    m_host->write(QStringLiteral("synth.sh"), script);
    window().messages()->clear();
    action("runSynthesis")->trigger();
    QTRY_VERIFY(action("runSynthesis")->isEnabled());
    QVERIFY2(messages().contains(QLatin1String("Synthesis failed")), qPrintable(messages()));
    QVERIFY2(messages().contains(words), qPrintable(messages()));
    QVERIFY(!view->findChild<QWidget *>(QStringLiteral("VLT__ChangedBanner")));
}

void TestMainWindow::opensTheProjectBesideAFile()
{
    Core::ProjectManagerPrivate::get()->close();
    openView(QStringLiteral("a.vlr"));
    const auto *project = Core::ProjectManagerPrivate::get()->current();
    QVERIFY(project);
    QCOMPARE(Core::ProjectPrivate::of(project)->path(),
             m_host->path(QStringLiteral("test.fpgaproj")));
}

QTEST_MAIN(TestMainWindow)
#include "test_mainwindow.moc"
