#pragma once

#include <QElapsedTimer>
#include <QObject>

class QAction;
class QWidget;

namespace Workbench {

/// The commands that run and stop synthesis, with progress and messages of a run.
class Synthesis : public QObject
{
    Q_OBJECT

public:
    explicit Synthesis(QObject *parent);

    QAction *runAction() const { return m_run; }
    QAction *stopAction() const { return m_stop; }

    /// A moving bar with a button that stops the run, while one is under way; else hidden. Owned by
    /// whoever shows it.
    QWidget *progress() const { return m_progress; }

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
    QWidget *m_progress;
    QElapsedTimer m_clock; // of the run; invalid without one
};

} // namespace Workbench
