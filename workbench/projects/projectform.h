#pragma once

#include "workbench/projects/projectsettings.h"

#include <QWidget>

class QComboBox;
class QFormLayout;
class QLineEdit;

namespace Workbench {

class DeviceField;
class PathField;
class SourceList;
class SynthesisField;

/// Edits the settings of a project. For a new one it proposes the name and the sources from the
/// folder, the top module from the sources, and the command from the device. What the user has set
/// is not changed.
class ProjectForm : public QWidget
{
    Q_OBJECT

public:
    enum Kind {
        NewProject,
        OpenProject, ///< its folder is fixed
    };

    explicit ProjectForm(Kind kind, QWidget *parent = nullptr);

    /// Shows `settings`; what they have counts as set by the user. `deviceRemark` is shown below
    /// the device.
    void setSettings(const ProjectSettings &settings, const QString &deviceRemark = QString());

    ProjectSettings settings() const;

    struct Problem
    {
        QString text; ///< one sentence; empty: all is well
        QWidget *field = nullptr;
    };
    /// What is wrong with the settings.
    Problem problem() const;

signals:
    void changed();

private:
    void addRow(QFormLayout *layout, const QString &label, QWidget *row, QWidget *buddy);
    void connectFields();
    void onFolderChanged();
    void onSourcesChanged();
    void onDeviceChanged();
    void onChanged();
    Problem commandProblem() const;

    const Kind m_kind;
    QLineEdit *m_name;
    PathField *m_folder;
    SourceList *m_sources;
    QComboBox *m_top;
    DeviceField *m_device;
    SynthesisField *m_synthesis;
    PathField *m_netlist;
    bool m_setting = false;
    bool m_ownName = false; // the user's, not a proposal; likewise below
    bool m_ownSources = false;
    bool m_ownTop = false;
};

} // namespace Workbench
