#include "workbench/projects/projectdialog.h"

#include "host/core/projectfile.h"
#include "host/te/deviceselection.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace Workbench {

namespace {

constexpr int WIDTH_IN_CHARACTERS = 90;

} // namespace

ProjectDialog::ProjectDialog(ProjectForm::Kind kind, QWidget *parent)
    : QDialog(parent)
    , m_kind(kind)
    , m_form(new ProjectForm(kind))
    , m_problem(new QLabel)
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    const bool isNew = kind == ProjectForm::NewProject;
    setObjectName(QStringLiteral("projectDialog"));
    setWindowTitle(isNew ? tr("New Project") : tr("Project Settings"));
    if (isNew)
        m_buttons->button(QDialogButtonBox::Ok)->setText(tr("Create"));
    m_problem->setObjectName(QStringLiteral("projectProblem"));
    m_problem->setTextFormat(Qt::PlainText);
    m_problem->setWordWrap(true);
    const bool dark = palette().color(QPalette::Window).lightness() < 128;
    QPalette colors = m_problem->palette();
    colors.setColor(QPalette::WindowText, dark ? QColor(255, 120, 110) : QColor(176, 0, 0));
    m_problem->setPalette(colors);
    m_problem->hide();

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_form, 1);
    layout->addWidget(m_problem);
    layout->addWidget(m_buttons);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &ProjectDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &ProjectDialog::reject);
    connect(m_form, &ProjectForm::changed, m_problem, &QWidget::hide);
    // Fits a small screen: the list of sources shrinks.
    resize(qMax(sizeHint().width(), fontMetrics().averageCharWidth() * WIDTH_IN_CHARACTERS),
           qMin(sizeHint().height(), screen()->availableSize().height() * 9 / 10));
}

ProjectDialog *ProjectDialog::forNew(const ProjectSettings &settings, const QString &deviceRemark,
                                     QWidget *parent)
{
    auto *dialog = new ProjectDialog(ProjectForm::NewProject, parent);
    dialog->m_form->setSettings(settings, deviceRemark);
    return dialog;
}

ProjectDialog *ProjectDialog::forCurrent(QWidget *parent)
{
    auto *dialog = new ProjectDialog(ProjectForm::OpenProject, parent);
    const Core::ProjectFile *project = Core::ProjectFile::current();
    dialog->m_projectPath = project->path();
    dialog->m_form->setSettings(ProjectSettings::of(*project));
    return dialog;
}

void ProjectDialog::accept()
{
    const ProjectForm::Problem problem = m_form->problem();
    if (!problem.text.isEmpty()) {
        showProblem(problem.text);
        problem.field->setFocus();
        return;
    }
    QString error;
    const QPointer<ProjectDialog> self(this);
    const bool written = write(&error);
    if (!self)
        return;
    if (written)
        QDialog::accept();
    else
        showProblem(error);
}

bool ProjectDialog::write(QString *error)
{
    const ProjectSettings settings = m_form->settings();
    if (m_kind == ProjectForm::NewProject)
        return settings.create(error);
    Core::ProjectFile *project = Core::ProjectFile::current();
    if (!project || project->path() != m_projectPath) {
        *error = tr("The project %1 is no longer open.").arg(settings.name);
        return false;
    }
    ProjectSettings others = settings;
    others.device = project->device();
    if (!others.apply(project, error))
        return false;
    // Views follow the device, or close.
    if (settings.device != project->device())
        TE::DeviceSelection::get()->setDevice(settings.device);
    return true;
}

void ProjectDialog::showProblem(const QString &text)
{
    m_problem->setText(text);
    m_problem->show();
}

} // namespace Workbench
