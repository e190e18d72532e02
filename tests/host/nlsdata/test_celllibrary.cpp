#include "host/nlsdata/celllibrary.h"
#include "host/nlsdata/readnetlist.h"
#include "nlsdata/netlist.h"

#include <QtTest>

using namespace NlsData;

class TestCellLibrary : public QObject
{
    Q_OBJECT

private slots:
    void builtInFilesAreValid();
    void findsTypes();
    void choosesByParameter_data();
    void choosesByParameter();
    void reportsProblems();
    void addsUserLibraries();

private:
    QStringList load(const QByteArray &text);

    QTemporaryDir m_folder;
    std::unique_ptr<CellLibrary> m_library;
};

/// Loads a library with only that file; returns the problems.
QStringList TestCellLibrary::load(const QByteArray &text)
{
    QFile file(m_folder.filePath(QStringLiteral("cells.json")));
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        return {file.errorString()};
    file.close();
    QStringList problems;
    m_library = std::make_unique<CellLibrary>(m_folder.path(), &problems);
    return problems;
}

void TestCellLibrary::builtInFilesAreValid()
{
    QStringList problems;
    const CellLibrary library(QStringLiteral(":/fpgaprj/cells"), &problems);
    QCOMPARE(problems, QStringList());
    const QPair<const char *, int> cells[] = {
        {"SB_DFFESR", 50}, {"TRELLIS_FF", 50}, {"FDRE", 50},  {"$_SDFFCE_PP0P_", 50},
        {"$dffe", 50},     {"SB_RAM40_4K", 5}, {"DP16KD", 5}, {"RAMB18E1", 5},
    };
    for (const auto &[type, category] : cells) {
        QVERIFY2(library.find(type), type);
        QCOMPARE(library.find(type)->codes({}).category, category);
        if (category == 50)
            QVERIFY2(library.find(type)->isOutput("Q") || library.find(type)->isOutput("O"), type);
    }
    QVERIFY(!library.find("no such cell"));
}

void TestCellLibrary::findsTypes()
{
    QCOMPARE(load(R"({"cells": {
        "FD*": {"category": 1}, "FDR*": {"category": 2}, "FDRE": {"category": 3},
        "RAM": {"outputs": ["DO*", "Q"]} }})"),
             QStringList());
    QCOMPARE(m_library->find("FD")->codes({}).category, 1);
    QCOMPARE(m_library->find("FDRX")->codes({}).category, 2);
    QCOMPARE(m_library->find("FDRE")->codes({}).category, 3);
    QVERIFY(!m_library->find("F"));
    const CellType *ram = m_library->find("RAM");
    QVERIFY(ram->isOutput("DO") && ram->isOutput("DO17") && ram->isOutput("Q"));
    QVERIFY(!ram->isOutput("D") && !ram->isOutput("Q2"));
}

void TestCellLibrary::choosesByParameter_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::addColumn<QByteArray>("width");
    QTest::addColumn<bool>("decimal");
    QTest::addColumn<int>("primitive");
    const auto row = [](const char *name, const QByteArray &mode, const QByteArray &width,
                        bool decimal, int primitive) {
        QTest::newRow(name) << mode << width << decimal << primitive;
    };
    const QByteArray nine = "00000000000000000000000000001001";
    row("text with a trailing space", "SDP ", nine, false, 1);
    row("one of a list", "ROM", nine, false, 2);
    row("binary digits", "X", nine, false, 3);
    row("plain number", "X", "9", true, 3);
    row("plain number that looks binary", "X", "1001", true, 4);
    row("undefined digits", "X", "100x", false, 4);
    row("too long", "X", '1' + nine + nine, false, 4);
}

void TestCellLibrary::choosesByParameter()
{
    QFETCH(QByteArray, mode);
    QFETCH(QByteArray, width);
    QFETCH(bool, decimal);
    QCOMPARE(load(R"({"cells": {"RAM": {"category": 5, "primitive": 4, "variants": [
        {"when": {"MODE": "SDP", "WIDTH": 9}, "primitive": 1},
        {"when": {"MODE": ["LUT", "ROM"]}, "primitive": 2},
        {"when": {"WIDTH": [9, 18]}, "primitive": 3},
        {"when": {"MODE": null}, "primitive": 5} ]}}})"),
             QStringList());
    const CellType *ram = m_library->find("RAM");
    QCOMPARE(ram->codes({}).primitive, 5);
    const auto codes =
        ram->codes({{"MODE", mode.constData()}, {"WIDTH", width.constData(), decimal}});
    QTEST(int(codes.primitive), "primitive");
    QCOMPARE(codes.category, 5);
}

void TestCellLibrary::reportsProblems()
{
    QCOMPARE(load("{").size(), 1);
    QCOMPARE(load("[]").size(), 1);
    QCOMPARE(load(R"({"cells": {"A": {"category": -1}, "B": {"primitive": "x"},
        "C": {"variants": [{"primitive": 1}]}, "D": {"variants": [{"when": {"P": true}}]},
        "good": {"category": 7} }})")
                 .size(),
             4);
    QCOMPARE(m_library->find("good")->codes({}).category, 7);
    QVERIFY(!m_library->find("A"));
}

/// User cells replace built-in ones; errors name their file, and the other cells are used.
void TestCellLibrary::addsUserLibraries()
{
    QTemporaryDir home;
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.path())); // before the libraries are loaded
    QVERIFY(QDir().mkpath(CellLibrary::userFolder()));
    const QPair<QString, QByteArray> files[] = {
        {QStringLiteral("own.json"),
         R"({"cells": {"SB_DFF": {"category": 77}, "MINE*": {"category": 5},
                                                   "BAD": {"category": "x"}}})"},
        {QStringLiteral("broken.json"), "{"},
    };
    for (const auto &[name, text] : files) {
        QFile file(CellLibrary::userFolder() + QLatin1Char('/') + name);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }
    const CellLibrary &library = CellLibrary::standard();
    QCOMPARE(library.find("SB_DFF")->codes({}).category, 77);
    QCOMPARE(library.find("MINE_2")->codes({}).category, 5);
    QCOMPARE(library.find("SB_DFFE")->codes({}).category, 50);
    const QStringList problems = CellLibrary::userProblems();
    QCOMPARE(problems.size(), 2);
    QVERIFY2(problems.first().contains(QLatin1String("broken.json")), qPrintable(problems.first()));
    QVERIFY2(problems.last().contains(QLatin1String("own.json")) &&
                 problems.last().contains(QLatin1String("'BAD'")),
             qPrintable(problems.last()));

    QString error;
    const QByteArray netlist = R"({"modules": {"top": {"cells": {"r": {"type": "MINE_RAM"}}}}})";
    const auto read =
        readNetlistText({netlist.constData(), size_t(netlist.size())}, QStringLiteral("n"), &error);
    QVERIFY2(read, qPrintable(error));
    QCOMPARE(read->instances().first()->category(), 5);
}

QTEST_GUILESS_MAIN(TestCellLibrary)
#include "test_celllibrary.moc"
