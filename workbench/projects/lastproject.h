#pragma once

#include <QObject>
#include <QString>

class QAction;

namespace Workbench {

/// The project that was open when the program ended, from one run to the next, and the option to
/// open it again at the start.
class LastProject : public QObject
{
    Q_OBJECT

public:
    explicit LastProject(QObject *parent);

    /// Turns the option on and off.
    QAction *option() const { return m_option; }

    /// What to open at the start; empty when the user does not want that, when no project was
    /// open, or when its file has gone.
    QString path() const;

    /// The user has closed the project.
    void forget();

private:
    QAction *m_option;
};

} // namespace Workbench
