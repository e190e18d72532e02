#include "config/plainnumber.h"
#include "widgets/pointspinbox.h"

#include <QWheelEvent>
#include <QtTest>

class TestPointSpinBox : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QStringLiteral("de_DE"))); }
    void acceptsDecimalComma();
    void wheelNeedsFocus();
    void numberTexts();
};

void TestPointSpinBox::acceptsDecimalComma()
{
    const QList<QPair<const char *, const char *>> cases = {{"12,5", "12.50%"},
                                                            {"12.5", "12.50%"},
                                                            {"1.2,5", "1.25%"},
                                                            {"1234,5", "1234.50%"},
                                                            {"infnan", "7.00%"}};
    for (const auto &[typed, shown] : cases) {
        VLT::PointSpinBox box;
        box.setMaximum(5000);
        box.setSuffix(QStringLiteral("%"));
        box.setValue(7);
        box.selectAll();
        QTest::keyClicks(&box, QString::fromLatin1(typed));
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(box.text(), QString::fromLatin1(shown));
    }
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
    // The short way of two decimals gives the same text, and takes no number for its neighbour.
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
