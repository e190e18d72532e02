#pragma once

#include <QObject>
#include <QString>

class QAction;

namespace Workbench {

/// Remembers the project that was open when the program ended, and has the option to open it again
/// at the next start.
class LastProject : public QObject
{
    Q_OBJECT

public:
    explicit LastProject(QObject *parent);

    /// Turns the option on and off.
    QAction *option() const { return m_option; }

    /// The project to open at the start; empty if the option is off, no project was open, or its
    /// file no longer exists.
    QString path() const;

    /// The user has closed the project.
    void forget();

private:
    QAction *m_option;
};

} // namespace Workbench
