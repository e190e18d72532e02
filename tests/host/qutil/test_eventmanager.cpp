#include "qutil/eventmanager.h"

#include "host/qutil/eventbus.h"
#include "qutil/ievent.h"
#include "qutil/ieventhandler.h"

#include <QtTest>

#include <functional>
#include <memory>

using namespace QUtil;

namespace {

const QString TYPE = QStringLiteral("test.event");

/// Notes its calls in a log that outlives it, then does what the test wants.
class Handler : public IEventHandler
{
public:
    Handler(
        const char *name, QStringList *log, std::function<void()> action = [] {})
        : m_name(QString::fromLatin1(name))
        , m_log(log)
        , m_action(std::move(action))
    {
        EventManager::instance()->subscribe(this, TYPE);
    }
    ~Handler() override { EventManager::instance()->unsubscribe(this, TYPE); }

    void handleIEvent(const IEvent *event) override
    {
        m_log->append(m_name + event->value(QStringLiteral("n")).toString());
        const auto action = m_action; // the handler may go
        action();
    }

private:
    const QString m_name;
    QStringList *const m_log;
    const std::function<void()> m_action;
};

void deliver(const QString &n = QString())
{
    EventBus::get()->deliver(IEvent(TYPE, {{QStringLiteral("n"), n}}));
}

} // namespace

class TestEventManager : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { QCOMPARE(EventBus::get()->subscriberCount(TYPE), 0); }
    void deliversByTypeOncePerHandler();
    void handlersMayBeDestroyedDuringDelivery();
    void subscribersAddedDuringDeliveryWait();
    void deliveriesNest();
};

void TestEventManager::deliversByTypeOncePerHandler()
{
    QStringList log;
    Handler a("a", &log);
    Handler b("b", &log);
    EventManager::instance()->subscribe(&a, TYPE);
    EventManager::instance()->subscribe(nullptr, TYPE);
    EventManager::instance()->unsubscribe(&b, QStringLiteral("TEST.EVENT"));
    EventBus::get()->deliver(IEvent(QStringLiteral("Test.Event")));
    deliver();
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("a b"));
}

void TestEventManager::handlersMayBeDestroyedDuringDelivery()
{
    QStringList log;
    std::unique_ptr<Handler> a, b, c, d;
    a = std::make_unique<Handler>("a", &log);
    b = std::make_unique<Handler>("b", &log, [&] {
        a.reset(); // was called already
        b.reset(); // itself
        c.reset(); // would have been next
    });
    c = std::make_unique<Handler>("c", &log);
    d = std::make_unique<Handler>("d", &log);
    deliver();
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("a b d"));
    deliver();
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("a b d d"));
}

/// Handlers that come during a delivery wait for the next one; the event may go meanwhile.
void TestEventManager::subscribersAddedDuringDeliveryWait()
{
    QStringList log;
    std::vector<std::unique_ptr<Handler>> added;
    Handler a("a", &log, [&] {
        for (int i = 0; i < 100; ++i) // enough to make the list move
            added.push_back(std::make_unique<Handler>("new", &log));
    });
    Handler b("b", &log, [&] {
        EventManager::instance()->unsubscribe(&b, TYPE);
        EventManager::instance()->subscribe(&b, TYPE);
    });
    auto event = std::make_unique<IEvent>(TYPE, QVariantMap{{QStringLiteral("n"), 7}});
    Handler c("c", &log, [&] { event.reset(); });
    Handler d("d", &log);
    EventBus::get()->deliver(*event);
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("a7 b7 c7 d7"));
}

void TestEventManager::deliveriesNest()
{
    QStringList log;
    int depth = 0;
    std::unique_ptr<Handler> c;
    Handler a("a", &log, [&] {
        if (++depth == 1)
            deliver(QStringLiteral("!"));
        else
            c.reset(); // inside: the outer delivery must not reach it either
    });
    Handler b("b", &log);
    c = std::make_unique<Handler>("c", &log);
    deliver();
    QCOMPARE(log.join(QLatin1Char(' ')), QStringLiteral("a a! b! b"));
}

QTEST_GUILESS_MAIN(TestEventManager)
#include "test_eventmanager.moc"
