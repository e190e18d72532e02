#include "windowtest.h"

#include "support/modaldriver.h"

#include "core/iview.h"
#include "host/core/viewarea.h"
#include "workbench/projecttree.h"

#include <QtTest>
#include <QtWidgets>

using Workbench::MessagesPane;
using Workbench::ProjectTree;

class TestSynthesis : public WindowTest
{
    Q_OBJECT

private slots:
    void runsSynthesis();
    void marksFirstResultAsExisting();
    void quitKeepsRunWhenViewStays();
    void stopsSynthesis();
    void followsPlaces();
    void dropsMessagesOfClosedProject();
    void tellsWhySynthesisFails_data();
    void tellsWhySynthesisFails();
};

void TestSynthesis::runsSynthesis()
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
    static const QRegularExpression took(
        QStringLiteral("\\d\\d:\\d\\d:\\d\\d  The run took \\d+\\.\\d s\\."));
    QVERIFY2(messages().contains(took), qPrintable(messages()));
    QTRY_VERIFY(view->findChild<QWidget *>(QStringLiteral("VLT__ChangedBanner")));
}

void TestSynthesis::marksFirstResultAsExisting()
{
    const QByteArray netlist = m_host->read(QStringLiteral("impl/netlist.json"));
    QVERIFY(QFile::remove(m_host->netlistPath()));
    m_host->write(QStringLiteral("later.json"), netlist);
    m_host->write(QStringLiteral("synth.sh"), "cp later.json impl/netlist.json\n");
    auto *tree = window().findChild<ProjectTree *>();
    tree->rebuild();
    const auto toolTip = [tree] {
        const auto found =
            tree->findItems(QStringLiteral("netlist.json"), Qt::MatchExactly | Qt::MatchRecursive);
        return found.value(0)->toolTip(0);
    };
    QVERIFY(toolTip().contains(QLatin1String("does not exist")));
    action("runSynthesis")->trigger();
    QTRY_VERIFY(action("runSynthesis")->isEnabled());
    QCOMPARE(toolTip(), m_host->netlistPath());
}

void TestSynthesis::quitKeepsRunWhenViewStays()
{
    Core::IView *view = openView(QStringLiteral("a.vlr"), "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>");
    QVERIFY(view->windowTitle().endsWith(QLatin1Char('*')));
    m_host->write(QStringLiteral("synth.sh"), "echo begun\nsleep 600\n");
    action("runSynthesis")->trigger();
    // A question about the run would be answered with Yes, the view's with Cancel.
    ModalDriver stay([](QWidget *box) {
        auto *question = qobject_cast<QMessageBox *>(box);
        const auto *yes = question->button(QMessageBox::Yes);
        pressButton(yes ? QMessageBox::Yes : QMessageBox::Cancel)(box);
    });
    window().close();
    QVERIFY(stay.text().contains(QLatin1String("Save changes")));
    QVERIFY(window().isVisible());
    QVERIFY(action("stopSynthesis")->isEnabled());

    Core::ViewArea::get()->discardAllViews();
    ModalDriver keepRunning(pressButton(QMessageBox::Cancel));
    window().close();
    QVERIFY(keepRunning.text().contains(QLatin1String("Synthesis is running")));
    QVERIFY(window().isVisible());
    QVERIFY(action("stopSynthesis")->isEnabled());
    action("stopSynthesis")->trigger();
    QTRY_VERIFY(action("runSynthesis")->isEnabled());
    QVERIFY(messages().contains(QLatin1String("stopped")));
}

void TestSynthesis::stopsSynthesis()
{
    Core::IView *view = openView(QStringLiteral("a.vlr"));
    const QByteArray netlist = m_host->read(QStringLiteral("impl/netlist.json"));
    m_host->write(QStringLiteral("synth.sh"), "echo begun\nsleep 600\n");
    window().messages()->clear();
    action("runSynthesis")->trigger();
    QTRY_VERIFY(messages().contains(QLatin1String("begun")));
    auto *stop = window().findChild<QToolButton *>(QStringLiteral("stopButton"));
    QTest::mouseClick(stop, Qt::LeftButton);
    QTRY_VERIFY(action("runSynthesis")->isEnabled());
    QVERIFY(!stop->isVisible());
    QVERIFY2(messages().contains(QLatin1String("stopped")), qPrintable(messages()));
    QCOMPARE(m_host->read(QStringLiteral("impl/netlist.json")), netlist);
    QVERIFY(!view->findChild<QWidget *>(QStringLiteral("VLT__ChangedBanner")));
}

void TestSynthesis::followsPlaces()
{
    m_host->write(QStringLiteral("rtl/a.v"), "module a;\n\nendmodule\n");
    m_host->write(QStringLiteral("synth.sh"),
                  "echo 'rtl/a.v:3: error, not rtl/none.v:3'\nexit 1\n");
    action("runSynthesis")->trigger();
    QTRY_VERIFY(action("runSynthesis")->isEnabled());
    MessagesPane *pane = window().messages();
    const auto place = [pane](const char *text) {
        QTextCursor at = pane->document()->find(QLatin1String(text));
        at.setPosition(at.position());
        pane->setTextCursor(at); // brings it into sight
        return pane->cursorRect(at).center() - QPoint(4, 0);
    };
    QTest::mouseClick(pane->viewport(), Qt::LeftButton, Qt::NoModifier, place("none.v:3"));
    QVERIFY(!Core::ViewArea::get()->activeView()); // there is no such file
    QTest::mouseClick(pane->viewport(), Qt::LeftButton, Qt::NoModifier, place("rtl/a.v:3"));
    Core::IView *view = Core::ViewArea::get()->activeView();
    QVERIFY(view);
    QCOMPARE(view->windowTitle(), QStringLiteral("a.v"));
    auto *text = view->findChild<QPlainTextEdit *>();
    QCOMPARE(text->textCursor().blockNumber(), 2);
    text->moveCursor(QTextCursor::Start);
    QTest::keyClick(pane, Qt::Key_Return); // the cursor is in the line
    QCOMPARE(text->textCursor().blockNumber(), 2);

    Core::ViewArea::get()->discardAllViews();
    QVERIFY(QFile::remove(m_host->path(QStringLiteral("rtl/a.v"))));
    ModalDriver gone(pressButton(QMessageBox::Ok));
    QTest::keyClick(pane, Qt::Key_Return);
    QVERIFY2(gone.text().contains(QLatin1String("rtl/a.v: No such file")), qPrintable(gone.text()));
    QVERIFY(messages().contains(gone.text()) && !Core::ViewArea::get()->activeView());
}

void TestSynthesis::dropsMessagesOfClosedProject()
{
    window().messages()->note(QStringLiteral("of the project"));
    m_host.reset();
    QVERIFY(!messages().contains(QLatin1String("of the project")));
    window().messages()->note(QStringLiteral("of the program"));
    m_host = std::make_unique<TestHost>(QStringLiteral("NO-SUCH-DEVICE"));
    QVERIFY2(messages().contains(QLatin1String("NO-SUCH-DEVICE is not in the catalogue")),
             qPrintable(messages()));
    m_host.reset();
    QVERIFY(!messages().contains(QLatin1String("NO-SUCH")));
    QVERIFY(messages().contains(QLatin1String("of the program")));
}

void TestSynthesis::tellsWhySynthesisFails_data()
{
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("words");
    QTest::newRow("a failing script")
        << QByteArray("echo 'syntax error' >&2\nexit 3\n") << QStringLiteral("3");
    QTest::newRow("a missing tool") << QByteArray("set -e\nno-such-synthesis-tool\n")
                                    << QStringLiteral("no-such-synthesis-tool");
}

void TestSynthesis::tellsWhySynthesisFails()
{
    QFETCH(QByteArray, script);
    QFETCH(QString, words);
    Core::IView *view = openView(QStringLiteral("a.vlr"));
    m_host->write(QStringLiteral("synth.sh"), script);
    window().messages()->clear();
    window().resize(1400, 900);
    auto *dock = window().findChild<QDockWidget *>(QStringLiteral("messagesDock"));
    dock->show();
    window().resizeDocks({dock}, {1}, Qt::Vertical);
    QTRY_VERIFY(dock->height() < 5 * dock->fontMetrics().height());
    action("runSynthesis")->trigger();
    QTRY_VERIFY(action("runSynthesis")->isEnabled());
    QVERIFY2(messages().contains(QLatin1String("Synthesis failed")), qPrintable(messages()));
    QVERIFY2(messages().contains(words), qPrintable(messages()));
    QTRY_VERIFY(dock->height() > 8 * dock->fontMetrics().height());
    QVERIFY(!view->findChild<QWidget *>(QStringLiteral("VLT__ChangedBanner")));
}

QTEST_MAIN(TestSynthesis)
#include "test_synthesis.moc"
