#include "frame/newfiledialog.h"

#include "config/safewrite.h"
#include "config/vlrfile.h"
#include "ui_newfiledialog.h"
#include "widgets/plainmessage.h"

#include "core/project.h"
#include "core/projectmanager.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace VLT {

NewFileDialog::NewFileDialog(const QString &path, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::NewFileDialog>())
{
    m_ui->setupUi(this);
    m_ui->labelInfo->setStyleSheet(QStringLiteral("QLabel { color: red }"));
    m_ui->editCreateIn->setText(QDir::toNativeSeparators(path.isEmpty() ? QDir::homePath() : path));
    const bool hasProject = Core::ProjectManager::currentProject() != nullptr;
    m_ui->checkBoxAddToCurrent->setEnabled(hasProject);
    m_ui->checkBoxAddToCurrent->setChecked(hasProject);
    connect(m_ui->btnBrowse, &QPushButton::clicked, this, &NewFileDialog::onBrowse);
}

NewFileDialog::~NewFileDialog() = default;

QString NewFileDialog::filePath() const
{
    const QString path = m_ui->editCreateIn->text() + QLatin1Char('/') + m_ui->editName->text() +
                         QStringLiteral(".vlr");
    return path.trimmed();
}

void NewFileDialog::onBrowse()
{
    const QString folder = QFileDialog::getExistingDirectory(
        this, tr("Select Directory"), m_ui->editCreateIn->text(), QFileDialog::ShowDirsOnly);
    if (!folder.isEmpty())
        m_ui->editCreateIn->setText(folder);
}

void NewFileDialog::accept()
{
    const QString target = QDir::cleanPath(filePath());
    const QString message = problem(target);
    if (!message.isEmpty()) {
        m_ui->labelInfo->setText(message);
        return;
    }
    if (!createFile(target))
        return;
    Core::Project *project = Core::ProjectManager::currentProject();
    if (m_ui->checkBoxAddToCurrent->isChecked() && project)
        project->addFile(target);
    QDialog::accept();
}

QString NewFileDialog::problem(const QString &target) const
{
    if (m_ui->editName->text().isEmpty())
        return tr("Please enter a name.");
    const QString folder = m_ui->editCreateIn->text();
    if (folder.isEmpty())
        return tr("Please enter a path.");
    if (!QDir(folder).exists() && !QDir().mkpath(folder))
        return tr("Cannot make the path %1.").arg(folder);
    if (QFileInfo::exists(target))
        return tr("File %1 already exists.").arg(target);
    return QString();
}

bool NewFileDialog::createFile(const QString &target)
{
    const WriteResult result = VLT::createFile(target, emptyFile());
    if (result.isWritten())
        return true;
    showMessage(QMessageBox::Critical, this, QStringLiteral("Error"),
                QStringLiteral("Can not create file %1\n%2")
                    .arg(QDir::toNativeSeparators(target), result.cause));
    return false;
}

} // namespace VLT
