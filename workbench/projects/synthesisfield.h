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

    /// Shows the command of `settings`, and the template that produces it, if any.
    void setSettings(const ProjectSettings &settings);

    /// Updates a template's command after other settings have changed.
    void follow(const ProjectSettings &settings);

    /// Selects the template for this command of the synthesis tool, unless the user has chosen one.
    void propose(const char *command);

    /// False if a quote is not closed.
    bool command(QStringList *command) const;

    /// Whether the command comes from a template.
    bool isTemplate() const;

    QWidget *choice() const;
    QWidget *editor() const;

signals:
    /// The user has chosen a template or typed a command.
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
