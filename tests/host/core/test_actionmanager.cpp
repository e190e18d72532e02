#include "core/actionmanager.h"

#include "core/iview.h"
#include "core/viewmanager.h"
#include "host/core/commandregistry.h"
#include "host/core/viewarea.h"

#include <QtTest>
#include <QtWidgets>

using namespace Core;

class TestActionManager : public QObject
{
    Q_OBJECT

private slots:
    void followsActionOfActiveContext();
};

void TestActionManager::followsActionOfActiveContext()
{
    const QString id = QStringLiteral("test.save");
    QAction *command = CommandRegistry::command(id);
    CommandRegistry::setDefaultText(id, QStringLiteral("&Save"));
    auto first = std::make_unique<QAction>(QStringLiteral("first"));
    auto second = std::make_unique<QAction>(QStringLiteral("second"));
    ActionManager::registerAction(first.get(), id, QStringLiteral("one"));
    ActionManager::registerAction(second.get(), id, QStringLiteral("two"));
    QSignalSpy firstRuns(first.get(), &QAction::triggered);
    QSignalSpy secondRuns(second.get(), &QAction::triggered);
    QVERIFY(!command->isEnabled());

    auto *a = new IView;
    auto *b = new IView;
    auto *c = new IView;
    ViewManager *views = ViewManager::instance();
    views->registerContext(a, QStringLiteral("one"), true);
    views->registerContext(b, QStringLiteral("two"), true);
    for (IView *view : {b, c, a})
        views->showView(view);
    QVERIFY(command->isEnabled());
    first->setText(QStringLiteral("&Save \"a.vlr*\""));
    QCOMPARE(command->text(), QStringLiteral("&Save \"a.vlr*\""));
    command->trigger();
    first->setEnabled(false);
    QVERIFY(!command->isEnabled());
    command->trigger();

    views->showView(b);
    QCOMPARE(command->text(), QStringLiteral("second"));
    command->trigger();
    QCOMPARE(firstRuns.count(), 1);
    QCOMPARE(secondRuns.count(), 1);

    views->showView(c);
    QCOMPARE(command->text(), QStringLiteral("&Save"));
    QVERIFY(!command->isEnabled());

    QTabWidget *area = ViewArea::get()->area(); // a widget around the view
    views->registerContext(area, QStringLiteral("two"), true);
    QVERIFY(command->isEnabled());
    views->registerContext(area, QStringLiteral("two"), false);
    QVERIFY(!command->isEnabled());

    views->showView(b);
    connect(command, &QAction::triggered, this, [&] { second.reset(); });
    command->trigger(); // the action goes while it runs
    QVERIFY(!command->isEnabled());
    QCOMPARE(command->text(), QStringLiteral("&Save"));
    ViewArea::get()->discardAllViews();
}

QTEST_MAIN(TestActionManager)
#include "test_actionmanager.moc"
