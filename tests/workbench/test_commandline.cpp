#include "workbench/commandline.h"

#include <QtTest>

using Workbench::CommandLine;

class TestCommandLine : public QObject
{
    Q_OBJECT

private slots:
    void task_data();
    void task();
    void values();
};

void TestCommandLine::task_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<int>("task");

    QTest::newRow("nothing") << "" << int(CommandLine::ShowWindow);
    QTest::newRow("files") << "--project p.fpgaproj a.vlr b.vlr" << int(CommandLine::ShowWindow);
    QTest::newRow("tour") << "--tour out" << int(CommandLine::RunTour);
    QTest::newRow("info") << "--netlist-info n.json" << int(CommandLine::PrintNetlistInfo);
    QTest::newRow("help") << "--help" << int(CommandLine::PrintHelp);
    QTest::newRow("help first") << "--tour out --help" << int(CommandLine::PrintHelp);
    QTest::newRow("unknown") << "--nope" << int(CommandLine::BadUsage);
    QTest::newRow("no value") << "--tour" << int(CommandLine::BadUsage);
    QTest::newRow("empty value") << "--tour=" << int(CommandLine::BadUsage);
    QTest::newRow("twice") << "--project a --project b" << int(CommandLine::BadUsage);
    QTest::newRow("two tasks") << "--tour out --netlist-info n" << int(CommandLine::BadUsage);
    QTest::newRow("task and file") << "--tour out a.vlr" << int(CommandLine::BadUsage);
}

void TestCommandLine::task()
{
    QFETCH(QString, arguments);
    QFETCH(int, task);

    const CommandLine result =
        CommandLine::parse(QStringList(QStringLiteral("workbench")) +
                           arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(int(result.task), task);
    QCOMPARE(result.errorMessage.isEmpty(), task != CommandLine::BadUsage);
}

void TestCommandLine::values()
{
    qputenv("WORKBENCH_PLUGINS", "from-environment");
    CommandLine result = CommandLine::parse(
        {QStringLiteral("workbench"), QStringLiteral("--project"), QStringLiteral("p"),
         QStringLiteral("a.vlr"), QStringLiteral("-"), QStringLiteral("b c.vlr")});
    QCOMPARE(result.project, QStringLiteral("p"));
    QCOMPARE(result.files, QStringList({QStringLiteral("a.vlr"), QStringLiteral("-"),
                                        QStringLiteral("b c.vlr")}));
    QCOMPARE(result.plugins, QStringLiteral("from-environment"));

    result = CommandLine::parse({QStringLiteral("workbench"), QStringLiteral("--plugins=given")});
    QCOMPARE(result.plugins, QStringLiteral("given"));
    qunsetenv("WORKBENCH_PLUGINS");
}

QTEST_APPLESS_MAIN(TestCommandLine)
#include "test_commandline.moc"
