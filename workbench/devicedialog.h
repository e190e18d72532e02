#pragma once

#include <QDialog>

class QDialogButtonBox;
class QLabel;
class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace Workbench {

/// Lets the user choose a device from the catalogue.
class DeviceDialog : public QDialog
{
    Q_OBJECT

public:
    /// `current` is the identifier of the device to start on; it may be empty or unknown.
    DeviceDialog(const QString &current, QWidget *parent);

    /// Identifier of the device that is selected; empty when none is.
    QString deviceId() const;

private:
    void fill();
    void select(const QString &id);
    void onFilterChanged(const QString &text);
    void onSelectionChanged();

    QSortFilterProxyModel *m_devices;
    QLineEdit *m_filter;
    QTreeView *m_view;
    QLabel *m_note;
    QDialogButtonBox *m_buttons;
};

} // namespace Workbench
