#include "windowtest.h"

#include "support/modaldriver.h"

#include "core/iview.h"

#include <QMessageBox>
#include <QtTest>

class TestSynthesis : public WindowTest
{
    Q_OBJECT

private slots:
    void runsSynthesis();
    void stopsSynthesis();
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
    QTRY_VERIFY(view->findChild<QWidget *>(QStringLiteral("VLT__ChangedBanner")));
}

void TestSynthesis::stopsSynthesis()
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
    action("runSynthesis")->trigger();
    QTRY_VERIFY(action("runSynthesis")->isEnabled());
    QVERIFY2(messages().contains(QLatin1String("Synthesis failed")), qPrintable(messages()));
    QVERIFY2(messages().contains(words), qPrintable(messages()));
    QVERIFY(!view->findChild<QWidget *>(QStringLiteral("VLT__ChangedBanner")));
}

QTEST_MAIN(TestSynthesis)
#include "test_synthesis.moc"
