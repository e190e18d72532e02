#include "conditionspage.h"
#include "frame/vltsettingplugin.h"

#include "host/core/viewarea.h"

#include <QtTest>

using VLT::VLTViewManager;

class TestVLTCommonWidget : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_plugin.initialize()); }
    void init() { m_host.reset(new TestHost); }
    void cleanup() { m_host.reset(); }
    void cleanupTestCase() { m_plugin.shutDown(); }

    void everyEditMarksDocument_data();
    void everyEditMarksDocument();
    void choicesEnableFields_data();
    void choicesEnableFields();
    void readsFile_data();
    void readsFile();
    void gradeSetsJunctionRange();
    void disabledParentKeepsValues();
    void commaLocaleKeepsEveryValue();
    void wheelDoesNotChangeCombo();
    void labelsDimWithTheirFields();
    void columnsStayAlignedInLargeFont();

private:
    VLT::VLTSettingPlugin m_plugin;
    QScopedPointer<TestHost> m_host;
};

void TestVLTCommonWidget::everyEditMarksDocument_data()
{
    QTest::addColumn<QByteArray>("widget");
    for (const char *name :
         {"comboGrade", "comboProcess", "comboAirFlow", "spinAmbTemp", "spinBoardTemp",
          "lineEditJA", "spinJunctionTemp", "lineEditSA", "lineEditJB", "checkJA",
          "checkBoxJunctionTemp", "radioHeatLow", "radioBoardCustom", "doubleSpinVCC",
          "doubleSpinVCCX", "doubleSpinVCCLDO"})
        QTest::newRow(name) << QByteArray(name);
}

void TestVLTCommonWidget::everyEditMarksDocument()
{
    QFETCH(QByteArray, widget);
    const ConditionsPage page(*m_host, "<HeatSink>Custom</HeatSink>"
                                       "<BoardThermalModel>Custom</BoardThermalModel>");
    auto *edited = page.find<QWidget>(widget);
    const QHash<QByteArray, const char *> switches = {{"comboAirFlow", "radioHeatLow"},
                                                      {"lineEditJA", "checkJA"},
                                                      {"spinJunctionTemp", "checkBoxJunctionTemp"}};
    if (switches.contains(widget))
        page.button(switches.value(widget))->click();
    page.view->setModified(false);
    if (qobject_cast<QAbstractButton *>(edited))
        QTest::mouseClick(edited, Qt::LeftButton, Qt::NoModifier, QPoint(8, edited->height() / 2));
    else if (qobject_cast<QComboBox *>(edited))
        QTest::keyClick(edited, Qt::Key_Down);
    else
        QTest::keyClick(edited, Qt::Key_Up);
    QVERIFY(page.view->isModified());
}

void TestVLTCommonWidget::choicesEnableFields_data()
{
    QTest::addColumn<QStringList>("clicks");
    QTest::addColumn<QString>("enabled");
    QTest::addColumn<QString>("saved"); // without grade, process and voltages
    const QString chain = QStringLiteral("spinAmbTemp checkJA");
    const auto add = [](const char *name, const char *clicks, const QString &enabled,
                        const char *saved) {
        QTest::newRow(name) << QString::fromLatin1(clicks).split(QLatin1Char(' '),
                                                                 Qt::SkipEmptyParts)
                            << enabled << QString::fromLatin1(saved);
    };
    const QString heat = chain + QStringLiteral(" groupHeat");
    const QString low = heat + QStringLiteral(" comboAirFlow groupBoard");
    const QString custom = heat + QStringLiteral(" lineEditSA groupBoard");
    add("start", "", heat + QStringLiteral(" comboAirFlow"),
        "AmbientTemp=25 HeatSink=None AirFlow=0");
    add("low", "radioHeatLow", low,
        "AmbientTemp=25 HeatSink=Low Profile AirFlow=0 BoardThermalModel=None");
    add("custom heat sink", "radioHeatCumstom", custom,
        "AmbientTemp=25 HeatSink=Custom CustomThetaSA=25 BoardThermalModel=None");
    add("custom board", "radioHeatLow radioBoardCustom",
        low + QStringLiteral(" spinBoardTemp lineEditJB"),
        "AmbientTemp=25 HeatSink=Low Profile AirFlow=0 BoardThermalModel=Custom "
        "CustomThetaJB=25 BoardTemp=25");
    add("typical board", "radioHeatCumstom radioBoardTypical",
        custom + QStringLiteral(" spinBoardTemp"),
        "AmbientTemp=25 HeatSink=Custom CustomThetaSA=25 BoardThermalModel=Typical BoardTemp=25");
    add("no heat sink, no board", "radioHeatLow radioBoardTypical radioHeatNone",
        heat + QStringLiteral(" comboAirFlow"), "AmbientTemp=25 HeatSink=None AirFlow=0");
    add("theta JA", "radioHeatLow radioBoardTypical checkJA", chain + QStringLiteral(" lineEditJA"),
        "AmbientTemp=25 CustomThetaJA=25");
    add("theta JA and back", "checkJA checkJA", heat + QStringLiteral(" comboAirFlow"),
        "AmbientTemp=25 HeatSink=None AirFlow=0");
    add("junction", "radioHeatLow radioBoardCustom checkJA checkBoxJunctionTemp",
        QStringLiteral("spinJunctionTemp"), "JunctionTemp=25.408");
    add("junction and back", "checkJA checkBoxJunctionTemp checkBoxJunctionTemp",
        chain + QStringLiteral(" lineEditJA"), "AmbientTemp=25 CustomThetaJA=25");
}

void TestVLTCommonWidget::choicesEnableFields()
{
    QFETCH(QStringList, clicks);
    const ConditionsPage page(*m_host);
    for (const QString &name : clicks)
        page.button(name.toLatin1().constData())->click();
    QTEST(page.enabled("spinJunctionTemp spinAmbTemp checkJA lineEditJA groupHeat comboAirFlow "
                       "lineEditSA groupBoard spinBoardTemp lineEditJB"),
          "enabled");
    static const QRegularExpression fixed(
        QStringLiteral("TempGrade=\\w+ Process=\\w+ |VCC=1 VCCX=3.3 VCC_LDO=1.2 ?"));
    QTEST(page.saved().remove(fixed).trimmed(), "saved");
}

void TestVLTCommonWidget::readsFile_data()
{
    QTest::addColumn<QByteArray>("elements");
    QTest::addColumn<QString>("saved"); // without voltages
    const auto add = [](const char *name, const char *elements, const char *saved) {
        QTest::newRow(name) << QByteArray(elements) << QString::fromLatin1(saved);
    };
    add("choices ignore case", "<TempGrade>industrial</TempGrade><Process>WORST</Process>",
        "TempGrade=Industrial Process=Worst AmbientTemp=25 HeatSink=None AirFlow=0");
    add("unknown choices",
        "<TempGrade>x</TempGrade><Process/><AirFlow>150</AirFlow><HeatSink>x</HeatSink>",
        "TempGrade=Commercial Process=Typical AmbientTemp=25 HeatSink=None AirFlow=0");
    add("no number, out of range, not finite",
        "<AmbientTemp>x</AmbientTemp><HeatSink>Custom</HeatSink>"
        "<CustomThetaSA>1000</CustomThetaSA><BoardTemp>nan</BoardTemp>"
        "<BoardThermalModel>Typical</BoardThermalModel>",
        "TempGrade=Commercial Process=Typical AmbientTemp=0 HeatSink=Custom CustomThetaSA=100 "
        "BoardThermalModel=Typical BoardTemp=0");
    add("no heat sink beats the board",
        "<HeatSink>None</HeatSink><AirFlow>400</AirFlow>"
        "<BoardThermalModel>Typical</BoardThermalModel>",
        "TempGrade=Commercial Process=Typical AmbientTemp=25 HeatSink=None AirFlow=400");
    add("board in any order",
        "<BoardTemp>30.5</BoardTemp><CustomThetaJB>7</CustomThetaJB>"
        "<BoardThermalModel>Custom</BoardThermalModel><HeatSink>High Profile</HeatSink>",
        "TempGrade=Commercial Process=Typical AmbientTemp=25 HeatSink=High Profile AirFlow=0 "
        "BoardThermalModel=Custom CustomThetaJB=7 BoardTemp=30.5");
    add("theta JA", "<CustomThetaJA>3.25</CustomThetaJA>",
        "TempGrade=Commercial Process=Typical AmbientTemp=25 CustomThetaJA=3.25");
    add("not given",
        "<CustomThetaJA>NA</CustomThetaJA><CustomThetaSA>NA</CustomThetaSA>"
        "<HeatSink>Custom</HeatSink>",
        "TempGrade=Commercial Process=Typical AmbientTemp=25 HeatSink=Custom CustomThetaSA=25 "
        "BoardThermalModel=None");
    add("junction", "<JunctionTemp>-12.5</JunctionTemp><AmbientTemp>9</AmbientTemp>",
        "TempGrade=Commercial Process=Typical JunctionTemp=-12.5");
}

void TestVLTCommonWidget::readsFile()
{
    QFETCH(QByteArray, elements);
    const ConditionsPage page(*m_host, elements);
    QVERIFY(!page.view->isModified());
    QTEST(page.saved().remove(QStringLiteral("VCC=1 VCCX=3.3 VCC_LDO=1.2")).simplified(), "saved");
}

void TestVLTCommonWidget::gradeSetsJunctionRange()
{
    // "Commercial" is the first grade, so reading it changes no index and no range.
    const ConditionsPage page(*m_host, "<TempGrade>Commercial</TempGrade>"
                                       "<JunctionTemp>110</JunctionTemp>");
    QDoubleSpinBox *junction = page.spin("spinJunctionTemp");
    QCOMPARE(junction->value(), 110.0);
    const auto choose = [&](int grade, double minimum, double maximum, double value) {
        page.combo("comboGrade")->setCurrentIndex(grade);
        QCOMPARE(junction->minimum(), minimum);
        QCOMPARE(junction->maximum(), maximum);
        QCOMPARE(junction->value(), value);
    };
    choose(2, -40, 125, 110);
    choose(0, 0, 85, 85);
    choose(1, -40, 100, 85);
}

void TestVLTCommonWidget::disabledParentKeepsValues()
{
    const ConditionsPage page(*m_host);
    const QString before = page.saved();
    m_host->viewManager()->area()->setEnabled(false);
    QCOMPARE(page.saved(), before);
    m_host->viewManager()->area()->setEnabled(true);
}

void TestVLTCommonWidget::commaLocaleKeepsEveryValue()
{
    QLocale::setDefault(QLocale(QStringLiteral("de_DE")));
    const QString expected = QStringLiteral(
        "TempGrade=Commercial Process=Typical AmbientTemp=-7.125 VCC=1.005 VCCX=2.375 "
        "VCC_LDO=1.299 HeatSink=Custom CustomThetaSA=0.5 BoardThermalModel=Custom "
        "CustomThetaJB=12.5 BoardTemp=99.999");
    {
        const ConditionsPage page(*m_host);
        page.button("radioHeatCumstom")->click();
        page.button("radioBoardCustom")->click();
        const QList<QPair<const char *, const char *>> typed = {
            {"spinAmbTemp", "-7,125"},     {"doubleSpinVCC", "1,005"}, {"doubleSpinVCCX", "2,375"},
            {"doubleSpinVCCLDO", "1.299"}, {"lineEditSA", "0,5"},      {"lineEditJB", "12,5"},
            {"spinBoardTemp", "99,999"}};
        for (const auto &[name, text] : typed) {
            page.spin(name)->selectAll();
            QTest::keyClicks(page.spin(name), QString::fromLatin1(text));
        }
        QCOMPARE(page.saved(), expected);
    }
    const QByteArray bytes = m_host->read(QStringLiteral("a.vlr"));
    m_host->closeAll();
    VLTViewManager::openView(m_host->device(), m_host->path(QStringLiteral("a.vlr")));
    QVERIFY(VLTViewManager::vltViews().first()->save());
    QCOMPARE(m_host->read(QStringLiteral("a.vlr")), bytes);
    QLocale::setDefault(QLocale::c());
}

void TestVLTCommonWidget::wheelDoesNotChangeCombo()
{
    const ConditionsPage page(*m_host);
    QWheelEvent event(QPointF(5, 5), QPointF(5, 5), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(page.combo("comboGrade"), &event);
    QCOMPARE(page.combo("comboGrade")->currentIndex(), 0);
}

void TestVLTCommonWidget::labelsDimWithTheirFields()
{
    const ConditionsPage page(*m_host);
    const auto *label = page.find<QLabel>("labelVCCX");
    const auto color = [label] {
        return label->palette().color(QPalette::Active, QPalette::WindowText);
    };
    const QColor bright = color();
    DEV::DeviceArg fixed;
    fixed.partName = QStringLiteral("QF1-01");
    page.view->setDevice(fixed);
    QVERIFY(label->isEnabledTo(page.page));
    QCOMPARE(color(), label->palette().color(QPalette::Disabled, QPalette::WindowText));
    page.view->setDevice({});
    QCOMPARE(color(), bright);
}

void TestVLTCommonWidget::columnsStayAlignedInLargeFont()
{
    const ConditionsPage page(*m_host);
    page.view->window()->resize(1600, 1400);
    page.view->window()->show();
    const auto left = [&page](const char *name) {
        return page.find<QWidget>(name)->mapTo(page.page, QPoint()).x();
    };
    const int before = left("spinAmbTemp");
    QFont font = page.view->font();
    font.setPointSize(font.pointSize() * 2);
    page.view->setFont(font);
    QTRY_VERIFY(left("spinAmbTemp") > before);
    for (const char *name :
         {"comboGrade", "lineEditSA", "spinBoardTemp", "spinJunctionTemp", "doubleSpinVCC"})
        QTRY_COMPARE(left(name), left("spinAmbTemp"));
}

QTEST_MAIN(TestVLTCommonWidget)

#include "test_vltcommonwidget.moc"
