#pragma once

#include "check/names/nameplan.h"

#include <QTreeWidget>

namespace Workbench {

class NameCompletion;

/// The names that are missing or mean something else, each with its new name, and a tick on those
/// that are to change. Records that one substitution explains are one row, with the records below
/// it. Without a new name a record is removed; with its own name it stays, as what it means now.
class ReviewTree : public QTreeWidget
{
    Q_OBJECT

public:
    enum Column { NameColumn, TargetColumn, CertaintyColumn, ReasonColumn, ColumnCount };

    explicit ReviewTree(QWidget *parent = nullptr);

    /// Lists what of the review needs attention; what is sure is ticked.
    void setReview(const Check::NameReview &review);

    /// Offers the names of `design` while a new name is typed. It must outlive the tree's editors.
    void setCompletion(NameCompletion *completion) { m_completion = completion; }
    NameCompletion *completion() const { return m_completion; }

    /// A record's name in quotes; what stands for an empty one, which is that of the design.
    static QString shownName(const QString &name);

    /// What the ticked rows would change.
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
