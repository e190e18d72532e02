#include "utils/fileutils.h"

#include "support/modaldriver.h"
#include "support/testhost.h"

#include <QLineEdit>
#include <QtTest>

using Utils::FileUtils;

class TestFileUtils : public QObject
{
    Q_OBJECT

private slots:
    void remembersFolderPerCaption();
    void survivesParentDeletion();
};

void TestFileUtils::remembersFolderPerCaption()
{
    TestHost host;
    for (const char *name : {"x.vcd", "a/x.vcd", "b/x.vcd"})
        host.write(QLatin1String(name), "x");
    // Chooses x.vcd in the dialog and tells in which folder that started.
    const auto choose = [](const char *caption, const QString &folder) {
        QString started;
        ModalDriver driver([&](QWidget *dialog) {
            started = qobject_cast<QFileDialog *>(dialog)->directory().dirName();
            auto *edit = dialog->findChild<QLineEdit *>();
            edit->setText(QStringLiteral("x.vcd"));
            QTest::keyClick(edit, Qt::Key_Return);
        });
        FileUtils::getOpenFileName(nullptr, QString::fromLatin1(caption), folder,
                                   QStringLiteral("VCD (*.vcd)"), nullptr,
                                   QFileDialog::DontUseNativeDialog);
        return started;
    };
    QCOMPARE(choose("A/x", host.path(QStringLiteral("a"))), QStringLiteral("a"));
    QCOMPARE(choose("B", host.path(QStringLiteral("b"))), QStringLiteral("b"));
    QCOMPARE(choose("A/x", QString()), QStringLiteral("a"));
    QCOMPARE(choose("B", QString()), QStringLiteral("b"));
    QCOMPARE(choose("new", QString()), QDir(host.path(QString())).dirName());
}

void TestFileUtils::survivesParentDeletion()
{
    TestHost host;
    auto *parent = new QWidget;
    ModalDriver driver([parent](QWidget *) { delete parent; });
    QCOMPARE(FileUtils::getOpenFileName(parent, QStringLiteral("A"), QString(), QString(), nullptr,
                                        QFileDialog::DontUseNativeDialog),
             QString());
}

QTEST_MAIN(TestFileUtils)
#include "test_fileutils.moc"
