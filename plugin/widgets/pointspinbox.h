#pragma once

#include <QDoubleSpinBox>

namespace VLT {

/// A spin box with a decimal point in every locale, which accepts a typed comma as one. The wheel
/// changes it only while it has the focus, so that scrolling a page changes no value. Enter reports
/// a value only if it has changed.
class PointSpinBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    explicit PointSpinBox(QWidget *parent = nullptr);

    QValidator::State validate(QString &input, int &pos) const override;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
};

} // namespace VLT
