#pragma once

#include "core/iview.h"

class QPlainTextEdit;

namespace Workbench {

/// Shows a text file, read-only.
class TextView : public Core::IView
{
    Q_OBJECT

public:
    explicit TextView(const QString &path);

    /// Absolute.
    QString path() const { return m_path; }

    /// Reads the file. On failure gives one sentence in `error`.
    bool load(QString *error);

    /// Goes to a line, counted from 1, and marks it; to the last line if there are fewer.
    void showLine(int line);

private:
    QString m_path;
    QPlainTextEdit *m_text;
};

} // namespace Workbench
