#include "rates/vcdfilesetdialog.h"

#include "config/records.h"
#include "document/vltview.h"

#include "support/modaldriver.h"
#include "support/testhost.h"

#include "nlsdata/netlistreader.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

using VLT::VcdFileSetDialog;
using VLT::VLT_VcdFile;

namespace {

/// The dialog on a real view, with its widgets by their names.
struct Form
{
    explicit Form(VLT::VLTView *view, VLT_VcdFile *record = nullptr)
        : dialog(view, nullptr, record)
    {
        dialog.show();
    }

    template<class Widget>
    Widget *find(const char *name) const
    {
        return dialog.findChild<Widget *>(QLatin1String(name));
    }
    QLineEdit *edit(const char *name) const { return find<QLineEdit>(name); }
    QRadioButton *radio(const char *name) const { return find<QRadioButton>(name); }

    void pressOk() const
    {
        QTest::mouseClick(find<QDialogButtonBox>("buttonBox")->button(QDialogButtonBox::Ok),
                          Qt::LeftButton);
    }

    /// Presses Ok and gives the text of the warning that comes.
    QString refusal() const
    {
        ModalDriver driver(pressButton(QMessageBox::Ok));
        pressOk();
        if (driver.title() != QLatin1String("Warning") || !dialog.isVisible())
            return QStringLiteral("not a refusal: ") + driver.title();
        return driver.text();
    }

    VcdFileSetDialog dialog;
};

} // namespace

class TestVcdFileSetDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup() { QLocale::setDefault(QLocale::c()); }
    void reportsFirstProblem();
    void checksTimes_data();
    void checksTimes();
    void acceptsOnlyTimes_data();
    void acceptsOnlyTimes();
    void editsExistingRecord();
    void choosesFileAndInstance();

private:
    const TestHost m_host;
    std::unique_ptr<VLT::VLTView> m_view;
    QString m_file; ///< an activity file that exists
};

void TestVcdFileSetDialog::initTestCase()
{
    QString error;
    NlsData::Netlist *netlist = NlsData::readNetlistFile(m_host.netlistPath(), &error, false);
    QVERIFY2(netlist, qPrintable(error));
    m_view = std::make_unique<VLT::VLTView>(m_host.device(), netlist);
    m_file = m_host.write(QStringLiteral("run one.vcd"), "$end");
}

void TestVcdFileSetDialog::reportsFirstProblem()
{
    const Form form(m_view.get());
    form.edit("editEndTime")->setText(QStringLiteral("0"));
    const auto type = [&form](const QString &path) {
        form.edit("editFile")->clear();
        QTest::keyClicks(form.edit("editFile"), path);
    };
    type(QStringLiteral("  "));
    QCOMPARE(form.refusal(), QStringLiteral("No vcd file. Please select vcd file."));
    const QString missing = m_host.path(QStringLiteral("<b>%1.vcd"));
    type(missing);
    QCOMPARE(form.refusal(),
             QStringLiteral("Vcd file '") + missing + QStringLiteral("' doesn't exist."));
    type(QStringLiteral(" ") + m_file + QStringLiteral("  "));
    QCOMPARE(form.refusal(),
             QStringLiteral("Module instance name is empty. Please select instance."));
    form.edit("editInstance")->setText(QStringLiteral("core"));
    QCOMPARE(form.refusal(), QStringLiteral("End time value cannot be 0."));
    QVERIFY(!form.dialog.data());

    form.edit("editEndTime")->clear();
    form.pressOk();
    QCOMPARE(form.dialog.result(), int(QDialog::Accepted));
    const std::unique_ptr<VLT_VcdFile> record(form.dialog.data());
    QVERIFY(record);
    QCOMPARE(record->file, m_file);
    QCOMPARE(record->entity, QStringLiteral("core"));
    QVERIFY(record->isVcd);
    QVERIFY(record->startTime.isEmpty() && record->endTime.isEmpty());
    QCOMPARE(record->timeUnit, QStringLiteral("s"));
}

void TestVcdFileSetDialog::checksTimes_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("stored"); // end time, or the refusal
    const auto row = [](const char *name, const char *start, const char *end, const char *stored) {
        QTest::newRow(name) << QString::fromLatin1(start) << QString::fromLatin1(end)
                            << QString::fromLatin1(stored);
    };
    const char *zero = "End time value cannot be 0.";
    const char *order = "End time value must be greater than start time value.";
    row("none", "", "", "");
    row("start", "5", "", "");
    row("end", "", "0.001", "0.001");
    row("compared as numbers", "9", "10", "10");
    row("unfinished", "5", "6.", "6");
    row("zero", "", "0", zero);
    row("zero after start", "5", "0.000", zero);
    row("equal", "5", "5", order);
    row("reversed", "5.001", "5", order);
    // A file may have any text, so the fields may, too.
    row("infinite start", "inf", "1", "1");
    row("infinite end", "", "inf", zero);
    row("no number", "", "x", zero);
    row("negative", "", "-1", order);
}

void TestVcdFileSetDialog::checksTimes()
{
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(QString, stored);
    VLT_VcdFile record{m_file, QStringLiteral("core"), true, start, end, QStringLiteral("ns")};
    const Form form(m_view.get(), &record);
    if (stored.startsWith(QLatin1String("End time"))) {
        QCOMPARE(form.refusal(), stored);
        return;
    }
    form.pressOk();
    QCOMPARE(form.dialog.result(), int(QDialog::Accepted));
    QCOMPARE(record.startTime, start);
    QCOMPARE(record.endTime, stored);
    QCOMPARE(record.timeUnit, QStringLiteral("ns"));
}

void TestVcdFileSetDialog::acceptsOnlyTimes_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("12,5") << "12.5";
    QTest::newRow("007") << "0";
    QTest::newRow("-1e3") << "13";
    QTest::newRow("1234567890.1234") << "123456789.123";
}

void TestVcdFileSetDialog::acceptsOnlyTimes()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const Form form(m_view.get());
    QLineEdit *edit = form.edit("editStartTime");
    QTest::keyClicks(edit, QLatin1String(QTest::currentDataTag()));
    QTEST(edit->text(), "text");
}

void TestVcdFileSetDialog::editsExistingRecord()
{
    const QString unit = QStringLiteral("ps");
    VLT_VcdFile record{
        m_file, QStringLiteral("core"), true, QStringLiteral("1"), QStringLiteral("2"), unit};
    {
        const Form form(m_view.get(), &record);
        QCOMPARE(form.find<QComboBox>("comboTimeUnit")->currentText(), unit);
        QTest::mouseClick(form.radio("radioSaif"), Qt::LeftButton);
        QVERIFY(!form.find<QGroupBox>("groupTime")->isEnabled());
        QTest::keyClick(form.edit("editFile"), Qt::Key_Escape);
    }
    QVERIFY(record.isVcd);
    {
        const Form form(m_view.get(), &record);
        QTest::mouseClick(form.radio("radioSaif"), Qt::LeftButton);
        QTest::mouseClick(form.radio("radioVcd"), Qt::LeftButton);
        QCOMPARE(form.edit("editEndTime")->text(), QStringLiteral("2")); // kept meanwhile
        QTest::mouseClick(form.radio("radioSaif"), Qt::LeftButton);
        form.pressOk();
        QCOMPARE(form.dialog.data(), &record);
    }
    QVERIFY(!record.isVcd && record.startTime.isEmpty() && record.endTime.isEmpty());
    QCOMPARE(record.timeUnit, unit);
    const Form form(m_view.get(), &record);
    QVERIFY(form.radio("radioSaif")->isChecked());
    QCOMPARE(form.find<QComboBox>("comboTimeUnit")->currentText(), QStringLiteral("s"));
}

void TestVcdFileSetDialog::choosesFileAndInstance()
{
    const Form form(m_view.get());
    {
        ModalDriver driver([this](QWidget *chooser) {
            auto *name = chooser->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
            name->setText(m_file);
            QTest::keyClick(name, Qt::Key_Return);
        });
        QTest::mouseClick(form.find<QToolButton>("btnSelectFile"), Qt::LeftButton);
        QCOMPARE(driver.title(), QStringLiteral("Select VCD File"));
    }
    QCOMPARE(form.edit("editFile")->text(), QDir::toNativeSeparators(m_file));
    const auto chooseInstance = [&form](const char *filter, Qt::Key key) {
        ModalDriver driver([filter, key](QWidget *dialog) {
            auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("lineEditFilter"));
            QTest::keyClicks(edit, QLatin1String(filter));
            auto *list = dialog->findChild<QListWidget *>(QStringLiteral("listWidget"));
            QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                              list->visualItemRect(list->item(0)).center());
            QTest::keyClick(list, key);
        });
        QTest::mouseClick(form.find<QToolButton>("btnSelectInstance"), Qt::LeftButton);
    };
    chooseInstance("STATE", Qt::Key_Return);
    QCOMPARE(form.edit("editInstance")->text(), QStringLiteral("core/state_reg"));
    chooseInstance("", Qt::Key_Escape);
    QCOMPARE(form.edit("editInstance")->text(), QStringLiteral("core/state_reg"));
    chooseInstance("", Qt::Key_Return);
    QCOMPARE(form.edit("editInstance")->text(), QStringLiteral("top"));
}

QTEST_MAIN(TestVcdFileSetDialog)
#include "test_vcdfilesetdialog.moc"
