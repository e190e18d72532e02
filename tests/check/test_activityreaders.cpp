#include "activitydesign.h"

#include <QtTest>

using namespace Check;

namespace {

std::shared_ptr<const ActivityFile> read(const QByteArray &bytes, bool counts = false)
{
    return activityFile(bytes, counts);
}

/// Every bit as "path=signal.place", the least significant one of a variable first.
QString bits(const ActivityFile &file)
{
    QStringList list;
    for (const Declarations::Variable &variable : file.declarations.variables()) {
        for (quint32 place = 0; place < variable.width; ++place)
            list << QStringLiteral("%1=%2.%3")
                        .arg(file.declarations.path(variable, place))
                        .arg(variable.signal)
                        .arg(place);
    }
    return list.join(QLatin1Char(' '));
}

QByteArray vcd(const QByteArray &variables, const QByteArray &values = "#0\n#10\n")
{
    return "$timescale 1ns $end\n$scope module t $end\n" + variables +
           "\n$upscope $end\n$enddefinitions $end\n" + values;
}

QByteArray saif(const QByteArray &body)
{
    return "(SAIFILE (SAIFVERSION \"2.0\") (DIRECTION \"backward\")\n" + body + ")\n";
}

} // namespace

class TestActivityReaders : public QObject
{
    Q_OBJECT

private slots:
    void vcdBits_data();
    void vcdBits();
    void vcdSpan_data();
    void vcdSpan();
    void saifBits_data();
    void saifBits();
    void saifCounts();
    void refusedFiles_data();
    void refusedFiles();
    void cutFiles_data();
    void cutFiles();
    void tokensAcrossBlocks();
};

void TestActivityReaders::vcdBits_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char *name, const QByteArray &variables, const char *expected) {
        QTest::newRow(name) << vcd(variables) << QString::fromLatin1(expected);
    };
    row("scalar", "$var wire 1 ! a $end", "t/a=0.0");
    row("bit, with a blank", "$var wire 1 ! a [3] $end", "t/a[3]=0.0");
    row("bit", "$var reg 1 ! a[3] $end", "t/a[3]=0.0");
    row("range, with a blank", "$var wire 2 ! a [1:0] $end", "t/a[0]=0.0 t/a[1]=0.1");
    row("range", "$var wire 2 ! a[1:0] $end", "t/a[0]=0.0 t/a[1]=0.1");
    row("range in words", "$var wire 2 ! a [ 1 : 0 ] $end", "t/a[0]=0.0 t/a[1]=0.1");
    row("no range", "$var logic 2 ! a $end", "t/a[0]=0.0 t/a[1]=0.1");
    row("word of a memory", "$var reg 2 ! mem[0] [1:0] $end", "t/mem[0][0]=0.0 t/mem[0][1]=0.1");
    row("word, in one", "$var reg 2 ! mem[0][1:0] $end", "t/mem[0][0]=0.0 t/mem[0][1]=0.1");
    row("word without range", "$var reg 2 ! mem[0] $end", "t/mem[0][0]=0.0 t/mem[0][1]=0.1");
    row("upwards", "$var wire 2 ! a [0:1] $end", "t/a[1]=0.0 t/a[0]=0.1");
    row("negative", "$var wire 3 ! a [0:-2] $end", "t/a[-2]=0.0 t/a[-1]=0.1 t/a[0]=0.2");
    row("packed", "$var wire 4 ! a [1:0][1:0] $end", "t/a[0]=0.0 t/a[1]=0.1 t/a[2]=0.2 t/a[3]=0.3");
    row("packed, in one", "$var wire 4 ! a[1:0][1:0] $end",
        "t/a[0]=0.0 t/a[1]=0.1 t/a[2]=0.2 t/a[3]=0.3");
    row("escaped", "$var wire 1 ! \\a.b[x] $end", "t/a.b[x]=0.0");
    row("escaped vector", "$var wire 2 ! \\a[1] [1:0] $end", "t/a[1][0]=0.0 t/a[1][1]=0.1");
    row("a backslash as code", "$var wire 1 \\ a $end $var wire 1 \\a b $end $var wire 1 \\ c $end",
        "t/a=0.0 t/b=1.0 t/c=0.0");
    row("a keyword as code",
        "$var wire 1 $end a $end\n$var real 64 $end r $end $var wire 1 ! b $end",
        "t/a=0.0 t/b=1.0");
    row("aliases", "$var wire 1 ! a $end\n$var wire 1 ! b $end", "t/a=0.0 t/b=0.0");
    row("long codes",
        "$var wire 1 longcode a $end $var wire 1 longcodf b $end "
        "$var wire 1 longcode c $end",
        "t/a=0.0 t/b=1.0 t/c=0.0");
    row("other types",
        "$var real 64 ! r $end $var event 1 \" e $end $var string 0 # s $end "
        "$var parameter 32 $ p $end $var supply0 1 % g $end $var integer 2 & i $end",
        "t/g=0.0 t/i[0]=1.0 t/i[1]=1.1");
    row("reopened",
        "$scope begin u $end $var wire 1 ! a $end $upscope $end "
        "$scope begin u $end $var wire 1 \" b $end $upscope $end",
        "t/u/a=0.0 t/u/b=1.0");
    row("surplus $upscope", "$upscope $end $upscope $end $upscope $end $var wire 1 ! a $end",
        "a=0.0");
    row("unknown keyword", "$own $var wire 1 ! x $end $attrbegin misc 07 $end $var wire 1 ! a $end",
        "t/a=0.0");
    QTest::newRow("one line")
        << QByteArray("$timescale 1 ns $end $scope module t $end $var wire 2 ! a [1:0] $end "
                      "$upscope $end $enddefinitions $end #0 b1 ! #7 ")
        << QStringLiteral("t/a[0]=0.0 t/a[1]=0.1");
    QTest::newRow("CRLF")
        << vcd("$comment one\ntwo $end\n$var wire 1 ! a $end").replace("\n", "\r\n")
        << QStringLiteral("t/a=0.0");
}

void TestActivityReaders::vcdBits()
{
    QFETCH(QByteArray, file);
    const auto result = read(file);
    QVERIFY2(result->isUsable(), qPrintable(result->error));
    QCOMPARE(result->cutAt, -1);
    QCOMPARE(result->timescale.text(), QStringLiteral("1 ns"));
    QTEST(bits(*result), "expected");
    const bool hasOthers = qstrcmp(QTest::currentDataTag(), "other types") == 0;
    QCOMPARE(result->otherVariables, file.contains("$var real") ? (hasOthers ? 4 : 1) : 0);
}

void TestActivityReaders::vcdSpan_data()
{
    QTest::addColumn<QByteArray>("values");
    QTest::addColumn<double>("first");
    QTest::addColumn<double>("last");
    QTest::newRow("plain") << QByteArray("#5\n0!\n#10\n1!\n") << 5.0 << 10.0;
    QTest::newRow("one") << QByteArray("#7\n") << 7.0 << 7.0;
    QTest::newRow("values first") << QByteArray("$dumpvars 0! $end\n#3\n#4\n") << 0.0 << 4.0;
    QTest::newRow("comment first") << QByteArray("$comment #1 $end\n#3\n#4\n") << 3.0 << 4.0;
    QTest::newRow("code like a time") << QByteArray("#1\n#2\nb1 #9\n") << 1.0 << 2.0;
    QTest::newRow("one line") << QByteArray("#1 b1 #9 #2 0# b1 #9 ") << 1.0 << 2.0;
    QTest::newRow("far from the end")
        << "#1\n#2\n" + QByteArray("0!\n").repeated(1 << 20) << 1.0 << 2.0;
    for (const int size : {65531, 65535, 65536, 65540}) // around the first block from the end
        QTest::addRow("at %d", size) << "#1\n#22\n" + QByteArray(size, '\n') << 1.0 << 22.0;
}

void TestActivityReaders::vcdSpan()
{
    QFETCH(QByteArray, values);
    const auto file = read(vcd("$var wire 1 ! a $end", values));
    QVERIFY(file->isUsable() && file->hasSpan);
    QTEST(file->first, "first");
    QTEST(file->last, "last");
}

void TestActivityReaders::saifBits_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("expected");
    const QByteArray n = " (T0 1) (T1 2) (TX 3) (TC 4) (IG 5)) ";
    const auto row = [](const char *name, const QByteArray &body, const char *expected) {
        QTest::newRow(name) << saif(body) << QString::fromLatin1(expected);
    };
    row("nets and ports", "(INSTANCE t (NET (a" + n + "(b" + n + ") (PORT (c" + n + "))",
        "t/a=0.0 t/b=1.0 t/c=2.0");
    row("with types", "(INSTANCE \"top\" t (INSTANCE \"(x\" u (NET (a" + n + ")))", "t/u/a=0.0");
    row("repeated", "(INSTANCE t (NET (a" + n + ")) (INSTANCE t (NET (b" + n + "))",
        "t/a=0.0 t/b=1.0");
    row("escapes",
        "(INSTANCE t (NET (a\\[3\\]" + n + "(b[2]" + n + "(c\\[1\\]\\[0\\]" + n + "(d\\(e\\ f" + n +
            "))",
        "t/a[3]=0.0 t/b[2]=1.0 t/c[1][0]=2.0 t/d(e f=3.0");
    row("divider", "(DIVIDER | ) (INSTANCE t|u (NET (a" + n + "))", "t/u/a=0.0");
    row("divider in one", "(DIVIDER /) (INSTANCE t/u (NET (a" + n + "))", "t/u/a=0.0");
    row("comments", "/* ( */ // (\n(INSTANCE t /**/ (NET (a" + n + "// )\n))", "t/a=0.0");
    row("skipped",
        "(INSTANCE t (PORT (COND x (T0 1)) (a (COND y (T0 1) (IOPATH z (TC 1)))" + n +
            ") (LEAKAGE (COND b (T1 2))) (OWN (NET (c" + n + ")))",
        "t/a=0.0");
}

void TestActivityReaders::saifBits()
{
    QFETCH(QByteArray, file);
    const auto result = read(file);
    QVERIFY2(result->isUsable(), qPrintable(result->error));
    QCOMPARE(result->cutAt, -1);
    QTEST(bits(*result), "expected");
}

void TestActivityReaders::saifCounts()
{
    for (const QByteArray timescale : {"(TIMESCALE 10 ps)", "(TIMESCALE \"10ps\" )"}) {
        const auto file = read(saif(timescale + "(DURATION 7.5)(INSTANCE t (NET"
                                                "(a (T0 1)(T1 2)(TX 3)(TZ 4)(TB 1)(TC 6)(IG 7))"
                                                "(b (TC 9) (IK 3))))"),
                               true);
        QCOMPARE(file->timescale.text(), QStringLiteral("10 ps"));
        QCOMPARE(file->last, 7.5);
        QCOMPARE(file->counts.size(), size_t(2));
        const SaifCounts &a = file->counts.front();
        QVERIFY(a.low == 1 && a.high == 2 && a.unknown == 8 && a.toggles == 6 && a.glitches == 7);
        QCOMPARE(file->counts.back().toggles, quint64(9));
    }
}

void TestActivityReaders::refusedFiles_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QString>("sentence");
    const auto row = [](const char *name, const QByteArray &file, const char *sentence) {
        QTest::newRow(name) << file << QString::fromLatin1(sentence);
    };
    row("gzip", "\x1f\x8b\x08", "it is a gzip archive");
    row("FST", QByteArray("\0\0\0\0\0\0\0\x01\x49\0", 10), "it is an FST dump");
    row("extended VCD", "$date $end $scope module t $end\n$var  port 1 <0 a $end",
        "it is an extended VCD (of ports)");
    row("text", "library ieee;", "it is text that is neither VCD nor SAIF");
    row("binary", QByteArray("a\0b", 3), "it is a binary file");
    row("empty", " \n", "it is an empty file");
    row("forward", "(SAIFILE (DIRECTION \"forward\"))",
        "it is forward SAIF, which holds no counts, at byte 29");
    row("extended VCD, later", vcd("$comment " + QByteArray(1 << 20, '\n') + "$end $var port 1 <0"),
        "it is an extended VCD (of ports), at byte 1048636");
    row("long token", vcd("$var wire 1 ! " + QByteArray((1 << 20) + 1, 'a') + " $end"),
        "a token is longer than 1 MiB, at byte 55");
    row("long token, SAIF", saif("(INSTANCE " + QByteArray((1 << 20) + 1, 'a') + ")"),
        "a token is longer than 1 MiB, at byte 62");
    row("wide", vcd("$var wire 1048577 ! a $end"),
        "a variable has more than 2^20 bits, at byte 51");
    row("very wide", vcd("$var wire 99999999999999999999 ! a $end"),
        "a variable has more than 2^20 bits, at byte 51");
    row("no width", vcd("$var wire x ! a $end"),
        "the size of a variable is no number from 1 on, at byte 51");
    row("no name", vcd("$var wire 1 ! $end"), "a variable has no name, at byte 55");
    row("many bits", vcd(QByteArray("$var wire 1048576 ! a $end\n").repeated(48)),
        "it declares more than 50 million bits, at byte 1315");
    row("deep", vcd(QByteArray("$scope x y $end ").repeated(256)),
        "scopes nest deeper than 256, at byte 4132");
    row("deep SAIF", saif(QByteArray("(INSTANCE a ").repeated(257)),
        "instances nest deeper than 256, at byte 3125");
    row("deep parentheses", saif(QByteArray("(").repeated(2000)), "");
    row("no definitions", "$date x $end\n#0\n0!\n",
        "the definitions have a text that is no keyword, at byte 13");
}

void TestActivityReaders::refusedFiles()
{
    QFETCH(QByteArray, file);
    QFETCH(QString, sentence);
    const auto result = read(file);
    if (sentence.isEmpty())
        QVERIFY(!result->isUsable() || result->cutAt >= 0);
    else
        QCOMPARE(result->error, sentence);
}

void TestActivityReaders::cutFiles_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::newRow("vcd") << vcd("$scope module u $end\n$comment x $end\n$var wire 2 !! \\a [1:0] "
                                "$end\n$var real 64 # r $end $upscope $end",
                                "#0\n");
    QTest::newRow("saif") << saif("/* x */ (TIMESCALE 1 ns) (DIVIDER /) (INSTANCE \"t\" t (NET\n"
                                  "(a\\[3\\] (T0 1) (T1 2) (TC 4)) // y\n) (LEAKAGE (x (y))))\n");
}

void TestActivityReaders::cutFiles()
{
    QFETCH(QByteArray, file);
    QCOMPARE(read(file)->cutAt, -1);
    const int end = file.lastIndexOf(QTest::currentDataTag() == QByteArray("vcd") ? "#0" : ")");
    for (int size = 0; size < end; ++size) {
        const auto result = read(file.left(size));
        QVERIFY2(!result->isUsable() || result->cutAt == size, qPrintable(QString::number(size)));
        QVERIFY(result->isUsable() || size < 12);
    }
}

void TestActivityReaders::tokensAcrossBlocks()
{
    constexpr int block = 1 << 20;
    const QByteArray before = "$scope module t $end\n$comment ";
    const QByteArray after = "$end\n$var wire 2 !x abc [1:0] $end\n$enddefinitions $end\n#0\n";
    for (int shift = 0; shift < 40; ++shift) {
        const QByteArray fill(block - before.size() - shift, ' ');
        const auto file = read(before + fill + after);
        QCOMPARE(bits(*file), QStringLiteral("t/abc[0]=0.0 t/abc[1]=0.1"));
        QCOMPARE(file->valuesAt, qint64((before + fill + after).indexOf("\n#0")));
    }
    for (int shift = 0; shift < 40; ++shift) {
        const QByteArray head = "(SAIFILE (INSTANCE t";
        const auto file = read(head + QByteArray(block - head.size() - shift, ' ') +
                               "/*x*/(NET(\\ab\\[1\\] //\n(TC 1)))))");
        QCOMPARE(bits(*file), QStringLiteral("t/ab[1]=0.0"));
        QCOMPARE(file->cutAt, -1);
    }
}

QTEST_APPLESS_MAIN(TestActivityReaders)
#include "test_activityreaders.moc"
