#pragma once

#include "workbench/projects/projectform.h"

#include <QDialog>

class QDialogButtonBox;
class QLabel;

namespace Workbench {

/// Creates a project, or changes the settings of the open one. It closes only when that is done:
/// what is wrong is said in the dialog, and nothing that was typed is lost.
class ProjectDialog : public QDialog
{
    Q_OBJECT

public:
    /// Creates a project; `settings` are what is known of it.
    static ProjectDialog *forNew(const ProjectSettings &settings, const QString &deviceRemark,
                                 QWidget *parent);

    /// Changes the current project; there has to be one.
    static ProjectDialog *forCurrent(QWidget *parent);

    /// What was created or set, once the dialog is accepted.
    ProjectSettings settings() const { return m_form->settings(); }

    void accept() override;

private:
    ProjectDialog(ProjectForm::Kind kind, QWidget *parent);
    bool write(QString *error);
    void showProblem(const QString &text);

    const ProjectForm::Kind m_kind;
    QString m_projectPath; // of the project whose settings are changed
    ProjectForm *m_form;
    QLabel *m_problem;
    QDialogButtonBox *m_buttons;
};

} // namespace Workbench
