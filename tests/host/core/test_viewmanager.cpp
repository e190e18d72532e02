#include "core/viewmanager.h"

#include "core/iview.h"
#include "host/core/viewmanager_p.h"
#include "support/modaldriver.h"

#include <QCloseEvent>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabWidget>
#include <QTextDocument>
#include <QtTest>

#include <functional>

using namespace Core;

namespace {

class View : public IView
{
public:
    explicit View(const char *name, QStringList *log)
        : m_log(log)
    {
        setObjectName(QString::fromLatin1(name));
        setShortTitle(objectName());
    }
    ~View() override { note("gone"); }

    void onActivated() override { note("on"); }
    void onDeactivated() override { note("off"); }
    void note(const char *what) { m_log->append(objectName() + QString::fromLatin1(what)); }

    std::function<bool()> mayClose;

protected:
    void closeEvent(QCloseEvent *event) override
    {
        note("asked");
        event->setAccepted(!mayClose || mayClose());
    }

private:
    QStringList *const m_log;
};

} // namespace

class TestViewManager : public QObject
{
    Q_OBJECT

private:
    QString takeLog();
    void deleteDeferred() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

    ViewManager *const m_manager = ViewManager::instance();
    ViewManagerPrivate *const m_host = ViewManagerPrivate::get();
    QStringList m_log;

private slots:
    void init();
    void cleanup();
    void activatesAndCloses();
    void keepsARefusingView();
    void closesThroughAnyDoor_data();
    void closesThroughAnyDoor();
    void doesNotTakeAnOpenQuestionForAnAnswer_data();
    void doesNotTakeAnOpenQuestionForAnAnswer();
    void closesTheDialogsOfAViewAndThenFreesIt();
    void survivesViewsThatAreDestroyed();
    void closesAllUntilOneRefuses();
    void tellsContexts();
    void showsTitlesAsPlainText();
};

void TestViewManager::init()
{
    connect(m_manager, &ViewManager::viewActiveted, this, [this](IView *view) {
        m_log.append(QLatin1Char('>') + (view ? view->objectName() : QString()));
    });
    connect(m_manager, &ViewManager::viewClosed, this, [this](IView *view) {
        m_log.append(view->objectName() + QLatin1String("closed"));
        QVERIFY(dynamic_cast<View *>(view)); // it still is what it was
    });
}

void TestViewManager::cleanup()
{
    m_manager->disconnect(this);
    m_host->discardAllViews();
    deleteDeferred();
    m_log.clear();
}

QString TestViewManager::takeLog()
{
    const QString log = m_log.join(QLatin1Char(' '));
    m_log.clear();
    return log;
}

void TestViewManager::activatesAndCloses()
{
    auto *a = new View("a", &m_log);
    auto *b = new View("b", &m_log);
    m_manager->showView(a);
    QCOMPARE(takeLog(), QStringLiteral("aon >a"));
    m_manager->showView(b);
    QCOMPARE(takeLog(), QStringLiteral("aoff bon >b"));
    m_manager->showView(b);
    QCOMPARE(takeLog(), QString());
    m_manager->showView(a);
    QCOMPARE(takeLog(), QStringLiteral("boff aon >a"));
    QCOMPARE(m_host->views(), QList<IView *>({a, b}));

    QVERIFY(m_manager->closeView(a));
    QCOMPARE(takeLog(), QStringLiteral("aasked aclosed aoff bon >b"));
    m_manager->showView(a); // too late
    QCOMPARE(m_host->views(), QList<IView *>({b}));
    deleteDeferred();
    QCOMPARE(takeLog(), QStringLiteral("agone"));
    QVERIFY(m_manager->closeView(b));
    QCOMPARE(takeLog(), QStringLiteral("basked bclosed boff >"));
    QVERIFY(!m_host->activeView());
    QVERIFY(!m_manager->closeView(nullptr));
}

void TestViewManager::keepsARefusingView()
{
    auto *a = new View("a", &m_log);
    m_manager->showView(a);
    takeLog();
    a->mayClose = [] { return false; };
    QVERIFY(!m_manager->closeView(a));
    QVERIFY(!a->close());
    deleteDeferred();
    QCOMPARE(takeLog(), QStringLiteral("aasked aasked"));
    QCOMPARE(m_host->area()->currentWidget(), a);
    QVERIFY(!a->isHidden());
}

void TestViewManager::closesThroughAnyDoor_data()
{
    QTest::addColumn<int>("door");
    QTest::newRow("manager") << 0;
    QTest::newRow("the widget itself") << 1;
    QTest::newRow("the tab's button") << 2;
    QTest::newRow("the widget, deleting itself") << 3;
}

void TestViewManager::closesThroughAnyDoor()
{
    QFETCH(int, door);
    auto *a = new View("a", &m_log);
    m_manager->showView(a);
    takeLog();
    if (door == 0)
        m_manager->closeView(a);
    else if (door == 2)
        emit m_host->area()->tabCloseRequested(0);
    if (door == 3)
        a->setAttribute(Qt::WA_DeleteOnClose);
    if (door == 1 || door == 3)
        QVERIFY(a->close());
    deleteDeferred();
    QCOMPARE(takeLog(), QStringLiteral("aasked aclosed aoff > agone"));
    QCOMPARE(m_host->area()->count(), 0);
}

void TestViewManager::doesNotTakeAnOpenQuestionForAnAnswer_data()
{
    QTest::addColumn<bool>("answer");
    QTest::addColumn<bool>("secondAnswer");
    QTest::addColumn<QString>("log");
    QTest::newRow("yes") << true << true << "aasked aclosed aoff > agone";
    QTest::newRow("no, then yes") << false << true << "aasked aasked aclosed aoff > agone";
    QTest::newRow("no and no") << false << false << "aasked aasked";
}

/// Somebody asks for the view's end while its own question about it is open.
void TestViewManager::doesNotTakeAnOpenQuestionForAnAnswer()
{
    QFETCH(bool, answer);
    QFETCH(bool, secondAnswer);
    QFETCH(QString, log);
    auto *a = new View("a", &m_log);
    m_manager->showView(a);
    takeLog();
    a->mayClose = [&] {
        QMessageBox question(QMessageBox::Question, QString(), QString(),
                             QMessageBox::Yes | QMessageBox::No, a);
        ModalDriver driver([&](QWidget *dialog) {
            QVERIFY(!m_manager->closeView(a));
            emit m_host->area()->tabCloseRequested(0);
            a->close(); // answers true without asking: Qt's own guard
            QVERIFY(!m_host->closeAllViews());
            deleteDeferred();
            QCOMPARE(m_host->views().size(), 1);
            pressButton(answer ? QMessageBox::Yes : QMessageBox::No)(dialog);
        });
        const bool yes = question.exec() == QMessageBox::Yes;
        a->mayClose = [&] { return secondAnswer; };
        return yes;
    };
    QCOMPARE(m_manager->closeView(a), answer);
    QTRY_COMPARE(m_log.join(QLatin1Char(' ')), log);
}

void TestViewManager::closesTheDialogsOfAViewAndThenFreesIt()
{
    QPointer<View> a = new View("a", &m_log);
    m_manager->showView(a);
    takeLog();
    QPushButton button(a);
    QDialog *outer = new QDialog(&button);
    // The request comes from the inner dialog's event loop, which goes on for a while.
    bool alive = false;
    ModalDriver driver([&](QWidget *) {
        ModalDriver second([&](QWidget *) {
            QVERIFY(m_manager->closeView(a));
            QTest::qWait(20);
            alive = !a.isNull();
        });
        QMessageBox::information(outer, QString(), QString());
    });
    outer->exec();
    // Code of the view would stand here, and go on using the view and its children.
    QVERIFY(alive);
    QVERIFY(a);
    button.setParent(nullptr);
    QTRY_COMPARE(m_log.join(QLatin1Char(' ')), QStringLiteral("aasked aclosed aoff > agone"));
}

void TestViewManager::survivesViewsThatAreDestroyed()
{
    auto *a = new View("a", &m_log);
    auto *b = new View("b", &m_log);
    m_manager->showView(b);
    m_manager->showView(a);
    takeLog();
    delete a;
    QCOMPARE(takeLog(), QStringLiteral("agone > bon >b"));
    delete b;
    QCOMPARE(takeLog(), QStringLiteral("bgone >"));
    QVERIFY(m_host->views().isEmpty());
}

void TestViewManager::closesAllUntilOneRefuses()
{
    View *views[3];
    const char *const names[] = {"a", "b", "c"};
    for (int i = 0; i < 3; ++i)
        m_manager->showView(views[i] = new View(names[i], &m_log));
    views[1]->mayClose = [] { return false; };
    QVERIFY(!m_host->closeAllViews());
    QVERIFY(m_host->views().contains(views[1]));
    views[1]->mayClose = nullptr;
    QVERIFY(m_host->closeAllViews());
    QVERIFY(m_host->views().isEmpty());
}

void TestViewManager::tellsContexts()
{
    const QString x = QStringLiteral("x");
    const QString y = QStringLiteral("y");
    QSignalSpy changes(m_host, &ViewManagerPrivate::activeContextsChanged);
    auto *a = new View("a", &m_log);
    auto *b = new View("b", &m_log);
    m_manager->registerContext(a, x, true);
    m_manager->registerContext(a, y, true);
    m_manager->showView(a);
    QCOMPARE(m_host->activeContexts(), QStringList({x, y}));
    m_manager->registerContext(a, y, false);
    QCOMPARE(m_host->activeContexts(), QStringList(x));
    m_manager->showView(b);
    QCOMPARE(m_host->activeContexts(), QStringList());
    m_manager->registerContext(m_host->area(), y, true); // a widget around the view
    QCOMPARE(m_host->activeContexts(), QStringList(y));
    m_manager->registerContext(m_host->area(), y, false);
    QCOMPARE(changes.count(), 5);
}

void TestViewManager::showsTitlesAsPlainText()
{
    auto *a = new View("a", &m_log);
    m_manager->showView(a);
    a->setShortTitle(QStringLiteral("<b>R&D</b>.vlr*"));
    QCOMPARE(m_host->area()->tabText(0), QStringLiteral("<b>R&&D</b>.vlr*"));
    QTextDocument shown;
    shown.setHtml(m_host->area()->tabToolTip(0));
    QCOMPARE(shown.toPlainText(), QStringLiteral("<b>R&D</b>.vlr*"));
}

QTEST_MAIN(TestViewManager)
#include "test_viewmanager.moc"
