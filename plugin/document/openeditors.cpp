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
        // The table accepts an editor of any of its delegates and ignores other widgets.
        const auto editors =
            table->viewport()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget *editor : editors) {
            emit delegate->commitData(editor);
            emit delegate->closeEditor(editor, QAbstractItemDelegate::NoHint);
        }
    }
    // After the cells: their delegate reads an emptied editor as a cleared value, but interpreting
    // its text would restore the old one.
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
