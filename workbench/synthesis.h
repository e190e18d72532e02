#pragma once

#include <QObject>

class QAction;
class QProgressBar;

namespace Workbench {

/// The commands that run and stop synthesis, and what is shown of a run.
class Synthesis : public QObject
{
    Q_OBJECT

public:
    explicit Synthesis(QObject *parent);

    QAction *runAction() const { return m_run; }
    QAction *stopAction() const { return m_stop; }

    /// Moves while a run is under way, else hidden. Owned by whoever shows it.
    QProgressBar *progress() const { return m_progress; }

signals:
    void output(const QString &line);
    void message(const QString &text);
    void failed(const QString &text);

private:
    void start();
    void update();
    void onMessage(const QString &text);

    QAction *m_run;
    QAction *m_stop;
    QProgressBar *m_progress;
};

} // namespace Workbench
