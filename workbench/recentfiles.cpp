#include "workbench/recentfiles.h"

#include "host/utils/documentpath.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QSettings>

namespace Workbench {

RecentFiles::RecentFiles(QObject *parent, const QString &key)
    : QObject(parent)
    , m_key(key)
    , m_paths(QSettings().value(key).toStringList().mid(0, MAXIMUM))
{
}

void RecentFiles::add(const QString &path)
{
    const QString file = Utils::documentPath(path);
    m_paths.removeAll(file);
    m_paths.prepend(file);
    m_paths = m_paths.mid(0, MAXIMUM);
    store();
}

void RecentFiles::remove(const QString &path)
{
    m_paths.removeAll(Utils::documentPath(path));
    store();
}

void RecentFiles::clear()
{
    m_paths.clear();
    store();
}

void RecentFiles::fill(QMenu *menu)
{
    connect(menu, &QMenu::aboutToShow, this, [this, menu] {
        menu->clear();
        int number = 0;
        for (const QString &path : qAsConst(m_paths)) {
            const QFileInfo info(path);
            // An ampersand in a file name is not a mnemonic.
            QString text = QStringLiteral("%1 \u2013 %2")
                               .arg(info.fileName(), QDir::toNativeSeparators(info.path()));
            text.replace(QLatin1Char('&'), QLatin1String("&&"));
            ++number;
            const QString prefix = number < 10 ? QStringLiteral("&%1  ") : QStringLiteral("%1  ");
            QAction *action = menu->addAction(prefix.arg(number) + text);
            connect(action, &QAction::triggered, this, [this, path] { emit chosen(path); });
        }
        if (m_paths.isEmpty())
            menu->addAction(tr("No recent files"))->setEnabled(false);
        menu->addSeparator();
        QAction *forget = menu->addAction(tr("&Clear list"), this, &RecentFiles::clear);
        forget->setEnabled(!m_paths.isEmpty());
    });
}

void RecentFiles::store()
{
    QSettings().setValue(m_key, m_paths);
}

} // namespace Workbench
