#include "config/vlrfile.h"
#include "frame/newfiledialog.h"
#include "frame/vlxwizardfactory.h"
#include "support/modaldriver.h"
#include "support/testhost.h"

#include "core/projectmanager.h"
#include "host/core/projectfile.h"

#include <QtTest>
#include <QtWidgets>

#include <csignal>
#include <sys/resource.h>

class TestNewFileDialog : public QObject
{
    Q_OBJECT

private slots:
    void showsErrorsInLabel();
    void failedCreationLeavesNoFile();
    void createsFileInNewFolder();
};

namespace {

void fill(QWidget *dialog, const char *field, const QString &text)
{
    auto *edit = dialog->findChild<QLineEdit *>(QString::fromLatin1(field));
    edit->clear();
    QTest::keyClicks(edit, text);
}

/// Presses Ok and gives the message that this leaves; an empty one when the dialog has closed.
QString pressOk(QWidget *dialog)
{
    auto *box = dialog->findChild<QDialogButtonBox *>();
    QTest::mouseClick(box->button(QDialogButtonBox::Ok), Qt::LeftButton);
    return dialog->isVisible() ? dialog->findChild<QLabel *>(QStringLiteral("labelInfo"))->text()
                               : QString();
}

} // namespace

void TestNewFileDialog::showsErrorsInLabel()
{
    TestHost host;
    const QString taken = host.write(QStringLiteral("sub/taken.vlr"), "x");
    ModalDriver driver([&](QWidget *dialog) {
        QCOMPARE(pressOk(dialog), QStringLiteral("Please enter a name."));
        fill(dialog, "editName", QStringLiteral("taken"));
        fill(dialog, "editCreateIn", QString());
        QCOMPARE(pressOk(dialog), QStringLiteral("Please enter a path."));
        fill(dialog, "editCreateIn", taken + QStringLiteral("/below"));
        QCOMPARE(pressOk(dialog),
                 QStringLiteral("Cannot make the path %1.").arg(taken + QStringLiteral("/below")));
        fill(dialog, "editCreateIn", host.path(QStringLiteral("sub/")));
        QCOMPARE(pressOk(dialog), QStringLiteral("File %1 already exists.").arg(taken));

        // A name that no file can have.
        fill(dialog, "editName", QString(300, QLatin1Char('n')));
        ModalDriver box(pressButton(QMessageBox::Ok));
        pressOk(dialog);
        QCOMPARE(box.title(), QStringLiteral("Error"));
        QVERIFY(box.text().startsWith(QStringLiteral("Can not create file ")));
        QVERIFY(dialog->isVisible());
    });
    VLT::VLXWizardFactory().runWizard(nullptr, host.path(QStringLiteral("sub")));
    QCOMPARE(host.read(QStringLiteral("sub/taken.vlr")), QByteArray("x"));
}

void TestNewFileDialog::failedCreationLeavesNoFile()
{
    TestHost host;
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    getrlimit(RLIMIT_FSIZE, &before);
    ModalDriver driver([&](QWidget *dialog) {
        fill(dialog, "editName", QStringLiteral("a"));
        const rlimit tooSmall = {10, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &tooSmall); // as on a full disk
        ModalDriver box(pressButton(QMessageBox::Ok));
        pressOk(dialog);
        setrlimit(RLIMIT_FSIZE, &before);
        QCOMPARE(box.title(), QStringLiteral("Error"));
        QVERIFY(!QFile::exists(host.path(QStringLiteral("a.vlr"))));
        QCOMPARE(pressOk(dialog), QString());
    });
    VLT::VLXWizardFactory().runWizard(nullptr, host.path(QString()));
    QCOMPARE(host.read(QStringLiteral("a.vlr")), VLT::emptyFile());
}

void TestNewFileDialog::createsFileInNewFolder()
{
    TestHost host;
    ModalDriver driver([&](QWidget *dialog) {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("New VLR Config File"));
        fill(dialog, "editName", QStringLiteral("a.vlr"));
        fill(dialog, "editCreateIn", host.path(QStringLiteral("new/folder/")));
        QCOMPARE(pressOk(dialog), QString());
    });
    VLT::VLXWizardFactory().runWizard(nullptr, host.path(QString()));
    QCOMPARE(host.read(QStringLiteral("new/folder/a.vlr.vlr")),
             QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>\n<Config/>"));
    const auto files = Core::ProjectFile::of(Core::ProjectManager::currentProject())->files();
    QVERIFY(files.contains(host.path(QStringLiteral("new/folder/a.vlr.vlr"))));
}

QTEST_MAIN(TestNewFileDialog)

#include "test_newfiledialog.moc"
