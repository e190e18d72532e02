#pragma once

#include "check/names/nameplan.h"

#include <QTreeWidget>

namespace Workbench {

class NameCompletion;

/// Lists the names that are missing or mean something else, each with its new name and a check box.
/// Records explained by one substitution are grouped in one row. A record without a new name is
/// removed; one that keeps its name is accepted with its present meaning.
class ReviewTree : public QTreeWidget
{
    Q_OBJECT

public:
    enum Column { NameColumn, TargetColumn, CertaintyColumn, ReasonColumn, ColumnCount };

    explicit ReviewTree(QWidget *parent = nullptr);

    /// Lists the records that need attention; sure proposals are ticked.
    void setReview(const Check::NameReview &review);

    /// Offers the names of `design` while a new name is typed. It must outlive the tree's editors.
    void setCompletion(NameCompletion *completion) { m_completion = completion; }
    NameCompletion *completion() const { return m_completion; }

    /// A record's name in quotes; what stands for an empty one, which is that of the design.
    static QString shownName(const QString &name);

    /// The changes of the ticked rows.
    QVector<Check::RecordEdit> edits() const;

    const Check::ReviewedRecord *record(const QTreeWidgetItem *item) const;

signals:
    void editsChanged();

private:
    QTreeWidgetItem *addRecord(int index, QTreeWidgetItem *group);
    void onItemChanged(QTreeWidgetItem *item, int column);
    void showTarget(QTreeWidgetItem *item);

    QVector<Check::ReviewedRecord> m_records;
    NameCompletion *m_completion = nullptr;
    bool m_isFilling = false;
};

} // namespace Workbench
