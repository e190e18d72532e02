#include "tables/doubledelegate.h"

#include "tables/celleditor.h"
#include "tables/elidedpath.h"
#include "tables/markednames.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>

#include <cmath>

namespace VLT {

namespace {

const QLineEdit *lineOf(const QWidget *editor)
{
    const auto *line = qobject_cast<const QLineEdit *>(editor);
    return line ? line : editor->findChild<QLineEdit *>();
}

QString textOf(const QWidget *editor)
{
    const QLineEdit *line = lineOf(editor);
    return line ? line->text() : QString();
}

/// Whether `stored`, a number or its text, is `number` in the precision of the records.
bool isNumber(const QVariant &stored, double number)
{
    bool ok = false;
    const float value = stored.toFloat(&ok);
    return ok && value == float(number);
}

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

DoubleEditorDelegate::DoubleEditorDelegate(QObject *parent, double minimum, double maximum)
    : QStyledItemDelegate(parent)
    , m_minimum(minimum)
    , m_maximum(maximum)
{
}

void DoubleEditorDelegate::commitOpenEditor()
{
    if (!m_openEditor)
        return;
    emit commitData(m_openEditor);
    if (m_openEditor)
        emit closeEditor(m_openEditor);
    m_openEditor = nullptr;
}

bool DoubleEditorDelegate::hasPendingEdit() const
{
    return m_openEditor && textOf(m_openEditor) != m_openedOn;
}

QWidget *DoubleEditorDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                            const QModelIndex &index) const
{
    if (index.column() == 0)
        return QStyledItemDelegate::createEditor(parent, option, index);
    auto *editor = new CellEditor(parent);
    editor->setFrame(false);
    editor->setDecimals(2);
    editor->setRange(m_minimum, m_maximum);
    return editor;
}

void DoubleEditorDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *spinBox = qobject_cast<QDoubleSpinBox *>(editor);
    if (index.column() == 0 || !spinBox) {
        QStyledItemDelegate::setEditorData(editor, index);
    } else {
        const QVariant data = index.data(Qt::EditRole);
        const double value = data.toDouble();
        spinBox->setValue(std::isfinite(value) ? value : 0.0);
        if (data.type() == QVariant::String && data.toString().isEmpty())
            spinBox->clear();
    }
    if (editor == m_openEditor)
        noteOpened();
}

void DoubleEditorDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                        const QModelIndex &index) const
{
    auto *spinBox = qobject_cast<QDoubleSpinBox *>(editor);
    if (index.column() == 0 || !spinBox) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    // An editor that was never shown is filled by a command, whose text always counts.
    const bool isOpen = editor == m_openEditor;
    const bool isSet = !index.data(Qt::DisplayRole).toString().isEmpty();
    if (isOpen && spinBox->text() == m_openedOn && (isSet || !m_isConfirmed))
        return;
    switch (CellEditor::contentOf(*spinBox)) {
    case CellEditor::Content::Unset:
        model->setData(index, -1, Qt::EditRole);
        break;
    case CellEditor::Content::Unfinished:
        break;
    case CellEditor::Content::Number:
        spinBox->interpretText();
        // The same number in another spelling is not a change either. What the editor opened on may
        // differ from the number: a file can hold one that the editor limits or rounds.
        if (!isOpen || !isSet || !isNumber(index.data(Qt::EditRole), spinBox->value()))
            model->setData(index, spinBox->text(), Qt::EditRole);
        break;
    }
}

void DoubleEditorDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    QStyledItemDelegate::destroyEditor(editor, index);
    if (editor != m_openEditor)
        return;
    m_openEditor = nullptr;
    emit pendingEditChanged();
}

QString DoubleEditorDelegate::displayText(const QVariant &value, const QLocale &) const
{
    return QStyledItemDelegate::displayText(value, QLocale::c());
}

bool DoubleEditorDelegate::eventFilter(QObject *object, QEvent *event)
{
    auto *editor = qobject_cast<QWidget *>(object);
    if (editor && event->type() == QEvent::Show && editor != m_openEditor) {
        m_openEditor = editor;
        noteOpened();
        if (const QLineEdit *line = lineOf(editor))
            connect(line, &QLineEdit::textChanged, this, &DoubleEditorDelegate::pendingEditChanged);
    }
    const bool isPressed = event->type() == QEvent::KeyPress;
    // The table may use the key itself, but this override event precedes it.
    if (isPressed || event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (isEnter(key) || key == Qt::Key_Tab || key == Qt::Key_Backtab)
            m_isConfirmed = true;
        const auto *spinBox = qobject_cast<QDoubleSpinBox *>(object);
        // On Enter with an invalid number, the spin box restores its value before the delegate
        // commits, so an emptied cell would be cleared when the editor loses the focus but not by
        // Enter.
        if (spinBox && isPressed && isEnter(key) &&
            CellEditor::contentOf(*spinBox) != CellEditor::Content::Number) {
            emit commitData(editor);
            emit closeEditor(editor, SubmitModelCache);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

void DoubleEditorDelegate::noteOpened() const
{
    m_openedOn = textOf(m_openEditor);
    m_isConfirmed = false;
    emit pendingEditChanged();
}

void DoubleEditorDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const
{
    QStyleOptionViewItem cell = option;
    initStyleOption(&cell, index);
    const QStyle *style = cell.widget ? cell.widget->style() : QApplication::style();
    const int margin = style->pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
    const int width =
        style->subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget).width();
    cell.text = elidedPath(cell.text, cell.fontMetrics, width - 2 * margin - 1);
    if (cell.backgroundBrush.style() != Qt::NoBrush) {
        // Shines through a selection, which covers it.
        const QColor highlight = cell.palette.color(QPalette::Highlight);
        const QColor gray = cell.backgroundBrush.color();
        const auto mixed = [](int a, int b) { return (a + 2 * b) / 3; };
        cell.palette.setColor(QPalette::Highlight, QColor(mixed(highlight.red(), gray.red()),
                                                          mixed(highlight.green(), gray.green()),
                                                          mixed(highlight.blue(), gray.blue())));
    }
    style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
}

void DoubleEditorDelegate::initStyleOption(QStyleOptionViewItem *option,
                                           const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // Gray cells keep their color in a dark palette, whose light text would be hard to read on it.
    if (option->backgroundBrush.style() != Qt::NoBrush)
        option->palette.setColor(QPalette::Text, Qt::black);
    // Shape and icon, which a selection does not hide as it would a color.
    if (m_marks && index.column() == 0 && m_marks->isMissing(index.data().toString())) {
        option->font.setItalic(true);
        option->fontMetrics = QFontMetrics(option->font);
        option->features |= QStyleOptionViewItem::HasDecoration;
        option->icon = m_marks->icon();
        const int size = option->fontMetrics.height();
        option->decorationSize = {size, size};
    }
}

} // namespace VLT
