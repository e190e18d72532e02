#include "workbench/panes/coveragedelegate.h"

#include "workbench/panes/coveragebar.h"
#include "workbench/panes/coveragemodel.h"

#include <QApplication>
#include <QPainter>

namespace Workbench {

void CoverageDelegate::paint(QPainter *painter, const QStyleOptionViewItem &given,
                             const QModelIndex &index) const
{
    const QVariant data = index.data(CoverageModel::BarRole);
    if (!data.canConvert<CoverageBar>())
        return QStyledItemDelegate::paint(painter, given, index);
    QStyleOptionViewItem option = given;
    initStyleOption(&option, index);
    const QString text = option.text;
    option.text.clear();
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &option, painter, option.widget);
    const auto bar = data.value<CoverageBar>();
    const int height = option.fontMetrics.height();
    const int margin = height / 4;
    QRect rect = option.rect.adjusted(margin, 0, -margin, 0);
    if (!text.isEmpty()) {
        const int width = option.fontMetrics.horizontalAdvance(QStringLiteral("100 %"));
        const QRect textRect(rect.right() - width + 1, rect.top(), width, rect.height());
        const bool isSelected = option.state & QStyle::State_Selected;
        style->drawItemText(painter, textRect, Qt::AlignRight | Qt::AlignVCenter, option.palette,
                            option.state & QStyle::State_Enabled, text,
                            isSelected ? QPalette::HighlightedText : QPalette::Text);
        rect.setRight(textRect.left() - margin);
    }
    if (bar.whole == 0 || rect.width() < 4)
        return;
    const int thickness = qMin(rect.height() - 2, height * 5 / 8);
    rect.setTop(rect.top() + (rect.height() - thickness) / 2);
    rect.setHeight(thickness);
    bar.paint(painter, rect, option.palette);
}

} // namespace Workbench
