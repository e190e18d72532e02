#include "workbench/startpage.h"

#include "workbench/projects/sampleproject.h"

#include "host/core/ifileopener.h"
#include "host/core/projectfile.h"
#include "host/core/projectsession.h"
#include "host/te/flowcontrol.h"

#include "te/constants.h"

#include <QAction>
#include <QCommandLinkButton>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QTabWidget>
#include <QTimer>

namespace Workbench {

namespace {

constexpr int COLUMN_CHARACTERS = 44;
constexpr int MAXIMUM_FILES = 8;
const QLatin1String ProjectSuffix(".fpgaproj");

// An ampersand in a file name is not a mnemonic.
QString withoutMnemonics(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

} // namespace

StartPage::StartPage(const Actions &actions, QWidget *parent)
    : QScrollArea(parent)
    , m_actions(actions)
    , m_recent(nullptr, QStringLiteral("recentProjects"))
{
    setObjectName(QStringLiteral("startPage"));
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    connect(Core::ProjectSession::get(), &Core::ProjectSession::currentProjectChanged, this,
            &StartPage::onProjectChanged);
    connect(TE::FlowControl::get(), &TE::FlowControl::statusChanged, this, &StartPage::updateLater);
}

QWidget *StartPage::around(QTabWidget *views)
{
    auto *stack = new QStackedWidget;
    stack->addWidget(this);
    stack->addWidget(views);
    connect(views, &QTabWidget::currentChanged, stack, [this, stack, views] {
        stack->setCurrentWidget(views->count() > 0 ? static_cast<QWidget *>(views) : this);
    });
    return stack;
}

void StartPage::addRecent(const QString &path)
{
    if (path.endsWith(ProjectSuffix, Qt::CaseInsensitive))
        m_recent.add(path);
}

void StartPage::onProjectChanged()
{
    if (Core::ProjectFile *project = Core::ProjectFile::current())
        connect(project, &Core::ProjectFile::changed, this, &StartPage::updateLater);
    updateLater();
}

void StartPage::showEvent(QShowEvent *event)
{
    QScrollArea::showEvent(event);
    if (m_outdated)
        rebuild();
}

// Changes often come in groups.
void StartPage::updateLater()
{
    if (m_outdated)
        return;
    m_outdated = true;
    QTimer::singleShot(0, this, [this] {
        if (m_outdated && isVisible())
            rebuild();
    });
}

void StartPage::rebuild()
{
    m_outdated = false;
    auto *content = new QWidget;
    auto *left = new QVBoxLayout;
    auto *right = new QVBoxLayout;
    auto *columns = new QHBoxLayout(content);
    const int space = fontMetrics().height();
    columns->setContentsMargins(2 * space, 2 * space, 2 * space, space);
    columns->setSpacing(2 * space);
    left->setSpacing(0); // the links have margins
    right->setSpacing(0);
    columns->addLayout(left, 1);
    columns->addLayout(right, 1);
    if (Core::ProjectFile::current())
        fillForProject(left, right);
    else
        fillForStart(left, right);
    left->addStretch();
    right->addStretch();
    setWidget(content);
}

void StartPage::fillForStart(QVBoxLayout *left, QVBoxLayout *right)
{
    addHeading(left, tr("Start"));
    addLink(left, "startNewProject", tr("New project\u2026"),
            tr("For a design of your own: Verilog sources, or a netlist"),
            [this] { m_actions.newProject->trigger(); });
    addLink(left, "startOpen", tr("Open\u2026"),
            tr("A project, a configuration, or a netlist that Yosys has written"),
            [this] { m_actions.open->trigger(); });
    addLink(left, "startSample", tr("Open the sample"),
            tr("A small design with a configuration that has everything"),
            [this] { openSample(); });
    addHeading(right, tr("Recent projects"));
    addFiles(right, m_recent.paths(), tr("Projects that you open are listed here."));
}

void StartPage::fillForProject(QVBoxLayout *left, QVBoxLayout *right)
{
    const Core::ProjectFile *project = Core::ProjectFile::current();
    addHeading(left, project->name());
    addFirstSteps(left);
    addLink(left, "startConfiguration", tr("New configuration\u2026"),
            tr("Conditions, rates and activity for power analysis"),
            [this] { emit configurationWanted(); });
    addLink(left, "startSettings", tr("Project settings\u2026"),
            tr("Sources, device, synthesis and netlist"),
            [this] { m_actions.projectSettings->trigger(); });
    addHeading(right, tr("Configurations"));
    QStringList configurations;
    const QStringList files = project->files();
    for (const QString &file : files) {
        if (Core::IFileOpener::forFile(file))
            configurations.append(file);
    }
    addFiles(right, configurations, tr("The project has none yet."));
}

// Steps without which configurations do not open.
void StartPage::addFirstSteps(QVBoxLayout *layout)
{
    const Core::ProjectFile *project = Core::ProjectFile::current();
    if (project->device().isEmpty()) {
        addLink(layout, "startDevice", tr("Choose device\u2026"),
                tr("Configurations need one: it decides the supply voltages"),
                [this] { m_actions.chooseDevice->trigger(); });
    }
    const QString netlist = project->resultFile(QLatin1String(TE::RES_NETLIST));
    if (TE::FlowControl::get()->isRunning()) {
        layout->addWidget(new QLabel(tr("Synthesis is running\u2026")));
    } else if (!project->synthesisProgram().isEmpty() && !QFileInfo::exists(netlist)) {
        addLink(layout, "startSynthesis", tr("Run synthesis"),
                tr("Configurations need the netlist %1").arg(QFileInfo(netlist).fileName()),
                [this] { m_actions.runSynthesis->trigger(); });
    }
}

void StartPage::openSample()
{
    QString error;
    const QString project = sampleProject(&error);
    if (project.isEmpty())
        emit failed(error);
    else
        emit fileChosen(project);
}

void StartPage::addFiles(QVBoxLayout *layout, const QStringList &paths, const QString &none)
{
    int shown = 0;
    for (const QString &path : paths) {
        const QFileInfo info(path);
        if (!info.exists() || ++shown > MAXIMUM_FILES)
            continue;
        const QString folder =
            fontMetrics().elidedText(QDir::toNativeSeparators(info.path()), Qt::ElideLeft,
                                     fontMetrics().averageCharWidth() * COLUMN_CHARACTERS);
        const bool isProject = path.endsWith(ProjectSuffix, Qt::CaseInsensitive);
        addLink(layout, "startFile", isProject ? info.completeBaseName() : info.fileName(), folder,
                [this, path] { emit fileChosen(path); });
    }
    if (shown > 0)
        return;
    auto *label = new QLabel(none);
    label->setWordWrap(true);
    label->setForegroundRole(QPalette::WindowText);
    layout->addWidget(label);
}

void StartPage::addHeading(QVBoxLayout *layout, const QString &text)
{
    auto *label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    QFont larger = label->font();
    larger.setPointSizeF(larger.pointSizeF() * 1.4);
    larger.setBold(true);
    label->setFont(larger);
    layout->addWidget(label);
}

// Queued: the command may rebuild the page, and delete the button.
void StartPage::addLink(QVBoxLayout *layout, const char *name, const QString &title,
                        const QString &description, const Run &run)
{
    auto *link = new QCommandLinkButton(withoutMnemonics(title), description);
    link->setObjectName(QLatin1String(name));
    layout->addWidget(link);
    connect(link, &QCommandLinkButton::clicked, this, run, Qt::QueuedConnection);
}

} // namespace Workbench
