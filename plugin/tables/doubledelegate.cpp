#include "tables/doubledelegate.h"

#include "widgets/pointspinbox.h"

#include <QKeyEvent>
#include <QLocale>
#include <QRegularExpression>

#include <cmath>

namespace VLT {

namespace {

/// Takes what was copied from a cell: a unit behind the number ("12.5%", "5.5pF") is dropped, and
/// a number with more decimals than the box shows is rounded.
class CellEditor : public PointSpinBox
{
public:
    using PointSpinBox::PointSpinBox;

    QValidator::State validate(QString &input, int &pos) const override
    {
        static const QRegularExpression unit(QStringLiteral("(?<=[0-9.,])\\s*(%|pF)\\s*$"));
        input.remove(unit);
        pos = qMin(pos, input.size());
        return PointSpinBox::validate(input, pos);
    }

    void fixup(QString &input) const override
    {
        bool ok = false;
        const double number = locale().toDouble(input.trimmed(), &ok);
        if (ok && number >= minimum() && number <= maximum())
            input = textFromValue(number);
    }
};

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
        return;
    }
    const double value = index.data(Qt::EditRole).toDouble();
    spinBox->setValue(std::isfinite(value) ? value : 0.0);
}

void DoubleEditorDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                        const QModelIndex &index) const
{
    auto *spinBox = qobject_cast<QDoubleSpinBox *>(editor);
    if (index.column() == 0 || !spinBox) {
        QStyledItemDelegate::setModelData(editor, model, index);
        return;
    }
    // Interpreting an empty text would bring the old value back.
    if (spinBox->text().isEmpty()) {
        model->setData(index, -1, Qt::EditRole);
        return;
    }
    spinBox->interpretText();
    model->setData(index, spinBox->text(), Qt::EditRole);
}

QString DoubleEditorDelegate::displayText(const QVariant &value, const QLocale &) const
{
    return QStyledItemDelegate::displayText(value, QLocale::c());
}

bool DoubleEditorDelegate::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() == QEvent::Show)
        m_openEditor = qobject_cast<QWidget *>(object);
    // The spin box answers Enter on an empty text by restoring its value before the delegate
    // could commit, so that an emptied cell would be cleared by leaving it but not by Enter.
    const auto *spinBox = qobject_cast<QDoubleSpinBox *>(object);
    if (spinBox && event->type() == QEvent::KeyPress && spinBox->text().isEmpty()) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            auto *editor = static_cast<QWidget *>(object);
            emit commitData(editor);
            emit closeEditor(editor, SubmitModelCache);
            return true;
        }
    }
    return QStyledItemDelegate::eventFilter(object, event);
}

void DoubleEditorDelegate::initStyleOption(QStyleOptionViewItem *option,
                                           const QModelIndex &index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    // A painted cell keeps its colour in a dark palette, whose light text would not stand out.
    if (option->backgroundBrush.style() != Qt::NoBrush)
        option->palette.setColor(QPalette::Text, Qt::black);
}

} // namespace VLT
