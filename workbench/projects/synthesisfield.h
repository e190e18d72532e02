#pragma once

#include "workbench/projects/projectsettings.h"

#include <QWidget>

class QComboBox;
class QPlainTextEdit;

namespace Workbench {

/// The synthesis command of a project: from a template, which follows the other settings, or the
/// user's own. Typing into a template's command makes it the user's.
class SynthesisField : public QWidget
{
    Q_OBJECT

public:
    explicit SynthesisField(QWidget *parent = nullptr);

    /// Shows the command of `settings`, as a template's where it is one.
    void setSettings(const ProjectSettings &settings);

    /// Other settings have changed: a template's command follows them.
    void follow(const ProjectSettings &settings);

    /// Chooses the template of that command of the synthesis tool, unless the user has chosen.
    void propose(const char *command);

    /// False when a quote is not closed.
    bool command(QStringList *command) const;

    /// Whether the command is a template's.
    bool isTemplate() const;

    QWidget *choice() const;
    QWidget *editor() const;

signals:
    /// The user has chosen or typed.
    void edited();

private:
    void onChosen();
    void onTyped();
    void fill();

    ProjectSettings m_settings;
    QComboBox *m_choice;
    QPlainTextEdit *m_editor;
    bool m_chosen = false; // by the user
    bool m_filling = false;
};

} // namespace Workbench
