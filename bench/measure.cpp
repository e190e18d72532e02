#include "measure.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTest>
#include <QWidget>

#include <malloc.h>

namespace {

class PaintWatcher : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        m_painted = m_painted || event->type() == QEvent::Paint;
        return QObject::eventFilter(watched, event);
    }

    bool isPainted() const { return m_painted; }

private:
    bool m_painted = false;
};

/// A value of this process' status, in bytes.
double statusBytes(const QByteArray &key)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (line.startsWith(key + ':'))
            return line.mid(key.size() + 1).simplified().split(' ').first().toDouble() * 1024;
    }
    return 0;
}

} // namespace

double seconds(const std::function<void()> &work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e9;
}

void paint(QWidget *widget)
{
    PaintWatcher watcher;
    widget->installEventFilter(&watcher);
    widget->show();
    widget->update();
    if (!QTest::qWaitFor([&] { return watcher.isPainted(); }))
        qFatal("the widget was not painted");
}

double peakBytes(const std::function<void()> &work)
{
    malloc_trim(0);
    QFile reset(QStringLiteral("/proc/self/clear_refs"));
    if (reset.open(QIODevice::WriteOnly))
        reset.write("5");
    reset.close();
    const double before = statusBytes("VmRSS");
    work();
    return statusBytes("VmHWM") - before;
}

double numberFromChild(const QStringList &arguments)
{
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QCoreApplication::applicationFilePath(), arguments);
    if (!child.waitForFinished(-1) || child.exitCode() != 0)
        qFatal("the measuring process failed");
    return child.readAllStandardOutput().toDouble();
}
