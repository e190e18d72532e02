#pragma once

#include "check/configurationinput.h"
#include "check/designinput.h"
#include "check/names/nameplan.h"
#include "workbench/checks/checkrun.h"

#include <QDialog>
#include <QTimer>

#include <functional>
#include <memory>

class QDialogButtonBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace NlsData {
class ReadControl;
}

namespace TE {
class Worker;
}

namespace Workbench {

class ReviewTree;
class SharedDesign;

/// Reviews the names of a saved configuration, or the instances that its activity files are bound
/// to: shows which of them are missing, mean something else or do not fit, and what would change in
/// the file, and changes it when told so. Long work is done in a thread.
class ReviewDialog : public QDialog
{
    Q_OBJECT

public:
    enum class Subject { Names, ActivityFiles };

    /// `design` is borrowed. `writeMemory`: a memory of names is also written when there is none.
    ReviewDialog(const CheckJob &job, SharedDesign *design, bool writeMemory, Subject subject,
                 QWidget *parent);
    ~ReviewDialog() override;

    /// Whether the configuration was changed, rather than only what its names mean.
    bool isFileChanged() const { return m_isFileChanged; }

    /// Called before the file is changed.
    void setBeforeApplying(std::function<void()> function)
    {
        m_beforeApplying = std::move(function);
    }

private:
    struct Preview
    {
        QString error;
        QString text;
        QString summary;
    };

    void read();
    void onRead();
    void schedulePreview();
    void makePreview();
    void onPreviewed();
    void apply();
    void setState(const QString &text, bool isError = false);
    Preview previewOf(const Check::NamePlan &plan) const;

    const CheckJob m_job;
    SharedDesign *const m_design;
    const bool m_writeMemory;
    const Subject m_subject;
    std::function<void()> m_beforeApplying;
    ReviewTree *m_tree;
    QLabel *m_state;
    QPlainTextEdit *m_changes;
    QPushButton *m_apply;
    QTimer m_later; // one preview for a series of ticks
    bool m_isFileChanged = false;

    // Of the thread while it runs.
    Check::ConfigurationInput m_input;
    Check::DesignInput m_designInput;
    Check::NameReview m_review;
    Check::NamePlan m_plan;
    Preview m_preview;
    bool m_isStale = false; // the plan has changed since the thread was started
    const std::unique_ptr<NlsData::ReadControl> m_control;
    std::unique_ptr<TE::Worker> m_worker;
};

} // namespace Workbench
