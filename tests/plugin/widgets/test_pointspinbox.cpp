#include "config/plainnumber.h"
#include "widgets/pointspinbox.h"

#include <QWheelEvent>
#include <QtTest>

class TestPointSpinBox : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QStringLiteral("de_DE"))); }
    void acceptsDecimalComma_data();
    void acceptsDecimalComma();
    void wheelNeedsFocus();
    void numberTexts();
};

void TestPointSpinBox::acceptsDecimalComma_data()
{
    QTest::addColumn<QString>("shown");
    QTest::newRow("12,5") << "12.50%";
    QTest::newRow("12.5") << "12.50%";
    QTest::newRow("1.2,5") << "1.25%";
    QTest::newRow("1234,5") << "1234.50%";
    QTest::newRow("infnan") << "7.00%";
}

void TestPointSpinBox::acceptsDecimalComma()
{
    VLT::PointSpinBox box;
    box.setMaximum(5000);
    box.setSuffix(QStringLiteral("%"));
    box.setValue(7);
    box.selectAll();
    QTest::keyClicks(&box, QLatin1String(QTest::currentDataTag()));
    QTest::keyClick(&box, Qt::Key_Return);
    QTEST(box.text(), "shown");
}

void TestPointSpinBox::wheelNeedsFocus()
{
    QWidget window;
    VLT::PointSpinBox box(&window);
    QWidget other(&window);
    other.setFocusPolicy(Qt::StrongFocus);
    window.show();
    QApplication::setActiveWindow(&window);
    const auto turn = [&box] {
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&box, &event);
        return event.isAccepted();
    };
    other.setFocus();
    QVERIFY(!turn());
    QCOMPARE(box.value(), 0.0);
    box.setFocus();
    QVERIFY(turn());
    QCOMPARE(box.value(), 1.0);
}

void TestPointSpinBox::numberTexts()
{
    QCOMPARE(VLT::numberText(25.408), QStringLiteral("25.408"));
    // The fast path for two decimals gives the same text, also next to such a number.
    for (int hundredths = 0; hundredths <= 100100; hundredths += 7) {
        for (const double off : {0.0, 3.9e-7, 4.1e-7, 6e-7}) {
            for (const double value : {double(float(hundredths) / 100), hundredths / 100.0}) {
                const double number = value * (1 + off);
                QCOMPARE(VLT::numberText(number), QString::number(number, 'g', 6));
            }
        }
    }
    QCOMPARE(VLT::numberFromText(QStringLiteral("1.5")), 1.5);
    for (const char *text : {"", "1,5", "abc", "inf", "nan"}) {
        QCOMPARE(VLT::numberFromText(QString::fromLatin1(text)), 0.0);
        QCOMPARE(VLT::floatFromText(QString::fromLatin1(text)), 0.0F);
    }
}

QTEST_MAIN(TestPointSpinBox)

#include "test_pointspinbox.moc"
