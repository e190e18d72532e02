#include "workbench/checks/namecompletion.h"

#include "host/te/worker.h"

#include <QCompleter>
#include <QLineEdit>
#include <QStringListModel>

namespace Workbench {

namespace {

constexpr int VISIBLE_NAMES = 12;

} // namespace

NameCompletion::NameCompletion(Check::DesignInput design, QObject *parent)
    : QObject(parent)
    , m_design(std::move(design))
{
}

NameCompletion::~NameCompletion() = default;

void NameCompletion::attach(QLineEdit *editor, const QString &section)
{
    Names &names = m_names[section];
    if (!names.model)
        gather(section, &names);
    auto *completer = new QCompleter(names.model, editor);
    completer->setModelSorting(QCompleter::CaseSensitivelySortedModel);
    completer->setCaseSensitivity(Qt::CaseSensitive);
    completer->setMaxVisibleItems(VISIBLE_NAMES);
    editor->setCompleter(completer);
}

void NameCompletion::gather(const QString &section, Names *names)
{
    names->model = new QStringListModel(this);
    Check::ObjectKind kind{};
    if (!m_design.names || !Check::kindOfSection(section, &kind))
        return;
    names->worker = std::make_unique<TE::Worker>([this, names, kind](const TE::Worker &worker) {
        m_design.names->forEach(kind, [&](const Check::DesignObject &object) {
            if (!worker.isCancelled())
                names->found.append(object.path());
        });
        std::sort(names->found.begin(), names->found.end());
    });
    connect(names->worker.get(), &TE::Worker::done, this, [names] {
        names->model->setStringList(names->found);
        names->found.clear();
    });
}

} // namespace Workbench
