#include "host/te/resultkeeper.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>

namespace TE {

ResultKeeper::~ResultKeeper()
{
    for (const Kept &kept : m_kept) {
        if (!kept.copy.isEmpty())
            QFile::remove(kept.copy);
    }
}

bool ResultKeeper::keep(const QStringList &paths, QString *error)
{
    for (const QString &path : paths) {
        Kept kept{path, QString()};
        if (QFile::exists(path)) {
            kept.copy = path + QLatin1String(".before-run");
            QFile::remove(kept.copy);
            QFile file(path);
            if (!file.copy(kept.copy)) {
                *error =
                    QCoreApplication::translate("TE::ResultKeeper", "Cannot keep a copy of %1: %2")
                        .arg(QDir::toNativeSeparators(path), file.errorString());
                return false;
            }
        }
        m_kept.push_back(kept);
    }
    return true;
}

void ResultKeeper::restore()
{
    for (Kept &kept : m_kept) {
        if (kept.copy.isEmpty())
            QFile::remove(kept.path);
        else // unlike QFile::rename() it replaces the target, in one step
            std::rename(QFile::encodeName(kept.copy).constData(),
                        QFile::encodeName(kept.path).constData());
        kept.copy.clear();
    }
    m_kept.clear();
}

} // namespace TE
