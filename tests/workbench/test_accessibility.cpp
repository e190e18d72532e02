#include "windowtest.h"

#include "support/modaldriver.h"

#include "core/iview.h"

#include <QtTest>
#include <QtWidgets>

using namespace Workbench;

namespace {

QString accessibleName(QWidget *widget)
{
    QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(widget);
    return interface ? interface->text(QAccessible::Name) : QString();
}

/// Parts of a composed widget are announced through it.
bool isPart(const QWidget *widget)
{
    const QWidget *parent = widget->parentWidget();
    return qobject_cast<const QAbstractSpinBox *>(parent) ||
           qobject_cast<const QComboBox *>(parent) ||
           widget->objectName().startsWith(QLatin1String("qt_"));
}

/// What a screen reader could not tell apart in the visible part of `root`.
QStringList namelessIn(QWidget *root)
{
    QStringList problems;
    QHash<QWidget *, QSet<QString>> siblings;
    const auto widgets = root->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->isVisibleTo(root) || isPart(widget) ||
            widget->focusProxy() || qobject_cast<QScrollBar *>(widget))
            continue;
        const QString name = accessibleName(widget);
        const QString what = QStringLiteral("%1 \"%2\" in %3")
                                 .arg(QLatin1String(widget->metaObject()->className()),
                                      widget->objectName(), widget->parentWidget()->objectName());
        if (name.isEmpty())
            problems << QStringLiteral("no name: ") + what;
        else if (siblings[widget->parentWidget()].contains(name))
            problems << QStringLiteral("\"%1\" again: ").arg(name) + what;
        siblings[widget->parentWidget()].insert(name);
    }
    return problems;
}

} // namespace

/// Walks what a screen reader sees: whatever takes the focus has a name, and no two siblings have
/// the same.
class TestAccessibility : public WindowTest
{
    Q_OBJECT

private slots:
    void window_data();
    void window();
    void dialogs_data();
    void dialogs();
};

void TestAccessibility::window_data()
{
    QTest::addColumn<int>("tab");
    QTest::newRow("general setting") << 0;
    QTest::newRow("rate setting") << 1;
    QTest::newRow("clock setting") << 2;
}

void TestAccessibility::window()
{
    QFETCH(int, tab);
    auto *tabs = openView(QStringLiteral("a.vlr"))->findChild<QTabWidget *>();
    tabs->setCurrentIndex(tab);
    WindowTest::window().show();
    QCOMPARE(namelessIn(&(WindowTest::window())).join(QLatin1Char('\n')), QString());
    action("showCoverage")->trigger();
    QCOMPARE(namelessIn(&(WindowTest::window())).join(QLatin1Char('\n')), QString());
}

void TestAccessibility::dialogs_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QByteArray>("page");   // class of the page that has the button
    QTest::addColumn<QByteArray>("opener"); // a button of the view, or an action of the window
    const auto add = [](const char *name, int tab, const char *page, const char *opener) {
        QTest::newRow(name) << tab << QByteArray(page) << QByteArray(opener);
    };
    add("device", 0, "", "chooseDevice");
    add("new project", 0, "", "newProject");
    add("project settings", 0, "", "projectSettings");
    add("net picker", 1, "VLT::RateWidget", "btnAdd");
    add("activity file", 1, "VLT::VcdFileWidget", "btnAdd");
    add("finder", 2, "VLT::PortSetWidget", "btnAdd");
}

void TestAccessibility::dialogs()
{
    QFETCH(int, tab);
    QFETCH(QByteArray, page);
    QFETCH(QByteArray, opener);
    QWidget *view = openView(QStringLiteral("a.vlr"));
    WindowTest::window().show();
    view->findChild<QTabWidget *>()->setCurrentIndex(tab);
    QStringList problems;
    const ModalDriver driver([&problems](QWidget *dialog) {
        problems = namelessIn(dialog);
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    if (page.isEmpty()) {
        action(opener)->trigger();
    } else {
        const auto widgets = view->findChildren<QWidget *>();
        for (QWidget *widget : widgets) {
            if (widget->metaObject()->className() == page) {
                widget->findChild<QAbstractButton *>(QLatin1String(opener))->click();
                break;
            }
        }
    }
    QCOMPARE(problems.join(QLatin1Char('\n')), QString());
}

QTEST_MAIN(TestAccessibility)

#include "test_accessibility.moc"
