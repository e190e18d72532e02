#include "windowtest.h"

#include "support/modaldriver.h"

#include "core/iview.h"
#include "host/core/ifileopener.h"
#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/core/viewarea.h"
#include "workbench/textview.h"

#include <QtTest>
#include <QtWidgets>

using namespace Workbench;

/// The way from a design to an open configuration.
class TestProjects : public WindowTest
{
    Q_OBJECT

private slots:
    void opensNetlistAsProject();
    void opensOtherJsonAsText_data();
    void opensOtherJsonAsText();
    void opensWhatTheWizardAdds();
    void waitsForWhatIsMissing_data();
    void waitsForWhatIsMissing();
    void offersProjectToTheWizard();
    void showsStartPageWithoutViews();
    void opensLastProjectAgain();
    void goesFromVerilogToConfigurationByMouse();

private:
    QString project() const
    {
        const Core::ProjectFile *file = Core::ProjectFile::current();
        return file ? file->path() : QString();
    }
    QCommandLinkButton *link(const char *name)
    {
        auto *page = window().findChild<QScrollArea *>(QStringLiteral("startPage"));
        return page->isVisible() ? page->findChild<QCommandLinkButton *>(QLatin1String(name))
                                 : nullptr;
    }
    static void click(QWidget *parent, const char *name)
    {
        auto *button = parent->findChild<QAbstractButton *>(QLatin1String(name));
        QVERIFY2(button && button->isVisible() && button->isEnabled(), name);
        QTest::mouseClick(button, Qt::LeftButton);
    }
    static void clickOk(QWidget *dialog)
    {
        auto *box = dialog->findChild<QDialogButtonBox *>();
        QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
    }
    void configureByMouse(const QString &path);
    static ModalDriver::Script nameConfiguration(const char *name)
    {
        return [name](QWidget *dialog) {
            auto *line = dialog->findChild<QLineEdit *>(QStringLiteral("editName"));
            QTest::keyClicks(line, QLatin1String(name));
            QTest::keyClick(dialog, Qt::Key_Return);
        };
    }
};

void TestProjects::opensNetlistAsProject()
{
    const QString netlist = m_host->write(QStringLiteral("mine/design.json"),
                                          TestHost::defaultNetlist().replace("FERN_DFF", "SB_DFF"));
    {
        const QString before = project();
        const ModalDriver refused([](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
        window().open(netlist);
        QCOMPARE(project(), before);
        QCOMPARE(QFileInfo(netlist).dir().entryList(QDir::Files), {QStringLiteral("design.json")});
        QVERIFY(Core::ViewArea::get()->views().isEmpty());
    }
    {
        ModalDriver page([](QWidget *dialog) {
            QCOMPARE(dialog->objectName(), QStringLiteral("projectDialog"));
            const auto text = [dialog](const char *name) {
                return dialog->findChild<QLineEdit *>(QLatin1String(name))->text();
            };
            QCOMPARE(text("projectName"), QStringLiteral("top"));
            QCOMPARE(text("netlistFile"), QStringLiteral("design.json"));
            QCOMPARE(text("projectDevice"), QStringLiteral("iCE40HX8K-CT256"));
            clickOk(dialog);
        });
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(netlist)});
        QDragEnterEvent enter({50, 50}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window(), &enter);
        QVERIFY(enter.isAccepted());
        QDropEvent drop(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&window(), &drop);
        QTRY_COMPARE(project(), m_host->path(QStringLiteral("mine/top.fpgaproj")));
    }
    configureByMouse(QStringLiteral("mine/power.vlr"));

    // The project's own netlist is a file of it like others.
    window().open(netlist);
    QCOMPARE(Core::ViewArea::get()->views().size(), 2);
    // From elsewhere it brings its project, and asks nothing.
    window().open(m_host->path(QStringLiteral("test.fpgaproj")));
    window().open(netlist);
    QCOMPARE(project(), m_host->path(QStringLiteral("mine/top.fpgaproj")));
}

void TestProjects::opensOtherJsonAsText_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("cause");
    QTest::newRow("other") << QByteArray("{\"scripts\": {}, \"modules\": {}}") << QString();
    QTest::newRow("list") << QByteArray("[\"modules\", {}]") << QString();
    QTest::newRow("no modules") << QByteArray("{\"modules\": {\"a\": 1}}") << "design.json";
    QTest::newRow("cut short") << TestHost::defaultNetlist().left(200) << "design.json";
}

void TestProjects::opensOtherJsonAsText()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, cause);
    window().messages()->clear();
    const QString before = project();
    window().open(m_host->write(QStringLiteral("design.json"), bytes));
    QVERIFY(qobject_cast<TextView *>(Core::ViewArea::get()->activeView()));
    QCOMPARE(project(), before);
    QCOMPARE(messages().contains(QLatin1String("opened as text")), !cause.isEmpty());
    QVERIFY2(messages().contains(cause), qPrintable(messages()));
}

void TestProjects::opensWhatTheWizardAdds()
{
    ModalDriver wizard(nameConfiguration("power"));
    action("MC.Wizard.VLT")->trigger();
    const QString path = m_host->path(QStringLiteral("power.vlr"));
    QVERIFY(Core::IFileOpener::forFile(path)->view(path));
    auto *tree = window().findChild<QTreeWidget *>(QStringLiteral("projectTree"));
    QCOMPARE(tree->currentItem() ? tree->currentItem()->text(0) : QString(),
             QStringLiteral("power.vlr"));
}

void TestProjects::waitsForWhatIsMissing_data()
{
    QTest::addColumn<QString>("missing");
    QTest::addColumn<QString>("advice");
    QTest::newRow("netlist") << "impl/netlist.json"
                             << "Run synthesis";
    QTest::newRow("device") << "device"
                            << "Choose the project's device";
}

void TestProjects::waitsForWhatIsMissing()
{
    QFETCH(QString, missing);
    QFETCH(QString, advice);
    QFile::remove(m_host->path(missing));
    if (missing == QLatin1String("device"))
        Core::ProjectFile::current()->setDevice(QString());
    window().messages()->clear();
    ModalDriver wizard(nameConfiguration("early"));
    action("MC.Wizard.VLT")->trigger();
    QVERIFY(Core::ViewArea::get()->views().isEmpty());
    QVERIFY2(messages().contains(advice), qPrintable(messages()));
    QVERIFY(
        Core::ProjectFile::current()->files().contains(m_host->path(QStringLiteral("early.vlr"))));
}

void TestProjects::offersProjectToTheWizard()
{
    Core::ProjectSession::get()->close();
    {
        ModalDriver refuse(pressButton(QMessageBox::Cancel));
        action("MC.Wizard.VLT")->trigger();
        QVERIFY(refuse.text().contains(QLatin1String("no project is open")));
    }
    const QString folder = m_host->path(QStringLiteral("fresh"));
    QVERIFY(QDir().mkdir(folder));
    std::unique_ptr<ModalDriver> page;
    std::unique_ptr<ModalDriver> wizard;
    ModalDriver create([&](QWidget *box) {
        page = std::make_unique<ModalDriver>([&](QWidget *dialog) {
            auto *line = dialog->findChild<QLineEdit *>(QStringLiteral("projectFolder"));
            line->selectAll();
            QTest::keyClicks(line, folder);
            wizard = std::make_unique<ModalDriver>(nameConfiguration("first"));
            QTest::keyClick(line, Qt::Key_Return);
        });
        QTest::keyClick(box, Qt::Key_Return);
    });
    action("MC.Wizard.VLT")->trigger();
    QVERIFY(page && page->ran() && wizard && wizard->ran());
    QCOMPARE(project(), folder + QLatin1String("/fresh.fpgaproj"));
    QVERIFY(QFile::exists(folder + QLatin1String("/first.vlr")));
}

void TestProjects::showsStartPageWithoutViews()
{
    window().open(m_host->path(QStringLiteral("test.fpgaproj")));
    QTRY_VERIFY(link("startConfiguration"));
    QVERIFY(!link("startNewProject") && !link("startSynthesis"));
    QVERIFY(QFile::remove(m_host->netlistPath()));
    Core::ProjectFile::current()->addFile(m_host->write(QStringLiteral("a.vlr"), EmptyFile));
    QTRY_VERIFY(link("startSynthesis"));
    m_host->useNetlist(TestHost::defaultNetlist());
    QTest::mouseClick(link("startFile"), Qt::LeftButton);
    QTRY_COMPARE(Core::ViewArea::get()->views().size(), 1);
    QVERIFY(!link("startConfiguration"));

    action("closeProject")->trigger();
    QCOMPARE(project(), QString());
    QTRY_VERIFY(link("startNewProject"));
    QVERIFY(!action("closeProject")->isEnabled());
    QTest::mouseClick(link("startFile"), Qt::LeftButton);
    QTRY_COMPARE(project(), m_host->path(QStringLiteral("test.fpgaproj")));
}

void TestProjects::opensLastProjectAgain()
{
    const QString path = m_host->path(QStringLiteral("test.fpgaproj"));
    window().open(path);
    Core::ProjectSession::get()->close(); // as the program's end does
    window().openLastProject();
    QCOMPARE(project(), path);
    action("openLastProject")->trigger();
    Core::ProjectSession::get()->close();
    window().openLastProject();
    QCOMPARE(project(), QString());
    action("openLastProject")->trigger();
    window().open(path);
    action("closeProject")->trigger();
    window().openLastProject();
    QCOMPARE(project(), QString());
}

/// From the start page's link to a configuration "power" that is edited and saved, at `path`.
void TestProjects::configureByMouse(const QString &path)
{
    QTRY_VERIFY(link("startConfiguration") && !link("startSynthesis"));
    {
        ModalDriver wizard([](QWidget *dialog) {
            QTest::keyClicks(dialog->findChild<QLineEdit *>(QStringLiteral("editName")),
                             QStringLiteral("power"));
            clickOk(dialog);
        });
        QTest::mouseClick(link("startConfiguration"), Qt::LeftButton);
        QTRY_COMPARE(Core::ViewArea::get()->views().size(), 1);
    }
    Core::IView *view = Core::ViewArea::get()->activeView();
    const auto boxes = view->findChildren<QCheckBox *>();
    const auto box = std::find_if(boxes.begin(), boxes.end(), [](const QCheckBox *candidate) {
        return candidate->isVisible();
    });
    QVERIFY(box != boxes.end());
    QTest::mouseClick(*box, Qt::LeftButton, Qt::NoModifier, {8, (*box)->height() / 2});
    QVERIFY(view->windowTitle().endsWith(QLatin1Char('*')));
    auto *menu = window().menuBar()->actions().first()->menu();
    QTest::mouseClick(window().menuBar(), Qt::LeftButton, Qt::NoModifier,
                      window().menuBar()->actionGeometry(menu->menuAction()).center());
    const auto entries = menu->actions();
    for (QAction *entry : entries) {
        if (entry->shortcut() == QKeySequence(QKeySequence::Save))
            QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                              menu->actionGeometry(entry).center());
    }
    QTRY_VERIFY(m_host->read(path).contains("<Version>"));
}

void TestProjects::goesFromVerilogToConfigurationByMouse()
{
    m_host->write(QStringLiteral("own/blink.v"), "module top(input clk); endmodule");
    const QString tool =
        m_host->write(QStringLiteral("bin/yosys"),
                      "#!/bin/sh\necho \"$@\"\ncp ../impl/netlist.json netlist.json\n");
    QFile(tool).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(QFileInfo(tool).path()) + ':' + path);
    const QString folder = QDir::currentPath();
    QVERIFY(QDir::setCurrent(m_host->path(QStringLiteral("own"))));
    Core::ProjectSession::get()->close();
    QTRY_VERIFY(link("startNewProject"));
    {
        std::unique_ptr<ModalDriver> devices;
        ModalDriver page([&](QWidget *dialog) {
            devices = std::make_unique<ModalDriver>([](QWidget *list) {
                auto *view = list->findChild<QTreeView *>();
                const auto found = view->model()->match(view->model()->index(0, 0), Qt::DisplayRole,
                                                        QStringLiteral("LFE5U-25F-CABGA256"));
                view->scrollTo(found.value(0));
                QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                                  view->visualRect(found.value(0)).center());
                clickOk(list);
            });
            click(dialog, "chooseProjectDevice");
            clickOk(dialog);
        });
        QTest::mouseClick(link("startNewProject"), Qt::LeftButton);
        QTRY_COMPARE(project(), m_host->path(QStringLiteral("own/own.fpgaproj")));
        QVERIFY(devices && devices->ran());
    }
    QTRY_VERIFY(link("startSynthesis"));
    window().messages()->clear();
    QTest::mouseClick(link("startSynthesis"), Qt::LeftButton);
    QTRY_VERIFY(QFile::exists(m_host->path(QStringLiteral("own/netlist.json"))));
    QTRY_VERIFY(action("runSynthesis")->isEnabled());
    QVERIFY2(messages().contains(QLatin1String("synth_ecp5 -top top; autoname; write_json")),
             qPrintable(messages()));
    configureByMouse(QStringLiteral("own/power.vlr"));
    QVERIFY(QDir::setCurrent(folder));
    qputenv("PATH", path);
}

QTEST_MAIN(TestProjects)
#include "test_projects.moc"
