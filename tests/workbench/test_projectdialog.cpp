#include "workbench/projects/argumentline.h"
#include "workbench/projects/designfamily.h"
#include "workbench/projects/projectdialog.h"
#include "workbench/projects/sampleproject.h"
#include "workbench/projects/verilogmodules.h"

#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "support/modaldriver.h"
#include "support/testhost.h"

#include <QtTest>
#include <QtWidgets>

using namespace Workbench;

class TestProjectDialog : public QObject
{
    Q_OBJECT

private slots:
    void quotesArguments_data();
    void quotesArguments();
    void findsTopModules();
    void guessesFamily();
    void copiesSample();
    void createsFromVerilogFolder();
    void keepsWhatTheUserTyped();
    void reportsBadInput();
    void changesOnlyWhatWasEdited_data();
    void changesOnlyWhatWasEdited();

private:
    template<typename T>
    static T *field(QWidget &dialog, const char *name)
    {
        return dialog.findChild<T *>(QLatin1String(name));
    }
    static void type(QWidget &dialog, const char *name, const QString &text)
    {
        auto *line = field<QLineEdit>(dialog, name);
        line->selectAll();
        QTest::keyClicks(line, text);
    }
    static QString problem(QWidget &dialog)
    {
        auto *label = field<QLabel>(dialog, "projectProblem");
        return label->isVisible() ? label->text() : QString();
    }
    static QString command(QWidget &dialog)
    {
        return field<QPlainTextEdit>(dialog, "synthesisCommand")->toPlainText();
    }
};

void TestProjectDialog::quotesArguments_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("closed");
    const auto row = [](const char *line, const QStringList &arguments, bool closed = true) {
        QTest::newRow(line) << QString::fromLatin1(line) << arguments << closed;
    };
    row("yosys -p \"synth; write_json n.json\" a.v",
        {QStringLiteral("yosys"), QStringLiteral("-p"), QStringLiteral("synth; write_json n.json"),
         QStringLiteral("a.v")});
    row("a \"\" \"q\\\"\\\\ x\" c:\\d",
        {QStringLiteral("a"), QString(), QStringLiteral("q\"\\ x"), QStringLiteral("c:\\d")});
    row("make  'a \"b\\' c",
        {QStringLiteral("make"), QStringLiteral("a \"b\\"), QStringLiteral("c")});
    row("make \"all", {QStringLiteral("make"), QStringLiteral("all")}, false);
}

void TestProjectDialog::quotesArguments()
{
    QFETCH(QString, line);
    QFETCH(bool, closed);
    QStringList arguments;
    QCOMPARE(splitArguments(line, &arguments), closed);
    QTEST(arguments, "arguments");
    QStringList again;
    QVERIFY(splitArguments(joinArguments(arguments), &again));
    QCOMPARE(again, arguments);
}

void TestProjectDialog::findsTopModules()
{
    TestHost host;
    const QString design =
        host.write(QStringLiteral("a.v"),
                   "// module fake(input a); endmodule\n/* core x(); */\n"
                   "module core #(parameter W = 2) (input a); endmodule\n"
                   "module top\n(input a);\n core u(a); wire leaf = \"spare\"; endmodule\n"
                   "module spare(input b); endmodule\n");
    const QString bench =
        host.write(QStringLiteral("tb.v"), "module tb();\n top dut(1'b0); endmodule\n");
    QCOMPARE(topModulesOf({design, bench}),
             QStringList({QStringLiteral("spare"), QStringLiteral("top")}));
    QCOMPARE(topModulesOf({bench, host.path(QStringLiteral("none.v"))}),
             QStringList(QStringLiteral("tb")));
}

void TestProjectDialog::guessesFamily()
{
    const auto device = [](const QHash<QString, int> &cells) {
        const DesignFamily *family = familyOfCells(cells);
        return family ? QLatin1String(family->device) : QLatin1String();
    };
    const QString lut = QStringLiteral("SB_LUT4");
    QCOMPARE(device({{lut, 20}, {QStringLiteral("$specify2"), 90}}),
             QLatin1String("iCE40HX8K-CT256"));
    QCOMPARE(device({{lut, 20}, {QStringLiteral("SB_MAC16"), 1}}), QLatin1String("iCE40UP5K-SG48"));
    QCOMPARE(device({{QStringLiteral("TRELLIS_FF"), 2}, {QStringLiteral("LUT4"), 9}}),
             QLatin1String("LFE5U-25F-CABGA256"));
    QCOMPARE(device({{QStringLiteral("FDRE"), 2}, {QStringLiteral("LUT4"), 9}}),
             QLatin1String("XC7A35T-CSG324"));
    QCOMPARE(device({{QStringLiteral("$_DFF_P_"), 5}}), QLatin1String());
    // The proposed device is in the catalogue and belongs to the family.
    for (const char *cell : {"SB_LUT4", "SB_HFOSC", "CCU2C", "CARRY4", "FERN_DFF"}) {
        const DesignFamily *family = familyOfCells({{QLatin1String(cell), 1}});
        QVERIFY2(family && familyOfDevice(QLatin1String(family->device)) == family, cell);
    }
}

void TestProjectDialog::copiesSample()
{
    TestHost host;
    for (const char *name : {"share/sample.fpgaproj", "share/rtl/a.v"})
        host.write(QLatin1String(name), "shipped");
    const QDir shipped(host.path(QStringLiteral("share")));
    const QDir own(host.path(QStringLiteral("own")));
    QString error;
    QCOMPARE(ownSample(shipped, own, &error), own.filePath(QStringLiteral("sample.fpgaproj")));
    QCOMPARE(host.read(QStringLiteral("own/rtl/a.v")), QByteArray("shipped"));
    // What the user has changed stays, even if the project file has to be copied again.
    host.write(QStringLiteral("own/rtl/a.v"), "changed");
    QVERIFY(QFile::remove(own.filePath(QStringLiteral("sample.fpgaproj"))));
    QVERIFY(!ownSample(shipped, own, &error).isEmpty() && error.isEmpty());
    QCOMPARE(host.read(QStringLiteral("own/rtl/a.v")), QByteArray("changed"));
    const QDir none(host.path(QStringLiteral("own/rtl/a.v/below")));
    QVERIFY(ownSample(shipped, none, &error).isEmpty() && error.contains(none.path()));
}

void TestProjectDialog::createsFromVerilogFolder()
{
    TestHost host;
    host.write(QStringLiteral("blink er/b.sv"), "module b(input c); endmodule");
    host.write(QStringLiteral("blink er/a.v"), "module top(input c); b x(c); endmodule");
    host.write(QStringLiteral("blink er/notes.txt"), "");
    ProjectSettings known;
    known.folder = host.path(QStringLiteral("blink er"));
    const std::unique_ptr<ProjectDialog> dialog(ProjectDialog::forNew(known, QString(), nullptr));
    dialog->show();
    QCOMPARE(field<QLineEdit>(*dialog, "projectName")->text(), QStringLiteral("blink er"));
    QCOMPARE(command(*dialog),
             QStringLiteral("yosys -p \"synth -top top; autoname; write_json netlist.json\" a.v "
                            "b.sv"));
    {
        ModalDriver choose([](QWidget *devices) {
            QTest::keyClicks(devices->findChild<QLineEdit *>(), QStringLiteral("UP5K-SG"));
            QTest::keyClick(devices, Qt::Key_Return);
        });
        QTest::mouseClick(field<QPushButton>(*dialog, "chooseProjectDevice"), Qt::LeftButton);
    }
    type(*dialog, "netlistFile", QStringLiteral("out put/n.json"));
    QTest::keyClick(field<QLineEdit>(*dialog, "netlistFile"), Qt::Key_Return);
    QCOMPARE(dialog->result(), int(QDialog::Accepted));
    QCOMPARE(host.read(QStringLiteral("blink er/blink er.fpgaproj")), QByteArray(R"({
    "name": "blink er",
    "device": "iCE40UP5K-SG48",
    "top": "top",
    "sources": ["a.v", "b.sv"],
    "synthesis": {"program": "yosys", "arguments": ["-p", "synth_ice40 -dsp -top top; autoname; write_json \"out put/n.json\"", "a.v", "b.sv"]},
    "results": {"RES.netlist": "out put/n.json"}
}
)"));
}

// What is detected later does not replace it.
void TestProjectDialog::keepsWhatTheUserTyped()
{
    TestHost host;
    host.write(QStringLiteral("one/a.v"), "module a(input c); endmodule");
    host.write(QStringLiteral("two/b.v"), "module b(input c); endmodule");
    ProjectSettings known;
    known.folder = host.path(QStringLiteral("one"));
    const std::unique_ptr<ProjectDialog> dialog(ProjectDialog::forNew(known, QString(), nullptr));
    dialog->show();
    auto *choice = field<QComboBox>(*dialog, "synthesisTemplate");
    type(*dialog, "projectFolder", host.path(QStringLiteral("two")));
    QCOMPARE(field<QLineEdit>(*dialog, "projectName")->text(), QStringLiteral("two"));
    QVERIFY(command(*dialog).endsWith(
        QLatin1String("-top b; autoname; write_json netlist.json\" b.v")));
    type(*dialog, "projectName", QStringLiteral("mine"));
    auto *editor = field<QPlainTextEdit>(*dialog, "synthesisCommand");
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("make 'fast"));
    QCOMPARE(choice->currentIndex(), choice->count() - 1);
    type(*dialog, "projectFolder", host.path(QStringLiteral("one")));
    QCOMPARE(field<QLineEdit>(*dialog, "projectName")->text(), QStringLiteral("mine"));
    QCOMPARE(command(*dialog), QStringLiteral("make 'fast"));
    QCOMPARE(field<QListWidget>(*dialog, "sources")->item(0)->text(), QStringLiteral("a.v"));

    dialog->accept();
    QVERIFY(problem(*dialog).contains(QLatin1String("not closed")));
    QVERIFY(editor->hasFocus() || !QGuiApplication::focusWindow());
    QTest::keyClicks(editor, QStringLiteral("'"));
    QCOMPARE(problem(*dialog), QString());
    dialog->accept();
    const auto text = host.read(QStringLiteral("one/mine.fpgaproj"));
    QVERIFY2(text.contains("{\"program\": \"make\", \"arguments\": [\"fast\"]}"), text);
}

void TestProjectDialog::reportsBadInput()
{
    TestHost host;
    const QString there = host.write(QStringLiteral("there.fpgaproj"), "mine");
    ProjectSettings known;
    known.folder = host.path(QString());
    const std::unique_ptr<ProjectDialog> dialog(ProjectDialog::forNew(known, QString(), nullptr));
    dialog->show();
    const auto refused = [&](const char *words) {
        dialog->accept();
        return dialog->isVisible() && problem(*dialog).contains(QLatin1String(words));
    };
    type(*dialog, "projectName", QStringLiteral(" "));
    QVERIFY(refused("Enter a name"));
    type(*dialog, "projectName", QStringLiteral("a/b"));
    QVERIFY(refused("cannot contain"));
    type(*dialog, "projectName", QStringLiteral("there"));
    QVERIFY(refused("already exists"));
    QCOMPARE(host.read(QStringLiteral("there.fpgaproj")), QByteArray("mine"));
    type(*dialog, "projectName", QStringLiteral("new"));
    type(*dialog, "projectFolder", there);
    QVERIFY(refused("does not exist"));
    type(*dialog, "projectFolder", host.path(QStringLiteral("none")));
    QVERIFY(refused("does not exist"));
    type(*dialog, "projectFolder", QStringLiteral("/proc"));
    QVERIFY(refused("/proc/new.fpgaproj"));
    QCOMPARE(field<QLineEdit>(*dialog, "projectName")->text(), QStringLiteral("new"));
}

void TestProjectDialog::changesOnlyWhatWasEdited_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const QByteArray own = "{\r\n  \"own\": [1,2],\r\n  \"device\" : \"QF2-10-BG256\",\r\n"
                           "  \"sources\": [\r\n    \"z.v\",\r\n    \"a.v\"\r\n  ]\r\n}";
    QTest::newRow("a source per line")
        << own << QByteArray(own).replace("\"a.v\"", "\"a.v\",\r\n    \"new.v\"");
    const QByteArray line = "{\"sources\":[ \"x.v\",\"y.v\" ],\"name\":\"n\",\"top\": 3,"
                            "\"synthesis\":{\"program\":\"make\",\"own\":1}}";
    QTest::newRow("on a line") << line << QByteArray(line).replace("\"y.v\"", "\"y.v\", \"new.v\"");
    QTest::newRow("none yet") << QByteArray("{ }\n") << QByteArray("{\"sources\": [\"new.v\"]}\n");
}

void TestProjectDialog::changesOnlyWhatWasEdited()
{
    QFETCH(QByteArray, before);
    TestHost host;
    const QString source = host.write(QStringLiteral("new.v"), "module m(input a); endmodule");
    QVERIFY(Core::ProjectSession::get()->open(host.write(QStringLiteral("x.fpgaproj"), before),
                                              nullptr));
    const auto edit = [](const std::function<void(QWidget &)> &change) {
        const std::unique_ptr<ProjectDialog> dialog(ProjectDialog::forCurrent(nullptr));
        dialog->show();
        change(*dialog);
        dialog->accept();
        return dialog->result() == QDialog::Accepted;
    };
    QVERIFY(edit([](QWidget &) {}));
    QCOMPARE(host.read(QStringLiteral("x.fpgaproj")), before);
    QVERIFY(edit([&](QWidget &dialog) {
        ModalDriver choose([&](QWidget *files) {
            QTest::keyClicks(files->findChild<QLineEdit *>(), source);
            QTest::keyClick(files->findChild<QLineEdit *>(), Qt::Key_Return);
        });
        QTest::mouseClick(field<QPushButton>(dialog, "addSources"), Qt::LeftButton);
    }));
    QTEST(host.read(QStringLiteral("x.fpgaproj")), "after");
    QVERIFY(edit([](QWidget &dialog) {
        auto *list = field<QListWidget>(dialog, "sources");
        list->setCurrentRow(list->count() - 1);
        QTest::mouseClick(field<QPushButton>(dialog, "removeSources"), Qt::LeftButton);
    }));
    const QByteArray removed = host.read(QStringLiteral("x.fpgaproj"));
    QVERIFY2(removed == before || removed.contains("\"sources\": []"), removed);
}

QTEST_MAIN(TestProjectDialog)
#include "test_projectdialog.moc"
