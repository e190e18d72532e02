#include "faults.h"

#include "config/safewrite.h"
#include "config/vlrfile.h"
#include "document/vltview.h"
#include "frame/newfiledialog.h"
#include "frame/vltsettingplugin.h"
#include "frame/vltviewmanager.h"
#include "host/core/projectfile.h"
#include "support/testhost.h"

#include <QtTest>
#include <QtWidgets>

#include <cerrno>

namespace {

/// Presses the default button of every message that opens, and keeps what it said.
class Messages : public QObject
{
public:
    Messages()
    {
        connect(&m_timer, &QTimer::timeout, this, [this] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                texts << box->text();
                box->accept();
            }
        });
        m_timer.start(0);
    }
    QStringList texts;

private:
    QTimer m_timer;
};

/// One way to save a file, on a system that works until a fault is armed.
struct Saver
{
    QString file; ///< path inside the folder of the host
    std::function<bool()> save;
    std::function<bool()> isModified; ///< null when there is no such state
    std::shared_ptr<void> holder;     ///< keeps what the functions use
};

Saver configurationSaver(TestHost *host)
{
    VLT::VLTViewManager::openView(host->device(),
                                  host->write(QStringLiteral("a.vlr"), VLT::emptyFile()));
    VLT::VLTView *view = VLT::VLTViewManager::vltViews().value(0);
    view->findChild<QDoubleSpinBox *>(QStringLiteral("spinAmbTemp"))->setValue(33);
    return {QStringLiteral("a.vlr"), [view] { return view->save(); },
            [view] { return view->isModified(); }, nullptr};
}

Saver projectSaver(TestHost *)
{
    return {QStringLiteral("test.fpgaproj"),
            [] {
                auto *project = Core::ProjectFile::current();
                const QSignalSpy failures(project, &Core::ProjectFile::saveFailed);
                project->setName(QStringLiteral("renamed"));
                return failures.isEmpty();
            },
            nullptr, nullptr};
}

Saver wizardSaver(TestHost *host)
{
    const auto dialog = std::make_shared<VLT::NewFileDialog>(QString(), nullptr);
    dialog->findChild<QLineEdit *>(QStringLiteral("editName"))->setText(QStringLiteral("new"));
    dialog->findChild<QLineEdit *>(QStringLiteral("editCreateIn"))->setText(host->path(QString()));
    dialog->findChild<QCheckBox *>(QStringLiteral("checkBoxAddToCurrent"))->setChecked(false);
    return {QStringLiteral("new.vlr"),
            [dialog] {
                dialog->accept();
                return dialog->result() == QDialog::Accepted;
            },
            nullptr, dialog};
}

Saver namesSaver(TestHost *host)
{
    const QString path = host->write(QStringLiteral("a.vlr.names"), QByteArray(20000, 'o'));
    return {QStringLiteral("a.vlr.names"),
            [path] { return VLT::replaceFile(path, QByteArray(30000, 'n')).isWritten(); }, nullptr,
            nullptr};
}

} // namespace

/// Saves while the system fails at one operation, for every operation that a save consists of.
class TestFaults : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QVERIFY(m_plugin.initialize()); }
    void cleanupTestCase() { m_plugin.shutDown(); }

    void savesWholeOrNotAtAll_data();
    void savesWholeOrNotAtAll();

private:
    static QStringList filesIn(const TestHost &host)
    {
        return QDir(host.path(QString()))
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    VLT::VLTSettingPlugin m_plugin;
};

void TestFaults::savesWholeOrNotAtAll_data()
{
    using MakeSaver = Saver (*)(TestHost *);
    QTest::addColumn<void *>("maker");
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("tells");
    const auto add = [](const char *name, MakeSaver make, bool tells) {
        for (const int code : {ENOSPC, EIO})
            QTest::addRow("%s, %s", name, code == EIO ? "broken disk" : "full disk")
                << reinterpret_cast<void *>(make) << code << tells;
    };
    add("configuration", configurationSaver, true);
    add("project", projectSaver, false);
    add("wizard", wizardSaver, true);
    add("memory of names", namesSaver, false);
}

void TestFaults::savesWholeOrNotAtAll()
{
    QFETCH(void *, maker);
    QFETCH(int, code);
    QFETCH(bool, tells);
    const auto make = reinterpret_cast<Saver (*)(TestHost *)>(maker);
    QByteArray wanted;
    {
        TestHost host;
        const Saver saver = make(&host);
        QVERIFY(saver.save());
        wanted = host.read(saver.file);
        QVERIFY(!wanted.isEmpty());
    }
    int refused = 0;
    for (int at = 1;; ++at) {
        TestHost host;
        const Saver saver = make(&host);
        const QByteArray before = host.read(saver.file);
        const QStringList files = filesIn(host);
        Messages messages;
        bool saved = false;
        {
            const Fault fault(host.path(QString()), at, code);
            saved = saver.save();
        }
        const QByteArray context = QByteArray::number(at);
        QVERIFY2(host.read(saver.file) == (saved ? wanted : before), context);
        if (!files.contains(saver.file) && !saved)
            QVERIFY2(!QFile::exists(host.path(saver.file)), context);
        QStringList expected = files;
        if (saved && !expected.contains(saver.file))
            expected << saver.file;
        expected.sort();
        QStringList actual = filesIn(host);
        actual.sort();
        QCOMPARE(actual, expected);
        if (saver.isModified)
            QCOMPARE(saver.isModified(), !saved);
        if (tells)
            QCOMPARE(messages.texts.isEmpty(), saved);
        refused += saved ? 0 : 1;
        if (!Fault::hasStruck()) {
            QVERIFY(saved);
            QVERIFY2(at > 2 && refused > 0, "the faults do not reach the library");
            return;
        }
    }
}

QTEST_MAIN(TestFaults)

#include "test_faults.moc"
