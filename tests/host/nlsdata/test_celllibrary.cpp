#include "host/nlsdata/celllibrary_p.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using namespace NlsData;

class TestCellLibrary : public QObject
{
    Q_OBJECT

private slots:
    void embeddedFilesAreSound();
    void findsTypes();
    void choosesByParameter_data();
    void choosesByParameter();
    void tellsProblems();

private:
    QStringList load(const QByteArray &text);

    QTemporaryDir m_folder;
    std::unique_ptr<CellLibrary> m_library;
};

/// Loads a library of that one file; gives the problems.
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

void TestCellLibrary::embeddedFilesAreSound()
{
    QStringList problems;
    const CellLibrary library(QStringLiteral(":/fpgaprj/cells"), &problems);
    QCOMPARE(problems, QStringList());
    for (const char *flipFlop : {"SB_DFFESR", "TRELLIS_FF", "FDRE", "$_SDFFCE_PP0P_", "$dffe"}) {
        QVERIFY2(library.find(flipFlop), flipFlop);
        QCOMPARE(library.find(flipFlop)->codes({}).category, 50);
        QVERIFY(library.find(flipFlop)->isOutput("Q") || library.find(flipFlop)->isOutput("O"));
    }
    for (const char *ram : {"SB_RAM40_4K", "DP16KD", "RAMB18E1", "RAMB36E1"}) {
        QVERIFY2(library.find(ram), ram);
        QCOMPARE(library.find(ram)->codes({}).category, 5);
    }
    QVERIFY(!library.find("no such cell"));
}

void TestCellLibrary::findsTypes()
{
    QCOMPARE(load(R"({"cells": {
        "FD*": {"category": 1}, "FDR*": {"category": 2}, "FDRE": {"category": 3},
        "RAM": {"outputs": ["DO*", "Q"]}, "bare": {} }})"),
             QStringList());
    QCOMPARE(m_library->find("FD")->codes({}).category, 1);
    QCOMPARE(m_library->find("FDX")->codes({}).category, 1);
    QCOMPARE(m_library->find("FDRX")->codes({}).category, 2);
    QCOMPARE(m_library->find("FDRE")->codes({}).category, 3);
    QVERIFY(!m_library->find("F"));
    QCOMPARE(m_library->find("bare")->codes({}).primitive, 0);
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
    const QByteArray nine = "00000000000000000000000000001001";
    QTest::newRow("neither") << QByteArray() << QByteArray() << false << 5;
    QTest::newRow("text") << QByteArray("SDP") << nine << false << 1;
    QTest::newRow("trailing blank") << QByteArray("SDP ") << nine << false << 1;
    QTest::newRow("one of a list") << QByteArray("ROM") << nine << false << 2;
    QTest::newRow("number of binary digits") << QByteArray("X") << nine << false << 3;
    QTest::newRow("short number") << QByteArray("X") << QByteArray("1001") << false << 3;
    QTest::newRow("plain number") << QByteArray("X") << QByteArray("9") << true << 3;
    QTest::newRow("binary digits, plain") << QByteArray("X") << QByteArray("1001") << true << 4;
    QTest::newRow("undefined digits") << QByteArray("X") << QByteArray("100x") << false << 4;
    QTest::newRow("too long") << QByteArray("X") << '1' + nine + nine << false << 4;
}

void TestCellLibrary::choosesByParameter()
{
    QFETCH(QByteArray, mode);
    QFETCH(QByteArray, width);
    QFETCH(bool, decimal);
    QFETCH(int, primitive);
    QCOMPARE(load(R"({"cells": {"RAM": {"category": 5, "primitive": 4, "variants": [
        {"when": {"MODE": "SDP", "WIDTH": 9}, "primitive": 1},
        {"when": {"MODE": ["LUT", "ROM"]}, "primitive": 2},
        {"when": {"WIDTH": [9, 18]}, "primitive": 3},
        {"when": {"MODE": null}, "primitive": 5} ]}}})"),
             QStringList());
    std::vector<CellParameter> parameters;
    if (!mode.isEmpty())
        parameters = {{"MODE", mode.constData()}, {"WIDTH", width.constData(), decimal}};
    const CellType *ram = m_library->find("RAM");
    QVERIFY(ram->hasVariants());
    QCOMPARE(ram->codes(parameters).primitive, primitive);
    QCOMPARE(ram->codes(parameters).category, 5);
}

void TestCellLibrary::tellsProblems()
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

QTEST_GUILESS_MAIN(TestCellLibrary)
#include "test_celllibrary.moc"
