#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace TE {

/// Copies of result files from before a run, so that a run that fails leaves them as they were.
class ResultKeeper
{
public:
    /// Copies the files at `paths` that exist. False when a copy cannot be made, with one sentence
    /// in `error`.
    bool keep(const QStringList &paths, QString *error);

    /// Puts the files back as they were; files that were not there are removed again.
    void restore();

    ~ResultKeeper();

private:
    struct Kept
    {
        QString path;
        QString copy; // empty: there was no file
    };

    std::vector<Kept> m_kept;
};

} // namespace TE
