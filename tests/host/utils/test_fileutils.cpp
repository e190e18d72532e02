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
    void remembersTheFolderOfEachCaption();
    void survivesTheEndOfItsParent();
};

void TestFileUtils::remembersTheFolderOfEachCaption()
{
    TestHost host;
    host.write(QStringLiteral("a/one.vcd"), "x");
    host.write(QStringLiteral("b/two.vcd"), "x");
    // Chooses `name` in the dialog and tells in which folder it had started.
    const auto choose = [](const char *caption, const QString &folder, const char *name,
                           QString *started) {
        ModalDriver driver([&](QWidget *widget) {
            auto *dialog = qobject_cast<QFileDialog *>(widget);
            QVERIFY(dialog);
            *started = dialog->directory().dirName();
            if (!name)
                return QTest::keyClick(dialog, Qt::Key_Escape);
            auto *edit = dialog->findChild<QLineEdit *>();
            edit->setText(QString::fromLatin1(name));
            QTest::keyClick(edit, Qt::Key_Return);
        });
        return FileUtils::getOpenFileName(nullptr, QString::fromLatin1(caption), folder,
                                          QStringLiteral("VCD (*.vcd)"), nullptr,
                                          QFileDialog::DontUseNativeDialog);
    };
    QString started;
    QCOMPARE(choose("A/x", host.path(QStringLiteral("a")), "one.vcd", &started),
             host.path(QStringLiteral("a/one.vcd")));
    QCOMPARE(started, QStringLiteral("a"));
    QCOMPARE(choose("B", host.path(QStringLiteral("b")), "two.vcd", &started),
             host.path(QStringLiteral("b/two.vcd")));
    QCOMPARE(choose("A/x", QString(), nullptr, &started), QString());
    QCOMPARE(started, QStringLiteral("a"));
    choose("B", QString(), nullptr, &started);
    QCOMPARE(started, QStringLiteral("b"));
    choose("new", QString(), nullptr, &started);
    QCOMPARE(started, QDir(host.path(QString())).dirName());
}

void TestFileUtils::survivesTheEndOfItsParent()
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
