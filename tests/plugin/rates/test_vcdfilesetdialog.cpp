#include "rates/vcdfilesetdialog.h"

#include "document/vltview.h"
#include "rates/vltvcdfile.h"

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
    void startsEmpty();
    void refusesInOrder();
    void checksTimes_data();
    void checksTimes();
    void typesOnlyTimes();
    void storesNoTimesForSaif();
    void editsInPlace();
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

void TestVcdFileSetDialog::startsEmpty()
{
    const Form form(m_view.get());
    QCOMPARE(form.dialog.windowTitle(), QStringLiteral("Add Vcd File"));
    QVERIFY(form.radio("radioVcd")->isChecked());
    QVERIFY(form.find<QGroupBox>("groupTime")->isEnabled());
    QCOMPARE(form.find<QComboBox>("comboTimeUnit")->currentText(), QStringLiteral("s"));
    QVERIFY(form.edit("editInstance")->isReadOnly());
    QVERIFY(!form.dialog.data());
}

void TestVcdFileSetDialog::refusesInOrder()
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
    type(m_host.path(QString())); // a folder is no file
    QVERIFY(form.refusal().endsWith(QStringLiteral("' doesn't exist.")));
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
    QTest::addColumn<QString>("refusal");
    const QString zero = QStringLiteral("End time value cannot be 0.");
    const QString order = QStringLiteral("End time value must be greater than start time value.");
    const auto row = [](const char *start, const char *end, const QString &refusal) {
        QTest::addRow("%s to %s", start, end)
            << QString::fromLatin1(start) << QString::fromLatin1(end) << refusal;
    };
    row("", "", QString());
    row("5", "", QString());
    row("", "0.001", QString());
    row("0", "0.001", QString());
    row("9", "10", QString()); // by number, not by text
    row("5", "6.", QString());
    row("", "0", zero);
    row("5", "0.000", zero);
    row("5", "5", order);
    row("5.001", "5", order);
    // A file may hold any text.
    row("", "inf", zero);
    row("", "x", zero);
    row("", "-1", order);
    row("inf", "1", QString());
}

void TestVcdFileSetDialog::checksTimes()
{
    QFETCH(QString, start);
    QFETCH(QString, end);
    QFETCH(QString, refusal);
    VLT_VcdFile record{m_file, QStringLiteral("core"), true, start, end, QStringLiteral("ns")};
    const Form form(m_view.get(), &record);
    if (refusal.isEmpty()) {
        form.pressOk();
        QCOMPARE(form.dialog.result(), int(QDialog::Accepted));
        QCOMPARE(record.startTime, start);
        QCOMPARE(record.endTime, end);
    } else {
        QCOMPARE(form.refusal(), refusal);
    }
    QCOMPARE(record.timeUnit, QStringLiteral("ns"));
}

void TestVcdFileSetDialog::typesOnlyTimes()
{
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const Form form(m_view.get());
    QLineEdit *edit = form.edit("editStartTime");
    const auto typed = [edit](const char *keys) {
        edit->clear();
        QTest::keyClicks(edit, QLatin1String(keys));
        return edit->text();
    };
    QCOMPARE(typed("12,5"), QStringLiteral("12.5"));
    QCOMPARE(typed("007"), QStringLiteral("0"));
    QCOMPARE(typed("-1e3"), QStringLiteral("13"));
    QCOMPARE(typed("1234567890.1234"), QStringLiteral("123456789.123"));
}

void TestVcdFileSetDialog::storesNoTimesForSaif()
{
    VLT_VcdFile record{m_file, QStringLiteral("core"), true, QString(), QString(), QString()};
    const Form form(m_view.get(), &record);
    QTest::keyClicks(form.edit("editStartTime"), QStringLiteral("7"));
    QTest::keyClicks(form.edit("editEndTime"), QStringLiteral("3"));
    QTest::mouseClick(form.radio("radioSaif"), Qt::LeftButton);
    QVERIFY(!form.find<QGroupBox>("groupTime")->isEnabled());
    QTest::mouseClick(form.radio("radioVcd"), Qt::LeftButton);
    QCOMPARE(form.edit("editStartTime")->text(), QStringLiteral("7"));
    QTest::mouseClick(form.radio("radioSaif"), Qt::LeftButton);
    form.pressOk();
    QVERIFY(!record.isVcd);
    QVERIFY(record.startTime.isEmpty() && record.endTime.isEmpty());
    QCOMPARE(record.timeUnit, QStringLiteral("s"));
}

void TestVcdFileSetDialog::editsInPlace()
{
    VLT_VcdFile record{QStringLiteral("gone.saif"), QStringLiteral("top"), false,
                       QStringLiteral("1"),         QStringLiteral("2"),   QStringLiteral("ns")};
    {
        // The times of a SAIF record are not shown.
        const Form form(m_view.get(), &record);
        QVERIFY(form.radio("radioSaif")->isChecked());
        QVERIFY(form.edit("editStartTime")->text().isEmpty());
        QCOMPARE(form.find<QComboBox>("comboTimeUnit")->currentText(), QStringLiteral("s"));
        form.edit("editFile")->setText(m_file);
        QTest::keyClick(form.edit("editFile"), Qt::Key_Escape);
    }
    QCOMPARE(record.file, QStringLiteral("gone.saif"));

    record.isVcd = true;
    record.timeUnit = QStringLiteral("NS"); // no unit of ours
    const Form form(m_view.get(), &record);
    QCOMPARE(form.find<QComboBox>("comboTimeUnit")->currentText(), QStringLiteral("s"));
    QCOMPARE(form.edit("editEndTime")->text(), QStringLiteral("2"));
    form.edit("editFile")->setText(m_file);
    QTest::keyClicks(form.find<QComboBox>("comboTimeUnit"), QStringLiteral("p"));
    form.pressOk();
    QCOMPARE(form.dialog.data(), &record);
    QCOMPARE(record.file, m_file);
    QCOMPARE(record.timeUnit, QStringLiteral("ps"));
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
