#pragma once

#include <QTimer>
#include <QWidget>

class QCheckBox;
class QLabel;
class QProgressBar;
class QSortFilterProxyModel;
class QToolButton;
class QTreeView;

namespace Workbench {

class CoverageLegend;
class CoverageModel;
class CoverageService;
class UncoveredPane;

/// What covers the design according to the configuration in front: its instances with bars per kind
/// of net and by source, what is left to defaults, and the counting of toggles.
class CoveragePane : public QWidget
{
    Q_OBJECT

public:
    /// `service` is not owned and outlives the pane.
    explicit CoveragePane(CoverageService *service, QWidget *parent = nullptr);

signals:
    /// The user wants these nets to be added to the net rates of the configuration in front.
    void ratesWanted(const QStringList &nets);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    QWidget *createBar();
    void createTree();
    void update();
    void updateState();
    void updateColumns();
    void updateInstance();
    QString stateText() const;
    void setNested(bool nested);

    CoverageService *const m_service;
    CoverageModel *const m_model;
    QSortFilterProxyModel *const m_sorted;
    QTreeView *const m_tree;
    UncoveredPane *const m_uncovered;
    CoverageLegend *const m_legend;
    QLabel *const m_state;
    QCheckBox *const m_nested;
    QToolButton *const m_count;
    QToolButton *const m_stop;
    QProgressBar *const m_progress;
    QTimer m_poll;  // of the progress
    QString m_path; // whose coverage is shown
};

} // namespace Workbench
