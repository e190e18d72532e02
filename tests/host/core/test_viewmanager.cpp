#include "core/viewmanager.h"

#include "core/iview.h"
#include "host/core/viewarea.h"
#include "support/modaldriver.h"

#include <QtTest>
#include <QtWidgets>

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
    ~View() override { note("deleted"); }

    void onActivated() override { note("on"); }
    void onDeactivated() override { note("off"); }
    void note(const char *what)
    {
        m_log->append(objectName() + QLatin1Char(' ') + QLatin1String(what));
    }

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
    void closesByTabWindowOrDelete_data();
    void closesByTabWindowOrDelete();
    void repeatedCloseWaitsForAnswer_data();
    void repeatedCloseWaitsForAnswer();
    void closesDialogsBeforeDeletingView();
    void survivesDestroyedViews();
    void closesAllUntilOneRefuses();
};

void TestViewManager::init()
{
    connect(m_manager, &ViewManager::viewActiveted, this, [this](IView *view) {
        m_log.append((view ? view->objectName() : QStringLiteral("nothing")) +
                     QLatin1String(" active"));
    });
    connect(m_manager, &ViewManager::viewClosed, this, [this](IView *view) {
        m_log.append(view->objectName() + QLatin1String(" closed"));
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
    const QString log = m_log.join(QLatin1String(", "));
    m_log.clear();
    return log;
}

void TestViewManager::activatesAndCloses()
{
    auto *a = new View("a", &m_log);
    auto *b = new View("b", &m_log);
    m_manager->showView(a);
    QCOMPARE(takeLog(), QStringLiteral("a on, a active"));
    m_manager->showView(b);
    QCOMPARE(takeLog(), QStringLiteral("a off, b on, b active"));
    m_manager->showView(b);
    QCOMPARE(takeLog(), QString());
    m_manager->showView(a);
    QCOMPARE(takeLog(), QStringLiteral("b off, a on, a active"));
    a->setShortTitle(QStringLiteral("R&D"));
    QCOMPARE(m_host->area()->tabText(0), QStringLiteral("R&&D"));
    QVERIFY(m_manager->closeView(a));
    QCOMPARE(takeLog(), QStringLiteral("a asked, a closed, a off, b on, b active"));
    m_manager->showView(a); // too late
    QCOMPARE(m_host->views(), QList<IView *>({b}));
    deleteDeferred();
    QCOMPARE(takeLog(), QStringLiteral("a deleted"));
    QVERIFY(m_manager->closeView(b));
    QCOMPARE(takeLog(), QStringLiteral("b asked, b closed, b off, nothing active"));
    QVERIFY(!m_host->activeView());
}

void TestViewManager::closesByTabWindowOrDelete_data()
{
    QTest::addColumn<bool>("byTab");
    QTest::addColumn<bool>("deletes");
    QTest::newRow("tab") << true << false;
    QTest::newRow("window") << false << false;
    QTest::newRow("delete on close") << false << true;
}

void TestViewManager::closesByTabWindowOrDelete()
{
    QFETCH(bool, byTab);
    QFETCH(bool, deletes);
    auto *a = new View("a", &m_log);
    const auto close = [&] {
        a->setAttribute(Qt::WA_DeleteOnClose, deletes);
        if (byTab)
            emit m_host->area()->tabCloseRequested(0);
        else
            a->close();
    };
    m_manager->showView(a);
    a->mayClose = [] { return false; };
    close();
    a->setAttribute(Qt::WA_DeleteOnClose, false);
    deleteDeferred();
    QCOMPARE(m_host->area()->currentWidget(), a);
    QVERIFY(!a->isHidden());
    a->mayClose = nullptr;
    takeLog();
    close();
    deleteDeferred();
    QCOMPARE(takeLog(), QStringLiteral("a asked, a closed, a off, nothing active, a deleted"));
    QCOMPARE(m_host->area()->count(), 0);
}

void TestViewManager::repeatedCloseWaitsForAnswer_data()
{
    QTest::addColumn<bool>("accepts");
    QTest::addColumn<QString>("log");
    QTest::newRow("accepted") << true << "a asked, a closed, a off, nothing active, a deleted";
    QTest::newRow("refused, then asked again")
        << false << "a asked, a asked, a closed, a off, nothing active, a deleted";
}

/// Further requests to close the view arrive while its own question is open.
void TestViewManager::repeatedCloseWaitsForAnswer()
{
    QFETCH(bool, accepts);
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
            a->close(); // returns true without asking: Qt's own guard
            QVERIFY(!m_host->closeAllViews());
            deleteDeferred();
            QCOMPARE(m_host->views().size(), 1);
            pressButton(accepts ? QMessageBox::Yes : QMessageBox::No)(dialog);
        });
        const bool yes = question.exec() == QMessageBox::Yes;
        a->mayClose = nullptr;
        return yes;
    };
    QCOMPARE(m_manager->closeView(a), accepts);
    QTRY_COMPARE(m_log.join(QLatin1String(", ")), log);
}

void TestViewManager::closesDialogsBeforeDeletingView()
{
    QPointer<View> a = new View("a", &m_log);
    m_manager->showView(a);
    takeLog();
    QPushButton button(a);
    QDialog *outer = new QDialog(&button);
    // The request arrives in the inner dialog's event loop, while code of the view is on the stack.
    bool alive = false;
    ModalDriver driver([&](QWidget *) {
        ModalDriver second([&](QWidget *) {
            QVERIFY(m_manager->closeView(a));
            QTRY_VERIFY(!outer->isVisible());
            deleteDeferred();
            alive = !a.isNull();
        });
        QMessageBox::information(outer, QString(), QString());
    });
    outer->exec();
    // Here code of the view would continue to use the view and its children.
    QVERIFY(alive);
    QVERIFY(a);
    button.setParent(nullptr);
    QTRY_COMPARE(m_log.join(QLatin1String(", ")),
                 QStringLiteral("a asked, a closed, a off, nothing active, a deleted"));
}

void TestViewManager::survivesDestroyedViews()
{
    auto *a = new View("a", &m_log);
    auto *b = new View("b", &m_log);
    m_manager->showView(b);
    m_manager->showView(a);
    takeLog();
    delete a;
    QCOMPARE(takeLog(), QStringLiteral("a deleted, nothing active, b on, b active"));
    delete b;
    QCOMPARE(takeLog(), QStringLiteral("b deleted, nothing active"));
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
