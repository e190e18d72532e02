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
class OtherNames;

/// Chooses nets from a list that is filtered as the user types. A new filter clears the selection,
/// so that only visible nets are selected. The other names of the nets are read in the background;
/// after that, nets are found by them, too.
class NetPickerDialog : public QDialog
{
    Q_OBJECT

public:
    NetPickerDialog(const QList<Net *> &nets, QWidget *parent);
    ~NetPickerDialog() override;

    /// In the order shown.
    QList<Net *> selected() const;

private:
    void showState();
    int selectedCount() const;

    const std::unique_ptr<Ui::NetPickerDialog> m_ui;
    NetPickerModel *const m_model;
    OtherNames *m_otherNames = nullptr; ///< null without nets
    const int m_total;
};

} // namespace NlsData
