#include "activity/dffsetwidget.h"
#include "config/vlrfile.h"
#include "document/vltview.h"
#include "frame/vltsettingplugin.h"
#include "frame/vltviewmanager.h"
#include "support/modaldriver.h"
#include "support/testhost.h"

#include "core/constants.h"
#include "core/viewmanager.h"
#include "host/core/commandregistry.h"
#include "host/core/viewarea.h"

#include <QtTest>
#include <QtWidgets>

#include <sys/stat.h>
#include <unistd.h>

using VLT::VLTViewManager;

namespace {

const QByteArray EMPTY = VLT::emptyFile();

// Whether the manager was there, with nothing in it, before there was an application.
bool g_managerCameFirst = false;

} // namespace

class TestVLTViewManager : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_plugin.initialize()); }
    void init() { m_host.reset(new TestHost); }
    void cleanup() { m_host.reset(); }
    void cleanupTestCase();

    void managerExistsBeforeApplication() { QVERIFY(g_managerCameFirst); }
    void opensFilesOnly_data();
    void opensFilesOnly();
    void reportsWhyFileDoesNotOpen_data();
    void reportsWhyFileDoesNotOpen();
    void reopeningShowsExistingView();
    void reopenedWhileReadingNetlist();
    void saveCommandFollowsOpenEditor();
    void menusKeepTypedText_data();
    void menusKeepTypedText();

private:
    QAction *saveCommand() const
    {
        return Core::CommandRegistry::command(QString::fromLatin1(Core::Constants::A_FILE_SAVE));
    }
    VLT::VLTView *open(const char *name, const QByteArray &bytes = EMPTY)
    {
        VLTViewManager::openView(m_host->device(), m_host->write(QString::fromUtf8(name), bytes));
        return VLTViewManager::vltViews().value(VLTViewManager::vltViews().size() - 1);
    }

    /// Opens the editor of the first flip-flop's value.
    QDoubleSpinBox *edit(VLT::VLTView *view) const
    {
        for (QTabWidget *tabs : view->findChildren<QTabWidget *>())
            tabs->setCurrentIndex(tabs->count() - 1);
        auto *page = view->findChild<VLT::DFFSetWidget *>();
        for (QTabWidget *tabs : view->findChildren<QTabWidget *>())
            tabs->setCurrentWidget(page);
        auto *table = page->findChild<QTableView *>();
        table->setFocus();
        table->setCurrentIndex(table->model()->index(0, 1));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // earlier editors
        QTest::keyClick(table, Qt::Key_F2);
        return table->findChild<QDoubleSpinBox *>();
    }
    static QByteArray fileWith(const QByteArray &value)
    {
        return "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG><Config><LocalEnable><Instance name=\"a\"" +
               value + "/></LocalEnable></Config>";
    }

    VLT::VLTSettingPlugin m_plugin;
    QScopedPointer<TestHost> m_host;
};

void TestVLTViewManager::cleanupTestCase()
{
    TestHost host;
    m_host.reset();
    VLTViewManager::openView(host.device(), host.write(QStringLiteral("left.vlr"), EMPTY));
    const QPointer<VLTViewManager> manager = VLTViewManager::instance();
    const QPointer<VLT::VLTView> view = VLTViewManager::vltViews().value(0);
    m_plugin.shutDown();
    QVERIFY(!manager);
    QVERIFY(view); // the host deletes it
    QVERIFY(!saveCommand()->isEnabled());
}

void TestVLTViewManager::opensFilesOnly_data()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"folder", "pipe", "loop of links"})
        QTest::newRow(kind) << QString::fromLatin1(kind);
}

void TestVLTViewManager::opensFilesOnly()
{
    QFETCH(QString, kind);
    const QString path = m_host->path(QStringLiteral("a.vlr"));
    const QByteArray encoded = QFile::encodeName(path);
    if (kind == QLatin1String("folder"))
        QVERIFY(QDir().mkdir(path));
    else if (kind == QLatin1String("pipe"))
        QCOMPARE(mkfifo(encoded, 0600), 0);
    else
        QCOMPARE(symlink("a.vlr", encoded), 0);
    const ModalDriver driver(pressButton(QMessageBox::Ok));
    VLTViewManager::openView(m_host->device(), path); // a pipe would wait for ever
    QVERIFY(driver.text().endsWith(QLatin1String("file does not exist.")));
    QVERIFY(VLTViewManager::vltViews().isEmpty());
}

void TestVLTViewManager::reportsWhyFileDoesNotOpen_data()
{
    QTest::addColumn<QString>("device");
    QTest::addColumn<QByteArray>("netlist");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text"); // %1 is the path

    const QString device = QStringLiteral("QF2-10-BG256");
    const QByteArray netlist = TestHost::defaultNetlist();
    const QString name = QStringLiteral("a.vlr");
    QTest::newRow("missing") << device << netlist << QStringLiteral("no %1 <b>x</b>.vlr")
                             << QByteArray()
                             << QStringLiteral("Warning: Can not open %1, file does not exist.");
    QTest::newRow("netlist") << device << QByteArray("{") << name << EMPTY
                             << QStringLiteral("Error: Netlist file does not exist or some errors "
                                               "are in the netlist file.");
    QTest::newRow("voltage") << QStringLiteral("QF3-50-BG900") << netlist << name << EMPTY
                             << QStringLiteral("Error: get Voltage Info Fail.");
    QTest::newRow("content") << device << netlist << QStringLiteral("%1 <i>.vlr")
                             << QByteArray("<!DOCTYPE other><Config/>")
                             << QStringLiteral("Error: Can not open %1:\nInvalid VLR file.");
}

void TestVLTViewManager::reportsWhyFileDoesNotOpen()
{
    QFETCH(QString, device);
    QFETCH(QByteArray, netlist);
    QFETCH(QString, file);
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    m_host->setDevice(device);
    m_host->useNetlist(netlist);
    const QString path = bytes.isEmpty() ? m_host->path(file) : m_host->write(file, bytes);
    Qt::TextFormat format = Qt::AutoText;
    ModalDriver driver([&format](QWidget *dialog) {
        format = qobject_cast<QMessageBox *>(dialog)->textFormat();
        QTest::keyClick(dialog, Qt::Key_Return);
    });
    VLTViewManager::openView(m_host->device(), path);
    QCOMPARE(driver.title() + QLatin1String(": ") + driver.text(),
             text.contains(QLatin1String("%1")) ? text.arg(path) : text);
    QCOMPARE(format, Qt::PlainText);
    QVERIFY(VLTViewManager::vltViews().isEmpty());
    VLTViewManager::openView(m_host->device(), QString()); // says nothing
}

void TestVLTViewManager::reopeningShowsExistingView()
{
    const VLT::VLTView *first = open("a.vlr");
    open("b.vlr");
    const QString link = m_host->path(QStringLiteral("link.vlr"));
    QVERIFY(QFile::link(first->file(), link));
    VLTViewManager::openView(m_host->device(), link);
    QCOMPARE(VLTViewManager::vltViews().size(), 2);
    QCOMPARE(m_host->viewManager()->activeView(), first);
    m_host->useNetlist("{"); // reading it would be reported
    VLTViewManager::openView(m_host->device(), m_host->path(QStringLiteral("impl/../a.vlr")));
    VLTViewManager::openView(m_host->device(),
                             QDir().relativeFilePath(m_host->path(QStringLiteral("a.vlr"))));
    QCOMPARE(VLTViewManager::vltViews().size(), 2);
    QVERIFY(!first->isModified());
    VLTViewManager::closeView(link);
    QCOMPARE(VLTViewManager::vltViews().size(), 1);
}

void TestVLTViewManager::reopenedWhileReadingNetlist()
{
    const QString path = m_host->write(QStringLiteral("a.vlr"), EMPTY);
    bool openedInside = false;
    QTimer::singleShot(0, this, [&] {
        openedInside = true;
        VLTViewManager::openView(m_host->device(), path);
    });
    VLTViewManager::openView(m_host->device(), path);
    QVERIFY(openedInside);
    VLTViewManager::closeView(m_host->path(QStringLiteral("other.vlr")));
    QCOMPARE(VLTViewManager::vltViews().size(), 1);
    VLTViewManager::closeView(m_host->path(QStringLiteral("./a.vlr")));
    QVERIFY(VLTViewManager::vltViews().isEmpty());
}

void TestVLTViewManager::saveCommandFollowsOpenEditor()
{
    VLT::VLTView *view = open("a.vlr", fileWith(" value=\"12.5\""));
    m_host->viewManager()->area()->show();
    QVERIFY(QTest::qWaitForWindowActive(m_host->viewManager()->area()));
    const auto type = [&](const char *keys) {
        QDoubleSpinBox *editor = edit(view);
        QTest::keyClicks(editor, QLatin1String(keys));
        return editor;
    };
    QDoubleSpinBox *editor = type("");
    QVERIFY(!saveCommand()->isEnabled());
    QTest::keyClicks(editor, QStringLiteral("9"));
    QVERIFY(saveCommand()->isEnabled());
    QVERIFY(!view->isModified());
    QTest::keyClick(editor, Qt::Key_Escape);
    QVERIFY(!saveCommand()->isEnabled());

    type("9");
    auto *table = view->findChild<VLT::DFFSetWidget *>()->findChild<QTableView *>();
    auto *model = qobject_cast<VLT::TableModel *>(table->model());
    model->reload(); // drops the editor
    QVERIFY(!saveCommand()->isEnabled());

    auto *other = open("b.vlr");
    Core::ViewManager::instance()->showView(view);
    type("9");
    Core::ViewManager::instance()->showView(other); // commits, as the editor loses the focus
    QVERIFY(view->isModified() && !saveCommand()->isEnabled());
    Core::ViewManager::instance()->showView(view);
    QVERIFY(view->save());

    type("8");
    saveCommand()->trigger();
    const QByteArray saved = m_host->read(QStringLiteral("a.vlr"));
    QVERIFY2(saved.contains("value=\"8\""), saved.constData());
    QVERIFY(!view->isModified() && !saveCommand()->isEnabled());
}

void TestVLTViewManager::menusKeepTypedText_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QByteArray>("after");
    const QByteArray set = " value=\"12.5\"";
    QTest::newRow("never set") << QByteArray() << QString() << QByteArray();
    QTest::newRow("emptied") << set << QString() << QByteArray();
    QTest::newRow("negative") << set << QStringLiteral("-5") << QByteArray();
    QTest::newRow("unfinished") << set << QStringLiteral("-") << set;
    QTest::newRow("the default") << QByteArray() << QStringLiteral("100")
                                 << QByteArray(" value=\"100\"");
}

// With the mouse, which leaves the keyboard focus where it is.
void TestVLTViewManager::menusKeepTypedText()
{
    QFETCH(QByteArray, before);
    QFETCH(QString, typed);
    QFETCH(QByteArray, after);
    for (const bool byTab : {false, true}) {
        QMainWindow window;
        QMenu *menu = window.menuBar()->addMenu(QStringLiteral("File"));
        menu->addAction(saveCommand());
        VLT::VLTView *view = open(byTab ? "b.vlr" : "a.vlr", fileWith(before));
        QWidget *area = m_host->viewManager()->area();
        window.setCentralWidget(area);
        const auto release = qScopeGuard([area] { area->setParent(nullptr); });
        window.resize(1000, 700);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        QDoubleSpinBox *editor = edit(view);
        QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(editor, Qt::Key_Delete);
        QTest::keyClicks(editor, typed);
        if (byTab) { // hides the editor before it takes the focus away
            auto *tabs = view->findChild<QTabWidget *>();
            QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {},
                              tabs->tabBar()->tabRect(0).center());
            QVERIFY(view->save());
        } else {
            QTest::mouseClick(window.menuBar(), Qt::LeftButton, {},
                              window.menuBar()->actionGeometry(menu->menuAction()).center());
            QTRY_VERIFY(menu->isVisible());
            QCOMPARE(QApplication::focusWidget(), editor);
            QCOMPARE(editor->text(), typed);
            QTest::mouseClick(menu, Qt::LeftButton, {},
                              menu->actionGeometry(saveCommand()).center());
        }
        QVERIFY(!view->isModified());
        const QByteArray saved =
            m_host->read(byTab ? QStringLiteral("b.vlr") : QStringLiteral("a.vlr"));
        QVERIFY2(saved.contains("<Instance name=\"a\"" + after + "/>"), saved.constData());
    }
}

int main(int argc, char *argv[])
{
    g_managerCameFirst =
        VLTViewManager::instance() && VLTViewManager::instance()->children().isEmpty();
    QApplication application(argc, argv);
    TestVLTViewManager test;
    return QTest::qExec(&test, argc, argv);
}

#include "test_vltviewmanager.moc"
