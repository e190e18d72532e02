#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <functional>

/// Drives one modal dialog from a test. Construct it before the call that opens the dialog: it
/// waits for the active modal widget, runs the script on it once, and closes the dialog when the
/// script did not. The destructor fails the test when the dialog never came.
///
///     ModalDriver driver([](QWidget *dialog) { QTest::keyClick(dialog, Qt::Key_Return); });
///     page.onRemove();
class ModalDriver : public QObject
{
    Q_OBJECT

public:
    using Script = std::function<void(QWidget *)>;

    explicit ModalDriver(Script script);
    ~ModalDriver() override;

    bool ran() const { return m_ran; }

    /// Title and text of the driven dialog; the text is a message box's, else empty.
    QString title() const { return m_title; }
    QString text() const { return m_text; }

private:
    void poll();

    Script m_script;
    QTimer m_timer;
    QPointer<QWidget> m_ignored;
    QString m_title;
    QString m_text;
    bool m_ran = false;
};

/// Scripts for message boxes: press the standard button `button` (a QMessageBox::StandardButton).
ModalDriver::Script pressButton(int button);
