#include "workbench/tour/tourdriver.h"

#include "workbench/tour/tourlocators.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMessageBox>
#include <QPainter>
#include <QPointer>
#include <QThread>
#include <QWindow>

#include <algorithm>
#include <iterator>
#include <memory>

// QtGui's entrance for events as if from the window system, which Qt's test library uses too.
QT_BEGIN_NAMESPACE
Q_GUI_EXPORT void qt_handleMouseEvent(QWindow *window, const QPointF &local, const QPointF &global,
                                      Qt::MouseButtons state, Qt::MouseButton button,
                                      QEvent::Type type, Qt::KeyboardModifiers mods, int timestamp);
Q_GUI_EXPORT void qt_handleKeyEvent(QWindow *window, QEvent::Type type, int key,
                                    Qt::KeyboardModifiers mods, const QString &text, bool autorep,
                                    ushort count);
QT_END_NAMESPACE

namespace Workbench {

namespace {

constexpr int POLL_MILLISECONDS = 10;
// Longer than the double click interval of any platform.
constexpr int CLICK_DISTANCE = 2000;
constexpr int PATIENCE_SECONDS = 30;

// The window that keys go to. Without a window manager nobody activates the next window when a
// dialog goes.
QWindow *keyWindow()
{
    QWidget *front = frontWidget()->window();
    if (!QApplication::activePopupWidget() && !front->isActiveWindow()) {
        front->activateWindow();
        QCoreApplication::processEvents();
    }
    return front->windowHandle();
}

QString describe(const QWidget *dialog)
{
    if (!dialog)
        return QStringLiteral("no dialog");
    const auto *box = qobject_cast<const QMessageBox *>(dialog);
    return QStringLiteral("the dialog \"%1\"%2")
        .arg(dialog->windowTitle(),
             box ? QStringLiteral(" saying \"%1\"").arg(box->text()) : QString());
}

// Dialogs and popups that are shown, a parent before what stands on it.
QVector<QWidget *> windowsInFrontOf(const QWidget *window)
{
    const auto depth = [](const QWidget *widget) {
        int result = 0;
        while ((widget = widget->parentWidget()))
            ++result;
        return result;
    };
    QVector<QWidget *> result;
    const QWidgetList all = QApplication::topLevelWidgets();
    std::copy_if(all.begin(), all.end(), std::back_inserter(result), [window](QWidget *top) {
        return top != window && top->isVisible() && top->windowType() != Qt::ToolTip;
    });
    std::stable_sort(result.begin(), result.end(),
                     [&depth](const QWidget *a, const QWidget *b) { return depth(a) < depth(b); });
    return result;
}

} // namespace

TourDriver::TourDriver(QWidget *window, const QString &folder)
    : m_window(window)
    , m_folder(folder)
{
}

void TourDriver::click(const QString &what, const Locator &where, Qt::MouseButton button,
                       Qt::KeyboardModifiers modifiers)
{
    mouse(what, where, button, modifiers, 1);
}

void TourDriver::doubleClick(const QString &what, const Locator &where)
{
    mouse(what, where, Qt::LeftButton, Qt::NoModifier, 2);
}

void TourDriver::mouse(const QString &what, const Locator &where, Qt::MouseButton button,
                       Qt::KeyboardModifiers modifiers, int clicks)
{
    Spot spot;
    expect(QStringLiteral("%1 can be clicked").arg(what), [&] {
        spot = where();
        return spot.widget && spot.widget->isVisible() && spot.widget->isEnabled();
    });
    act([this, spot = QPointer<QWidget>(spot.widget), position = spot.position, button, modifiers,
         clicks] {
        if (spot)
            postMouse({spot, position}, button, modifiers, clicks);
    });
}

void TourDriver::postMouse(const Spot &spot, Qt::MouseButton button,
                           Qt::KeyboardModifiers modifiers, int clicks)
{
    QWidget *top = spot.widget->window();
    QWindow *handle = top->windowHandle();
    const QPoint local = spot.widget->mapTo(top, spot.position);
    const QPoint global = handle->mapToGlobal(local);
    m_timestamp += CLICK_DISTANCE;
    qt_handleMouseEvent(handle, local, global, Qt::NoButton, Qt::NoButton, QEvent::MouseMove,
                        modifiers, ++m_timestamp);
    for (int i = 0; i < clicks; ++i) {
        qt_handleMouseEvent(handle, local, global, button, button, QEvent::MouseButtonPress,
                            modifiers, ++m_timestamp);
        qt_handleMouseEvent(handle, local, global, Qt::NoButton, button, QEvent::MouseButtonRelease,
                            modifiers, ++m_timestamp);
    }
}

void TourDriver::press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    act([this, key, modifiers] {
        QWindow *handle = keyWindow();
        const bool prints = key < Qt::Key_Escape && !(modifiers & ~Qt::ShiftModifier);
        const QString text = prints ? QString(QChar(int(key))).toLower() : QString();
        qt_handleKeyEvent(handle, QEvent::KeyPress, key, modifiers, text, false, 1);
        qt_handleKeyEvent(handle, QEvent::KeyRelease, key, modifiers, text, false, 1);
    });
}

void TourDriver::type(const QString &text)
{
    act([this, text] {
        QWindow *handle = keyWindow();
        for (const QChar c : text) {
            const int key = c.toUpper().unicode();
            qt_handleKeyEvent(handle, QEvent::KeyPress, key, Qt::NoModifier, c, false, 1);
            qt_handleKeyEvent(handle, QEvent::KeyRelease, key, Qt::NoModifier, c, false, 1);
        }
    });
}

void TourDriver::fill(const QString &what, const Locator &where, const QString &text)
{
    click(what, where);
    press(Qt::Key_A, Qt::ControlModifier);
    type(text);
    expect(QStringLiteral("%1 shows \"%2\"").arg(what, text), [&] {
        const auto *edit = qobject_cast<const QLineEdit *>(where().widget);
        return edit && edit->text() == text;
    });
}

void TourDriver::enter(const QString &what, const Locator &where, const QString &text)
{
    click(what, where);
    press(Qt::Key_A, Qt::ControlModifier);
    type(text);
    press(Qt::Key_Tab);
}

void TourDriver::choose(const QString &what, const Locator &where, const QString &entry)
{
    click(what, where);
    expect(QStringLiteral("%1 opens its list").arg(what),
           [] { return QApplication::activePopupWidget() != nullptr; });
    type(entry);
    expect(QStringLiteral("the entry \"%1\" of %2 is found").arg(entry, what),
           [&] { return popupEntry() == entry; });
    press(Qt::Key_Return);
    expect(QStringLiteral("%1 shows \"%2\"").arg(what, entry), [&] {
        const auto *box = qobject_cast<const QComboBox *>(where().widget);
        return box && box->currentText() == entry;
    });
}

void TourDriver::editCell(const QString &what, const Locator &where, const QString &text)
{
    doubleClick(what, where);
    expect(QStringLiteral("%1 opens its editor").arg(what), [] {
        // Also where no window manager has made the window the active one.
        const QWidget *focus = frontWidget()->window()->focusWidget();
        return focus && (focus->inherits("QLineEdit") || focus->inherits("QAbstractSpinBox"));
    });
    press(Qt::Key_A, Qt::ControlModifier);
    type(text);
    press(Qt::Key_Return);
}

void TourDriver::act(const std::function<void()> &action)
{
    const auto over = std::make_shared<bool>(false);
    QWidget *before = nullptr;
    look([&] {
        before = frontWidget();
        return true;
    });
    QMetaObject::invokeMethod(
        this,
        [action, over] {
            action();
            QCoreApplication::processEvents();
            *over = true;
        },
        Qt::QueuedConnection);
    // Over too when the act runs an event loop of its own behind what it has opened.
    expect(QStringLiteral("the program answers"), [&] { return *over || frontWidget() != before; });
}

bool TourDriver::look(const std::function<bool()> &condition)
{
    bool result = false;
    QMetaObject::invokeMethod(
        this, [&] { result = condition(); }, Qt::BlockingQueuedConnection);
    return result;
}

void TourDriver::expect(const QString &what, const std::function<bool()> &condition)
{
    // A memory checker slows the program down fifty times.
    const int given = qEnvironmentVariableIntValue("VLT_TOUR_PATIENCE");
    const qint64 patience = (given > 0 ? given : PATIENCE_SECONDS) * qint64(1000);
    QElapsedTimer time;
    time.start();
    while (!look(condition)) {
        if (time.elapsed() > patience) {
            QString shown;
            look([this, &shown] {
                const QWidget *dialog = QApplication::activeModalWidget();
                shown = describe(dialog);
                return true;
            });
            throw TourFailure(QStringLiteral("Expected: %1 (found %2).").arg(what, shown));
        }
        QThread::msleep(POLL_MILLISECONDS);
    }
}

void TourDriver::expectDialog(const QString &title, const QString &text)
{
    expect(QStringLiteral("the dialog \"%1\" %2is open")
               .arg(title, text.isEmpty() ? QString() : QStringLiteral("saying \"%1\" ").arg(text)),
           [&] {
               const QWidget *dialog = QApplication::activeModalWidget();
               if (!dialog || dialog->windowTitle() != title)
                   return false;
               const auto *box = qobject_cast<const QMessageBox *>(dialog);
               return text.isEmpty() || (box && box->text() == text);
           });
}

void TourDriver::answer(const QString &title, const QString &text, const QString &buttonText)
{
    expectDialog(title, text);
    click(buttonText, button(buttonText));
    expect(QStringLiteral("the box \"%1\" closes").arg(title), [&] {
        const auto *box = qobject_cast<const QMessageBox *>(QApplication::activeModalWidget());
        return !box || box->windowTitle() != title || box->text() != text;
    });
}

void TourDriver::expectNoDialog()
{
    expect(QStringLiteral("no dialog is open"),
           [] { return !QApplication::activeModalWidget() && !QApplication::activePopupWidget(); });
}

void TourDriver::picture(const QString &name)
{
    look([this, &name] {
        QPixmap canvas = m_window->grab();
        QPainter painter(&canvas);
        for (QWidget *top : windowsInFrontOf(m_window)) {
            // The window's frame is not the program's: a thin line stands for it.
            const QPoint at = m_window->mapFromGlobal(top->mapToGlobal(QPoint()));
            painter.drawPixmap(at, top->grab());
            painter.setPen(top->palette().color(QPalette::Dark));
            painter.drawRect(QRect(at, top->size()).adjusted(-1, -1, 0, 0));
        }
        painter.end();
        const QString file =
            QStringLiteral("%1-%2.png").arg(++m_pictures, 2, 10, QLatin1Char('0')).arg(name);
        if (!canvas.save(QDir(m_folder).filePath(file)))
            qCritical("cannot write the picture %s", qPrintable(file));
        return true;
    });
}

} // namespace Workbench
