#include "core/viewmanager.h"

#include "core/iview.h"
#include "host/core/viewarea.h"
#include "support/modaldriver.h"

#include <QCloseEvent>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
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
    ViewArea *const m_host = ViewArea::get();
    QStringList m_log;

private slots:
    void init();
    void cleanup();
    void activatesAndCloses();
    void closesByTabWindowOrDelete();
    void repeatedCloseWaitsForAnswer();
    void closesDialogsBeforeDeletingView();
    void survivesDestroyedViews();
    void closesAllUntilOneRefuses();
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
    a->setShortTitle(QStringLiteral("R&D"));
    QCOMPARE(m_host->area()->tabText(0), QStringLiteral("R&&D"));
    QVERIFY(m_manager->closeView(a));
    QCOMPARE(takeLog(), QStringLiteral("aasked aclosed aoff bon >b"));
    m_manager->showView(a); // too late
    QCOMPARE(m_host->views(), QList<IView *>({b}));
    deleteDeferred();
    QCOMPARE(takeLog(), QStringLiteral("agone"));
    QVERIFY(m_manager->closeView(b));
    QCOMPARE(takeLog(), QStringLiteral("basked bclosed boff >"));
    QVERIFY(!m_host->activeView());
}

void TestViewManager::closesByTabWindowOrDelete()
{
    const std::function<void(View *)> doors[] = {
        [this](View *) { emit m_host->area()->tabCloseRequested(0); },
        [](View *view) { view->close(); },
        [](View *view) {
            view->setAttribute(Qt::WA_DeleteOnClose);
            view->close();
        },
    };
    for (const auto &open : doors) {
        auto *a = new View("a", &m_log);
        m_manager->showView(a);
        a->mayClose = [] { return false; };
        open(a);
        a->setAttribute(Qt::WA_DeleteOnClose, false);
        deleteDeferred();
        QCOMPARE(m_host->area()->currentWidget(), a);
        QVERIFY(!a->isHidden());
        a->mayClose = nullptr;
        takeLog();
        open(a);
        deleteDeferred();
        QCOMPARE(takeLog(), QStringLiteral("aasked aclosed aoff > agone"));
        QCOMPARE(m_host->area()->count(), 0);
    }
}

/// Somebody asks for the view's end while its own question about it is open.
void TestViewManager::repeatedCloseWaitsForAnswer()
{
    for (const auto answer : {QMessageBox::Yes, QMessageBox::No}) {
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
                pressButton(answer)(dialog);
            });
            const bool yes = question.exec() == QMessageBox::Yes;
            a->mayClose = nullptr;
            return yes;
        };
        QCOMPARE(m_manager->closeView(a), answer == QMessageBox::Yes);
        // After a no the later request asks once more.
        QTRY_COMPARE(m_log.join(QLatin1Char(' ')),
                     answer == QMessageBox::Yes
                         ? QStringLiteral("aasked aclosed aoff > agone")
                         : QStringLiteral("aasked aasked aclosed aoff > agone"));
    }
}

void TestViewManager::closesDialogsBeforeDeletingView()
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

void TestViewManager::survivesDestroyedViews()
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
    auto *stubborn = new View("b", &m_log);
    for (IView *view : {new View("a", &m_log), stubborn, new View("c", &m_log)})
        m_manager->showView(view);
    stubborn->mayClose = [] { return false; };
    QVERIFY(!m_host->closeAllViews());
    QVERIFY(m_host->views().contains(stubborn));
    stubborn->mayClose = nullptr;
    QVERIFY(m_host->closeAllViews());
    QVERIFY(m_host->views().isEmpty());
}

QTEST_MAIN(TestViewManager)
#include "test_viewmanager.moc"
