#pragma once

#include <QDialog>
#include <QList>

#include <memory>

namespace Ui {
class NetPickerDialog;
}

namespace NlsData {

class Net;
class NetPickerModel;

/// Chooses nets from a list that a pattern filters as it is typed. A new filter starts a new
/// selection, so that what is chosen is always what is seen.
class NetPickerDialog : public QDialog
{
    Q_OBJECT

public:
    NetPickerDialog(const QList<Net *> &nets, QWidget *parent);
    ~NetPickerDialog() override;

    /// In the order of the list given.
    QList<Net *> selected() const;

private:
    void showState();
    int selectedCount() const;

    const std::unique_ptr<Ui::NetPickerDialog> m_ui;
    NetPickerModel *const m_model;
    const int m_total;
};

} // namespace NlsData
