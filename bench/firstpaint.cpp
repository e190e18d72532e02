// Loaded by Qt into a measured program, which needs no knowledge of it: ends the program as soon
// as a widget of the class named in FIRSTPAINT_CLASS has been painted.

#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QTimer>

#include <unistd.h>

namespace {

class PaintWatcher : public QObject
{
public:
    explicit PaintWatcher(const QByteArray &className)
        : m_className(className)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (m_painted && event->type() != QEvent::Paint)
            _exit(0); // what follows the painting of the widget and its children
        if (event->type() == QEvent::Paint && watched->inherits(m_className.constData())) {
            m_painted = true;
            QTimer::singleShot(0, this, [] { _exit(0); }); // nothing may follow
        }
        return QObject::eventFilter(watched, event);
    }

private:
    const QByteArray m_className;
    bool m_painted = false;
};

} // namespace

class FirstPaintPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "firstpaint.json")

public:
    QObject *create(const QString &, const QString &) override
    {
        return new PaintWatcher(qgetenv("FIRSTPAINT_CLASS"));
    }
};

#include "firstpaint.moc"
