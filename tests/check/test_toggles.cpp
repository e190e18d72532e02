#include "activitydesign.h"

#include "check/activity/togglestore.h"
#include "host/nlsdata/readcontrol.h"

#include <QtTest>

using namespace Check;

namespace {

QByteArray run(const QStringList &arguments)
{
    QProcess process;
    process.start(QStringLiteral("python3"), QStringList(QStringLiteral(COUNTER)) + arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        qFatal("%s", process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

/// A line per bit, as the script prints them.
QByteArray counted(const ActivityFile &file, const TimeWindow &window = {})
{
    const Declarations &declarations = file.declarations;
    const ToggleCounts counts =
        countToggles(file, std::vector<bool>(declarations.signalCount(), true), window);
    if (!counts.error.isEmpty())
        qFatal("%s", qPrintable(counts.error));
    QByteArray lines;
    for (const Declarations::Variable &variable : declarations.variables()) {
        for (quint32 place = 0; place < variable.width; ++place) {
            const BitActivity *bit = counts.bit(variable.signal, place);
            lines += QStringLiteral("%1 %2 %3 %4 %5 %6\n")
                         .arg(declarations.path(variable, place))
                         .arg(bit->toggles)
                         .arg(bit->glitches)
                         .arg(bit->low, 0, 'g', 15)
                         .arg(bit->high, 0, 'g', 15)
                         .arg(bit->unknown, 0, 'g', 15)
                         .toUtf8();
        }
    }
    return lines;
}

} // namespace

class TestToggles : public QObject
{
    Q_OBJECT

private slots:
    void changes_data();
    void changes();
    void agreesWithScript_data();
    void agreesWithScript();
    void saifAgrees();
    void stops();
    void keepsCounts();

private:
    QString write(const QByteArray &bytes)
    {
        const QString path = m_folder.filePath(QStringLiteral("file.vcd"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write");
        return path;
    }
    QTemporaryDir m_folder;
};

void TestToggles::changes_data()
{
    QTest::addColumn<QByteArray>("values");
    QTest::addColumn<QByteArray>("expected"); // of bit 0: toggles, glitches, low, high, unknown
    const auto row = [](const char *name, const char *values, const char *expected) {
        QTest::newRow(name) << QByteArray(values) << QByteArray(expected);
    };
    row("plain", "#0 b0 ! #2 b1 ! #5 b0 ! #9 ", "2 0 6 3 0");
    row("the first value is no toggle", "#0 #4 b1 ! #9 ", "0 0 0 5 4");
    row("$dumpvars", "#0 $dumpvars b0 ! $end b1 ! #5 b0 ! #9 ", "2 0 4 5 0");
    row("set later", "#0 b0 ! #3 $dumpvars b1 ! $end #9 ", "0 0 3 6 0");
    row("to x and on", "#0 b0 ! #2 bx ! #3 b1 ! #9 ", "1 0 2 6 1");
    row("to x and back", "#0 b0 ! #2 bz ! #3 b0 ! #9 ", "0 0 8 0 1");
    row("glitch", "#0 b0 ! #2 b1 ! b0 ! #9 ", "0 1 9 0 0");
    row("glitches", "#0 b0 ! #2 b1 ! b0 ! bx ! b1 ! #9 ", "1 3 2 7 0");
    row("the same time again", "#0 b0 ! #2 b1 ! #2 b0 ! #9 ", "0 1 9 0 0");
    row("no change", "#0 b0 ! #2 b0 ! b0 ! #9 ", "0 0 9 0 0");
    row("off", "#0 b0 ! #2 $dumpoff bx ! $end #5 $dumpon b1 ! $end #7 b0 ! #9 ", "1 0 4 2 0");
    row("short", "#0 b1111 ! #3 b ! b1 ! #9 ", "0 0 0 9 0");
    row("short x", "#0 b0 ! #3 bx0 ! #9 ", "0 0 9 0 0");
    row("comment", "#0 b0 ! $comment #5 b1 ! $end #9 ", "0 0 9 0 0");
    row("others", "#0 b0 ! r1.5 ! sb1 ! #9 ", "0 0 9 0 0");
    row("scalar", "#0 0! #4 1! #9 ", "1 0 4 5 0");
    row("late start", "#5 b0 ! #7 b1 ! #9 ", "1 0 2 2 0");
}

void TestToggles::changes()
{
    QFETCH(QByteArray, values);
    QFETCH(QByteArray, expected);
    const auto file =
        readActivityFile(write("$var wire 4 ! a [3:0] $end\n$enddefinitions $end\n" + values));
    QVERIFY2(file->isUsable(), qPrintable(file->error));
    QCOMPARE(counted(*file).split('\n').first(), "a[0] " + expected);
}

void TestToggles::agreesWithScript_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("end");
    const double all = std::numeric_limits<double>::infinity();
    QTest::newRow("sample") << QStringLiteral(SAMPLE) << 0.0 << all;
    QTest::newRow("sample, window") << QStringLiteral(SAMPLE) << 205000.0 << 4000000.0;
    QTest::newRow("random") << QString() << 0.0 << all;
    QTest::newRow("random, window") << QString() << 100.0 << 700.0;
}

void TestToggles::agreesWithScript()
{
    if (QStandardPaths::findExecutable(QStringLiteral("python3")).isEmpty())
        QSKIP("python3 is not installed");
    QFETCH(QString, path);
    QFETCH(double, start);
    QFETCH(double, end);
    if (path.isEmpty()) {
        QByteArray bytes = "$scope module t $end $var wire 1 ! a $end $var reg 5 x b [0:4] $end "
                           "$var reg 1 ! c $end $upscope $end $enddefinitions $end\n";
        quint32 random = 1;
        const auto next = [&random](quint32 below) {
            random = random * 1664525 + 1013904223;
            return (random >> 16) % below;
        };
        for (int time = 0; time < 1000; time += int(next(4))) {
            const bool isOff = next(60) == 0;
            bytes += '#' + QByteArray::number(time) + (isOff ? " $dumpoff x! bx x $end\n" : "\n");
            if (isOff)
                bytes += '#' + QByteArray::number(time += 9) + " $dumpon 1! b1x x $end\n";
            for (quint32 i = next(4); i > 0; --i) {
                QByteArray vector;
                for (quint32 size = next(5) + 1; size > 0; --size)
                    vector += "01xz"[next(4)];
                bytes += next(2) ? "01xz"[next(4)] + QByteArray("!\n") : 'b' + vector + " x\n";
            }
        }
        path = write(bytes + "#1010\n");
    }
    const auto file = readActivityFile(path);
    QVERIFY2(file->isUsable(), qPrintable(file->error));
    const QByteArray expected =
        run({path, QString::number(start, 'f', 0), QString::number(end, 'f', 0)});
    const auto lines = expected.split('\n');
    const auto own = counted(*file, {start, end}).split('\n');
    QVERIFY(lines.size() > 5);
    for (int i = 0; i < lines.size(); ++i)
        QCOMPARE(own.value(i), lines.at(i));
    QCOMPARE(own.size(), lines.size());
}

void TestToggles::saifAgrees()
{
    if (QStandardPaths::findExecutable(QStringLiteral("python3")).isEmpty())
        QSKIP("python3 is not installed");
    const auto saif = activityFile(run({QStringLiteral(SAMPLE), QStringLiteral("--saif")}), true);
    QVERIFY2(saif->isUsable(), qPrintable(saif->error));
    QCOMPARE(saif->cutAt, -1);
    const auto vcd = readActivityFile(QStringLiteral(SAMPLE));
    QCOMPARE(saif->last, vcd->last - vcd->first);
    QCOMPARE(counted(*saif), counted(*vcd));
}

void TestToggles::stops()
{
    const auto file = readActivityFile(write("$var wire 1 ! a $end $enddefinitions $end #0\n" +
                                             QByteArray("0! 1!\n").repeated(1 << 19)));
    NlsData::ReadControl control;
    QVERIFY(countToggles(*file, {true}, {}, &control).error.isEmpty());
    QVERIFY(control.permille() > 500);
    control.cancel();
    QVERIFY(!countToggles(*file, {true}, {}, &control).error.isEmpty());
}

/// Until the file changes, or more of it is wanted.
void TestToggles::keepsCounts()
{
    const QByteArray text = "$var wire 1 ! a $end $var wire 1 # b $end $enddefinitions $end\n"
                            "#0\n0!\n0#\n#5\n1!\n1#\n#9\n";
    const auto file = readActivityFile(write(text));
    ToggleStore store;
    QCOMPARE(store.count(*file, {true, false}, {}, nullptr).bit(0, 0)->toggles, 1U);
    QVERIFY(store.find(*file, {true, false}, {}));
    QVERIFY(!store.find(*file, {true, false}, {2, 7}));
    QVERIFY(!store.find(*file, {false, true}, {}));
    QCOMPARE(store.count(*file, {false, true}, {}, nullptr).bit(1, 0)->toggles, 1U);
    write(text + "#12\n");
    QVERIFY(!store.find(*file, {false, true}, {}));
}

QTEST_APPLESS_MAIN(TestToggles)
#include "test_toggles.moc"
