#include "workbench/projects/projectform.h"

#include "workbench/projects/designfamily.h"
#include "workbench/projects/devicefield.h"
#include "workbench/projects/pathfield.h"
#include "workbench/projects/sourcelist.h"
#include "workbench/projects/synthesisfield.h"
#include "workbench/projects/synthesistemplate.h"
#include "workbench/projects/verilogmodules.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace Workbench {

namespace {

const QLatin1String UsualNetlist("netlist.json");
const QLatin1String GenericSynthesis("synth");

} // namespace

ProjectForm::ProjectForm(Kind kind, QWidget *parent)
    : QWidget(parent)
    , m_kind(kind)
    , m_name(new QLineEdit)
    , m_folder(new PathField(PathField::Folder, tr("Project Folder"), tr("&Browse\u2026")))
    , m_sources(new SourceList)
    , m_top(new QComboBox)
    , m_device(new DeviceField)
    , m_synthesis(new SynthesisField)
    , m_netlist(new PathField(PathField::FileToWrite, tr("Netlist File"), tr("Bro&wse\u2026")))
{
    m_name->setObjectName(QStringLiteral("projectName"));
    m_folder->line()->setObjectName(QStringLiteral("projectFolder"));
    m_folder->setReadOnly(kind == OpenProject);
    m_top->setObjectName(QStringLiteral("topModule"));
    m_top->setEditable(true);
    m_top->setInsertPolicy(QComboBox::NoInsert);
    m_top->lineEdit()->setPlaceholderText(tr("Found by synthesis"));
    m_netlist->line()->setObjectName(QStringLiteral("netlistFile"));
    m_netlist->line()->setToolTip(tr("The JSON file that synthesis writes"));
    if (kind == NewProject)
        m_netlist->setText(UsualNetlist);

    auto *layout = new QFormLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    addRow(layout, tr("&Name:"), m_name, m_name);
    addRow(layout, tr("&Folder:"), m_folder, m_folder->line());
    addRow(layout, tr("&Sources:"), m_sources, m_sources->list());
    addRow(layout, tr("&Top module:"), m_top, m_top);
    addRow(layout, tr("&Device:"), m_device, m_device->button());
    addRow(layout, tr("N&etlist:"), m_netlist, m_netlist->line());
    addRow(layout, tr("S&ynthesis:"), m_synthesis, m_synthesis->choice());
    const auto buttons = findChildren<QPushButton *>(); // one column
    int width = 0;
    for (const QPushButton *button : buttons)
        width = qMax(width, button->sizeHint().width());
    for (QPushButton *button : buttons)
        button->setMinimumWidth(width);
    connectFields();
}

void ProjectForm::addRow(QFormLayout *layout, const QString &label, QWidget *row, QWidget *buddy)
{
    auto *text = new QLabel(label);
    text->setBuddy(buddy);
    // In the middle of the row's first line, however tall the row is.
    int line = buddy == m_sources->list() ? 0 : buddy->sizeHint().height();
    if (const auto *button = row->findChild<QPushButton *>())
        line = qMax(line, button->sizeHint().height());
    text->setFixedHeight(line);
    // Screen readers do not connect the label with a buddy inside a row of several widgets.
    QString name = label;
    buddy->setAccessibleName(name.remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    layout->addRow(text, row);
}

void ProjectForm::connectFields()
{
    connect(m_name, &QLineEdit::textEdited, this, [this] { m_ownName = true; });
    connect(m_name, &QLineEdit::textChanged, this, &ProjectForm::onChanged);
    connect(m_folder, &PathField::changed, this, &ProjectForm::onFolderChanged);
    connect(m_sources, &SourceList::edited, this, [this] { m_ownSources = true; });
    connect(m_sources, &SourceList::changed, this, &ProjectForm::onSourcesChanged);
    connect(m_top->lineEdit(), &QLineEdit::textEdited, this, [this] { m_ownTop = true; });
    connect(m_top, qOverload<int>(&QComboBox::activated), this, [this] { m_ownTop = true; });
    connect(m_top, &QComboBox::editTextChanged, this, &ProjectForm::onChanged);
    connect(m_device, &DeviceField::changed, this, &ProjectForm::onDeviceChanged);
    connect(m_synthesis, &SynthesisField::edited, this, &ProjectForm::changed);
    connect(m_netlist, &PathField::changed, this, &ProjectForm::onChanged);
}

void ProjectForm::setSettings(const ProjectSettings &settings, const QString &deviceRemark)
{
    // A new project that starts from a folder alone leaves everything to the proposals.
    const bool settled = m_kind == OpenProject || !settings.netlist.isEmpty();
    m_ownName = settled || !settings.name.isEmpty();
    m_ownSources = settled || !settings.sources.isEmpty();
    m_ownTop = settled || !settings.top.isEmpty();

    m_setting = true;
    m_name->setText(settings.name);
    m_netlist->setBase(settings.folder);
    if (!settings.netlist.isEmpty())
        m_netlist->setText(settings.relative(settings.netlist));
    m_folder->setText(settings.folder);
    m_sources->setFolder(settings.folder);
    m_sources->setPaths(settings.sources);
    m_top->setEditText(settings.top);
    m_device->setDevice(settings.device, deviceRemark);
    m_synthesis->setSettings(settings);
    m_setting = false;
    if (m_kind == NewProject)
        onFolderChanged();
    m_name->selectAll();
}

ProjectSettings ProjectForm::settings() const
{
    ProjectSettings result;
    result.name = m_name->text().trimmed();
    result.folder = m_folder->path();
    result.sources = m_sources->paths();
    result.top = m_top->currentText().trimmed();
    result.device = m_device->device();
    m_synthesis->command(&result.command);
    result.netlist = m_netlist->path();
    return result;
}

void ProjectForm::onFolderChanged()
{
    if (m_setting)
        return;
    const QString folder = m_folder->path();
    m_netlist->setBase(folder);
    if (!m_ownName)
        m_name->setText(QFileInfo(folder).fileName());
    m_sources->setFolder(folder);
    if (!m_ownSources)
        m_sources->setPaths(SourceList::verilogIn(folder));
    onChanged();
}

void ProjectForm::onSourcesChanged()
{
    const QStringList tops = topModulesOf(m_sources->paths());
    const QString present = m_top->currentText();
    m_top->clear();
    m_top->addItems(tops);
    m_top->setEditText(m_ownTop || m_setting ? present
                       : tops.size() == 1    ? tops.first()
                                             : QString());
    if (m_kind == NewProject && !m_setting)
        onDeviceChanged();
    onChanged();
}

void ProjectForm::onDeviceChanged()
{
    if (m_setting)
        return;
    const auto sources = m_sources->paths();
    if (m_kind == NewProject && std::any_of(sources.begin(), sources.end(), isVerilog)) {
        const DesignFamily *family = familyOfDevice(m_device->device());
        const bool known = family && *family->synthesis;
        m_synthesis->propose(known ? family->synthesis : GenericSynthesis.data());
    }
    onChanged();
}

void ProjectForm::onChanged()
{
    if (m_setting)
        return;
    m_synthesis->follow(settings());
    emit changed();
}

ProjectForm::Problem ProjectForm::problem() const
{
    const ProjectSettings settings = this->settings();
    if (settings.name.isEmpty())
        return {tr("Enter a name for the project."), m_name};
    if (m_kind == OpenProject)
        return commandProblem();
    if (settings.name.contains(QLatin1Char('/')) || settings.name.startsWith(QLatin1Char('.'))) {
        return {tr("The name is also the file's: it cannot contain \"/\" or begin with \".\"."),
                m_name};
    }
    if (settings.folder.isEmpty())
        return {tr("Choose the folder of the project."), m_folder->line()};
    if (!QFileInfo(settings.folder).isDir()) {
        return {tr("The folder %1 does not exist.").arg(QDir::toNativeSeparators(settings.folder)),
                m_folder->line()};
    }
    if (QFileInfo::exists(settings.projectPath())) {
        return {tr("%1 already exists. Choose another name, or open that project.")
                    .arg(QDir::toNativeSeparators(settings.projectPath())),
                m_name};
    }
    return commandProblem();
}

ProjectForm::Problem ProjectForm::commandProblem() const
{
    QStringList command;
    if (!m_synthesis->command(&command))
        return {tr("A quote in the synthesis command is not closed."), m_synthesis->editor()};
    if (!m_synthesis->isTemplate())
        return {};
    if (m_netlist->text().isEmpty())
        return {tr("Enter the file that synthesis writes the netlist to."), m_netlist->line()};
    const auto sources = m_sources->paths();
    if (std::none_of(sources.begin(), sources.end(), isVerilog)) {
        return {tr("Add Verilog sources for this synthesis command, or choose another one."),
                m_sources->list()};
    }
    return {};
}

} // namespace Workbench
