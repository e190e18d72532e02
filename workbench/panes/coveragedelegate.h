#pragma once

#include <QStyledItemDelegate>

namespace Workbench {

/// Paints cells that have a CoverageBar: the bar, and the cell's text beside it.
class CoverageDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
};

} // namespace Workbench
