#include "widgets/uniformrows.h"

#include <QFontMetrics>
#include <QListWidget>

#include <algorithm>

namespace VLT {

void widenUniformRows(QListWidget *list, const QStringList &texts)
{
    if (texts.isEmpty())
        return;
    const auto longest =
        std::max_element(texts.begin(), texts.end(),
                         [](const QString &a, const QString &b) { return a.size() < b.size(); });
    QSize size = list->sizeHintForIndex(list->model()->index(0, 0));
    const QFontMetrics metrics(list->font());
    size.rwidth() += metrics.horizontalAdvance(*longest) - metrics.horizontalAdvance(texts.first());
    list->item(0)->setSizeHint(size);
}

} // namespace VLT
