#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

namespace VLT {

/// Delegate of a whole table: edits every column but column 0 as a number with two decimals
/// between a minimum and a maximum. An emptied editor commits -1, which stands for "not set".
/// Numbers are shown with a point as decimal sign in every locale.
class DoubleEditorDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    DoubleEditorDelegate(QObject *parent, double minimum, double maximum);

    /// The limits hold for editors that are opened from then on.
    void setMinimum(double minimum) { m_minimum = minimum; }
    void setMaximum(double maximum) { m_maximum = maximum; }

    /// Stores what is being typed and closes the editor, if one is open.
    void commitOpenEditor();

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    QString displayText(const QVariant &value, const QLocale &locale) const override;

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    double m_minimum;
    double m_maximum;
    QPointer<QWidget> m_openEditor;
};

} // namespace VLT
