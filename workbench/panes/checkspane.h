#pragma once

#include "check/finding.h"

#include <QWidget>

class QAction;
class QLabel;
class QToolButton;
class QTreeView;

namespace Workbench {

class CheckService;
class FindingsFilter;
class FindingsModel;

/// The findings on the current configuration: filtered by level, copied as text, and linked to
/// their records.
class ChecksPane : public QWidget
{
    Q_OBJECT

public:
    /// `service` is not owned and outlives the pane. `commands` are also offered here.
    ChecksPane(CheckService *service, const QList<QAction *> &commands, QWidget *parent = nullptr);

signals:
    /// The user wants to see the record: the `occurrence`-th of its name.
    void recordWanted(const Check::Finding &finding, int occurrence);

    /// The user wants to bind an activity file to the instance that the finding proposes.
    void instanceWanted();

protected:
    void changeEvent(QEvent *event) override;

private:
    void update();
    void updateState();
    void updateButtons();
    void updateBinding();
    void activate(const QModelIndex &index);
    void copy();
    void showMenu(const QPoint &position);
    /// The selected findings in their order; all that are shown when none is selected.
    QVector<Check::Finding> chosen() const;

    CheckService *const m_service;
    FindingsModel *const m_model;
    FindingsFilter *const m_filter;
    const QList<QAction *> m_commands;
    QAction *m_goTo;
    QAction *m_copy;
    QAction *m_bind;
    QToolButton *m_bindButton;
    QTreeView *m_list;
    QLabel *m_state;
    QVector<QToolButton *> m_levels; // errors, warnings, notes
    QString m_path;                  // whose findings are listed
};

} // namespace Workbench
