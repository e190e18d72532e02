#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;

namespace Workbench {

/// Chooses the device of a project in the device dialog, and shows its family and supplies.
class DeviceField : public QWidget
{
    Q_OBJECT

public:
    explicit DeviceField(QWidget *parent = nullptr);

    /// Identifier; empty when none is chosen.
    QString device() const;

    /// `remark` is shown below the device until another one is chosen.
    void setDevice(const QString &id, const QString &remark = QString());

    /// The button that chooses, for a label's mnemonic.
    QPushButton *button() const { return m_choose; }

signals:
    void changed();

private:
    void choose();

    QLineEdit *m_device;
    QPushButton *m_choose;
    QLabel *m_remark;
};

} // namespace Workbench
