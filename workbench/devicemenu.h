#pragma once

#include <QObject>

class QAction;
class QLabel;
class QMenu;

namespace Workbench {

/// The menu about the project's device, and the label that names it.
class DeviceMenu : public QObject
{
    Q_OBJECT

public:
    /// `window` is the parent of the menu and of the dialogs.
    explicit DeviceMenu(QWidget *window);

    QMenu *menu() const { return m_menu; }
    QAction *chooseAction() const { return m_choose; }
    QLabel *label() const { return m_label; }

    /// Lets the user choose the project's device.
    void choose();
    /// Shows the device of the current project.
    void update();

signals:
    void message(const QString &text);

private:
    QMenu *m_menu;
    QAction *m_choose;
    QLabel *m_label;
};

} // namespace Workbench
