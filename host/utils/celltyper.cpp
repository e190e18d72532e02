#include "host/utils/celltyper_p.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMetaProperty>
#include <QStyledItemDelegate>
#include <QValidator>

namespace Utils {

namespace {

bool typeIntoLine(QLineEdit *line, const QString &text)
{
    QString input = text;
    int pos = input.size();
    const QValidator *validator = line->validator();
    // The delegate decides whether an empty text is acceptable.
    if (validator && !input.isEmpty() &&
        validator->validate(input, pos) != QValidator::Acceptable) {
        validator->fixup(input);
        pos = input.size();
        if (validator->validate(input, pos) != QValidator::Acceptable)
            return false;
    }
    line->selectAll();
    line->insert(input);
    return line->text() == input;
}

bool typeInto(QWidget *editor, const QString &text)
{
    if (auto *box = qobject_cast<QComboBox *>(editor); box && !box->isEditable()) {
        const int item = box->findText(text);
        box->setCurrentIndex(item >= 0 ? item : box->currentIndex());
        return item >= 0;
    }
    auto *line = qobject_cast<QLineEdit *>(editor);
    if (!line)
        line = editor->findChild<QLineEdit *>();
    if (line)
        return typeIntoLine(line, text);
    const QMetaProperty property = editor->metaObject()->userProperty();
    QVariant value = text;
    return property.isValid() && value.convert(property.userType()) &&
           property.write(editor, value);
}

QVariant valueOf(const QWidget *editor)
{
    return editor->metaObject()->userProperty().read(editor);
}

} // namespace

QString shownText(const QTableView *table, const QModelIndex &index, int role)
{
    const QVariant value = index.data(role);
    const auto *delegate = qobject_cast<QStyledItemDelegate *>(table->itemDelegate(index));
    if (!value.isValid() || !delegate || value.type() == QVariant::String)
        return value.toString();
    return delegate->displayText(value, table->locale());
}

CellTyper::CellTyper(QTableView *table)
    : m_table(table)
{
}

void CellTyper::type(const QModelIndex &index, const QString &text)
{
    const QString before = shownText(m_table, index);
    if (text == before)
        return;
    if (!commit(index, text))
        ++m_refused;
    else if (shownText(m_table, index) != before)
        ++m_changed;
}

bool CellTyper::commit(const QModelIndex &index, const QString &text)
{
    constexpr Qt::ItemFlags needed = Qt::ItemIsEnabled | Qt::ItemIsEditable;
    if ((index.flags() & needed) != needed ||
        m_table->editTriggers() == QAbstractItemView::NoEditTriggers)
        return false;
    QWidget *editor = editorFor(index);
    if (!editor)
        return false;
    QAbstractItemDelegate *delegate = m_table->itemDelegate(index);
    delegate->setEditorData(editor, index);
    const QVariant offered = valueOf(editor);
    const QVariant stored = index.data(Qt::EditRole);
    if (!typeInto(editor, text))
        return false;
    delegate->setModelData(editor, m_table->model(), index);
    // A model may refuse without notice; it has not if the text was unchanged.
    return valueOf(editor) == offered || index.data(Qt::EditRole) != stored;
}

QWidget *CellTyper::editorFor(const QModelIndex &index)
{
    std::unique_ptr<QWidget> &editor = m_editors[index.column()];
    if (!editor) {
        QStyleOptionViewItem option;
        option.initFrom(m_table);
        option.widget = m_table;
        option.index = index;
        editor.reset(
            m_table->itemDelegate(index)->createEditor(m_table->viewport(), option, index));
    }
    return editor.get();
}

} // namespace Utils
