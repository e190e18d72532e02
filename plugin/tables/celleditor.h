#pragma once

#include "widgets/pointspinbox.h"

namespace VLT {

/// The spin box over a numeric cell. The delegate stores its text, so the box keeps it as typed
/// when it loses the focus to a popup or is hidden; a plain spin box would restore the last number.
/// A negative number can be typed although the minimum is 0.
///
/// It also accepts text copied from a cell: a unit after the number ("12.5%", "5.5pF") is dropped,
/// and extra decimals are rounded.
class CellEditor : public PointSpinBox
{
    Q_OBJECT

public:
    /// What the text of an editor means for its cell.
    enum class Content {
        Unset,      ///< empty or a negative number: the cell is to have no value
        Number,     ///< a number in the range
        Unfinished, ///< no number yet, such as "-" or "."
    };

    using PointSpinBox::PointSpinBox;

    static Content contentOf(const QDoubleSpinBox &box);

    /// Never negative zero.
    double valueFromText(const QString &text) const override;
    QValidator::State validate(QString &input, int &pos) const override;
    void fixup(QString &input) const override;

protected:
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
};

} // namespace VLT
