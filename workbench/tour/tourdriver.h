#pragma once

#include <QObject>
#include <QPoint>
#include <QString>

#include <functional>
#include <stdexcept>

class QWidget;

namespace Workbench {

/// A place in a widget where the mouse can click.
struct Spot
{
    QWidget *widget = nullptr; ///< not owned; null: not there (yet)
    QPoint position;
};

/// Finds a spot among what is shown at the moment. Called in the GUI thread.
using Locator = std::function<Spot()>;

/// Something was not as it should be; the message is one sentence.
class TourFailure : public std::runtime_error
{
public:
    explicit TourFailure(const QString &message)
        : std::runtime_error(message.toStdString())
    {
    }
};

/// The hands and eyes of a person at the program: clicks and keys that go through the window system
/// of the platform at hand, looks at the widgets, and pictures.
///
/// The script runs in a thread of its own, so that it reads from top to bottom although dialogs run
/// event loops of their own; the widgets are touched in the GUI thread alone. Every look waits for
/// what it is to see, and throws TourFailure when that does not come in time.
class TourDriver : public QObject
{
    Q_OBJECT

public:
    /// `window` is the program's main window, not owned. Pictures go to `folder`.
    TourDriver(QWidget *window, const QString &folder);

    // What a person does.
    void click(const QString &what, const Locator &where, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void doubleClick(const QString &what, const Locator &where);
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QString &text);
    /// Replaces what the line edit at `where` holds.
    void fill(const QString &what, const Locator &where, const QString &text);
    /// Replaces what a spin box holds, and leaves it.
    void enter(const QString &what, const Locator &where, const QString &text);
    /// Opens a combo box and takes the entry of that text.
    void choose(const QString &what, const Locator &where, const QString &entry);
    /// Edits a table's cell: double click, text, Return.
    void editCell(const QString &what, const Locator &where, const QString &text);
    /// Does something that no mouse or key can do on every platform, in the GUI thread.
    void act(const std::function<void()> &action);

    // What a person sees. `condition` is called in the GUI thread until it holds, for at most 30
    // seconds, or as many as VLT_TOUR_PATIENCE in the environment says.
    void expect(const QString &what, const std::function<bool()> &condition);
    /// A message box with this title and text has come; it is answered with the button.
    void answer(const QString &title, const QString &text, const QString &buttonText);
    /// A modal dialog with this title (and, for a message box, this text) has come.
    void expectDialog(const QString &title, const QString &text = QString());
    void expectNoDialog();

    /// Saves a picture of the window with the dialogs in front of it, numbered in order.
    void picture(const QString &name);

private:
    bool look(const std::function<bool()> &condition);
    void postMouse(const Spot &spot, Qt::MouseButton button, Qt::KeyboardModifiers modifiers,
                   int clicks);
    void mouse(const QString &what, const Locator &where, Qt::MouseButton button,
               Qt::KeyboardModifiers modifiers, int clicks);

    QWidget *const m_window;
    const QString m_folder;
    int m_pictures = 0;
    int m_timestamp = 1; // of the mouse, in milliseconds
};

} // namespace Workbench
