#pragma once

#include "check/designinput.h"
#include "check/names/designnames.h"

#include <QHash>
#include <QObject>

#include <memory>

class QLineEdit;
class QStringListModel;

namespace TE {
class Worker;
}

namespace Workbench {

/// Offers the names of a design's objects while one is typed. The names of a kind are gathered in a
/// thread when they are first needed.
class NameCompletion : public QObject
{
    Q_OBJECT

public:
    explicit NameCompletion(Check::DesignInput design, QObject *parent = nullptr);
    ~NameCompletion() override;

    /// Offers in `editor` names of the kind of object that records of `section` name.
    void attach(QLineEdit *editor, const QString &section);

private:
    struct Names
    {
        QStringListModel *model = nullptr;
        QStringList found; // by the worker
        std::unique_ptr<TE::Worker> worker;
    };
    void gather(const QString &section, Names *names);

    const Check::DesignInput m_design;
    std::map<QString, Names> m_names; // by section
};

} // namespace Workbench
