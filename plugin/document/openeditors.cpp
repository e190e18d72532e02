#include "document/openeditors.h"

#include "tables/doubledelegate.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>

#include <algorithm>

namespace VLT {

void commitOpenEditors(const QWidget *within)
{
    const auto tables = within->findChildren<QAbstractItemView *>();
    for (QAbstractItemView *table : tables) {
        QAbstractItemDelegate *delegate = table->itemDelegate();
        if (!delegate)
            continue;
        // The table takes an editor of any of its delegates, and leaves other widgets alone.
        const auto editors =
            table->viewport()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget *editor : editors) {
            emit delegate->commitData(editor);
            emit delegate->closeEditor(editor, QAbstractItemDelegate::NoHint);
        }
    }
    // After the cells, whose delegate takes an emptied editor for a cleared value: interpreting it
    // would bring the old one back.
    const auto spinBoxes = within->findChildren<QAbstractSpinBox *>();
    for (QAbstractSpinBox *spinBox : spinBoxes)
        spinBox->interpretText();
}

bool hasPendingEditor(const QWidget *within)
{
    const auto delegates = within->findChildren<DoubleEditorDelegate *>();
    return std::any_of(delegates.begin(), delegates.end(),
                       [](const auto *delegate) { return delegate->hasPendingEdit(); });
}

} // namespace VLT
