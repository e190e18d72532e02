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

/// Chooses nets from a list that a pattern filters as it is typed. A new filter starts a new
/// selection, so that what is chosen is always what is seen. The other names of the nets are read
/// in the background; once they are there, nets are found by them, too.
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
    OtherNames *m_otherNames = nullptr; ///< null without nets
    const int m_total;
};

} // namespace NlsData
