#include "faults.h"

#include "check/names/nameplan.h"
#include "config/vlrfile.h"
#include "document/vltview.h"
#include "frame/newfiledialog.h"
#include "frame/vltsettingplugin.h"
#include "frame/vltviewmanager.h"
#include "host/core/projectfile.h"
#include "host/nlsdata/readnetlist.h"
#include "nlsdata/netlist.h"
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
    std::function<bool()> isMarked; ///< modified, or with an error; null when nothing shows it
    std::shared_ptr<void> holder;   ///< keeps what the functions use
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

/// What the checks write: the memory of names, or a configuration with another name in it.
struct NamesWriter
{
    explicit NamesWriter(TestHost *host)
        : input(Check::readConfigurationInput(host->write(
              QStringLiteral("a.vlr"),
              QByteArray(VLT::emptyFile())
                  .replace("<Config/>", "<Config><LocalEnable><Instance name=\"q_reg0\"/>"
                                        "</LocalEnable></Config>"))))
    {
        NlsData::ReadOptions options;
        options.allNames = true;
        netlist = NlsData::readNetlistText(host->defaultNetlist().toStdString(),
                                           QStringLiteral("test"), nullptr, options);
        design = std::make_unique<Check::DesignNames>(*netlist);
    }
    bool record(char digit)
    {
        return recordNames(input, *design, QByteArray(64, digit), {}, &error);
    }
    bool rename()
    {
        return applyPlan(
            {{},
             {{QStringLiteral("Instance"), 1, QStringLiteral("q_reg0"), QStringLiteral("q_reg1")}}},
            input, *design, QByteArray(64, 'a'), false, nullptr, &error);
    }

    Check::ConfigurationInput input;
    std::unique_ptr<NlsData::Netlist> netlist;
    std::unique_ptr<Check::DesignNames> design;
    QString error;
};

Saver namesSaver(TestHost *host)
{
    const auto writer = std::make_shared<NamesWriter>(host);
    writer->record('a');
    return {QStringLiteral("a.vlr.names"), [writer] { return writer->record('b'); },
            [writer] { return !writer->error.isEmpty(); }, nullptr};
}

Saver planSaver(TestHost *host)
{
    const auto writer = std::make_shared<NamesWriter>(host);
    return {QStringLiteral("a.vlr"), [writer] { return writer->rename(); },
            [writer] { return !writer->error.isEmpty(); }, nullptr};
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
    add("changed names", planSaver, false);
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
        if (saver.isMarked)
            QCOMPARE(saver.isMarked(), !saved);
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
