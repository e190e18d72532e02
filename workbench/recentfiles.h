#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

namespace Workbench {

/// The files opened last, remembered from one run to the next, and the menu that offers them.
class RecentFiles : public QObject
{
    Q_OBJECT

public:
    static constexpr int MAXIMUM = 10;

    /// `key` is the name of the list in the settings.
    explicit RecentFiles(QObject *parent = nullptr,
                         const QString &key = QStringLiteral("recentFiles"));

    /// Absolute paths, the last one first.
    QStringList paths() const { return m_paths; }

    /// Puts `path` first. A file is listed once, however its path is written.
    void add(const QString &path);
    void remove(const QString &path);
    void clear();

    /// Fills `menu` with the present list each time it is about to show. Not owned.
    void fill(QMenu *menu);

signals:
    void chosen(const QString &path);

private:
    void store();

    const QString m_key;
    QStringList m_paths;
};

} // namespace Workbench
