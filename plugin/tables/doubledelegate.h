#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

namespace VLT {

class MarkedNames;

/// Delegate of a whole table: edits every column but column 0 as a number with two decimals between
/// a minimum and a maximum. An emptied editor, or one with a negative number, commits -1, which
/// means "not set". An editor whose text was not changed commits nothing, unless Enter or Tab
/// confirms the default that it offers for an unset cell. Numbers have a decimal point in every
/// locale, paths that do not fit are elided in front of their last part, and a cell's background
/// shows through a selection, too.
class DoubleEditorDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    DoubleEditorDelegate(QObject *parent, double minimum, double maximum);

    /// The limits apply to editors opened afterwards.
    void setMinimum(double minimum) { m_minimum = minimum; }
    void setMaximum(double maximum) { m_maximum = maximum; }

    /// Names in the first column that are painted as missing; not owned.
    void setMarks(const MarkedNames *marks) { m_marks = marks; }

    /// Stores what is being typed and closes the editor, if one is open.
    void commitOpenEditor();

    /// Whether the text in the open editor, if any, has been changed.
    bool hasPendingEdit() const;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    QString displayText(const QVariant &value, const QLocale &locale) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

signals:
    /// `hasPendingEdit()` may have changed.
    void pendingEditChanged() const;

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    /// Remembers the initial text of the open editor.
    void noteOpened() const;

    double m_minimum;
    double m_maximum;
    const MarkedNames *m_marks = nullptr; ///< the table's, which is what the delegate paints
    mutable QPointer<QWidget> m_openEditor;
    mutable QString m_openedOn;
    mutable bool m_isConfirmed = false; ///< whether Enter or Tab was pressed in it
};

} // namespace VLT
