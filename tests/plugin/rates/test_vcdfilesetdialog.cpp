#include "rates/vcdfilesetdialog.h"

#include "config/records.h"
#include "document/vltview.h"

#include "support/modaldriver.h"
#include "support/testhost.h"

#include "nlsdata/netlistreader.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QtTest>

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
    void checksTimes();
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

void TestVcdFileSetDialog::checksTimes()
{
    const char *zero = "End time value cannot be 0.";
    const char *order = "End time value must be greater than start time value.";
    struct Case
    {
        const char *start, *end, *refusal;
    };
    // A file may hold any text, so that the fields may too.
    const Case cases[] = {
        {"", "", ""},      {"5", "", ""},    {"", "0.001", ""}, {"9", "10", ""},
        {"5", "6.", ""},   {"inf", "1", ""}, {"", "0", zero},   {"5", "0.000", zero},
        {"", "inf", zero}, {"", "x", zero},  {"5", "5", order}, {"5.001", "5", order},
        {"", "-1", order},
    };
    for (const Case &times : cases) {
        VLT_VcdFile record{m_file,
                           QStringLiteral("core"),
                           true,
                           QLatin1String(times.start),
                           QLatin1String(times.end),
                           QStringLiteral("ns")};
        const Form form(m_view.get(), &record);
        if (*times.refusal) {
            QCOMPARE(form.refusal(), QLatin1String(times.refusal));
            continue;
        }
        form.pressOk();
        QCOMPARE(form.dialog.result(), int(QDialog::Accepted));
        QString end = QLatin1String(times.end);
        if (end.endsWith(QLatin1Char('.'))) // unfinished
            end.chop(1);
        QCOMPARE(record.startTime + record.endTime + record.timeUnit,
                 QLatin1String(times.start) + end + QLatin1String("ns"));
    }
}

void TestVcdFileSetDialog::acceptsOnlyTimes()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const Form form(m_view.get());
    QLineEdit *edit = form.edit("editStartTime");
    const QList<QPair<const char *, const char *>> cases = {
        {"12,5", "12.5"}, {"007", "0"}, {"-1e3", "13"}, {"1234567890.1234", "123456789.123"}};
    for (const auto &[keys, text] : cases) {
        edit->clear();
        QTest::keyClicks(edit, QLatin1String(keys));
        QCOMPARE(edit->text(), QLatin1String(text));
    }
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
