#pragma once

#include <QWidget>

class QLineEdit;

namespace Workbench {

/// A line for a path and a button that chooses one.
class PathField : public QWidget
{
    Q_OBJECT

public:
    enum Kind { Folder, FileToWrite };

    /// `button` is the button's text, with its mnemonic.
    PathField(Kind kind, const QString &caption, const QString &button, QWidget *parent = nullptr);

    /// The line, for names and labels.
    QLineEdit *line() const { return m_line; }

    QString text() const;
    void setText(const QString &text);

    /// Where a relative path begins; a chosen file below it is shown relative to it.
    void setBase(const QString &folder) { m_base = folder; }

    /// Absolute; empty without a text.
    QString path() const;

    void setReadOnly(bool readOnly);

signals:
    void changed();

private:
    void choose();

    const Kind m_kind;
    const QString m_caption;
    QString m_base;
    QLineEdit *m_line;
    QWidget *m_button;
};

} // namespace Workbench
