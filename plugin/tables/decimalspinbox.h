#pragma once

#include <QDoubleSpinBox>

namespace VLT {

/// Edits a decimal number with a point as its sign in every locale. A typed comma becomes a point,
/// and a unit that the tables show behind a number ("12.5%", "5.5pF") is dropped, so that what was
/// copied from a cell can be pasted.
class DecimalSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit DecimalSpinBox(QWidget *parent = nullptr);

    QValidator::State validate(QString &input, int &pos) const override;

    /// Rounds a number within the range that has more decimals than the box shows.
    void fixup(QString &input) const override;
};

} // namespace VLT
