#pragma once

#include "readnetlist.h"

#include <QDialog>
#include <QTimer>

#include <functional>

class QDialogButtonBox;
class QLabel;
class QProgressBar;

namespace NlsData {

/// Shows the progress of a read, and cancels it.
class HOST_EXPORT NetlistReadDialog : public QDialog
{
    Q_OBJECT

public:
    /// `control` is borrowed and must outlive the dialog.
    NetlistReadDialog(const QString &path, ReadControl *control, QWidget *parent);

    void reject() override;

private:
    void refresh();

    ReadControl *const m_control;
    QLabel *const m_label;
    QProgressBar *const m_progress;
    QDialogButtonBox *const m_buttons;
    QTimer m_timer;
};

/// Calls `read`, which watches `control`, in a thread of its own and waits for its end; the dialog
/// comes after `showAfter` milliseconds. False when the user has cancelled or `parent` has gone.
HOST_EXPORT bool readWithDialog(QWidget *parent, const QString &path, ReadControl *control,
                                const std::function<void()> &read, int showAfter);

/// readNetlistFileWithDialog with options; the dialog opens after `showAfter` milliseconds.
HOST_EXPORT std::unique_ptr<Netlist> readNetlistWithDialog(QWidget *parent, const QString &path,
                                                           QString *error, ReadOptions options,
                                                           int showAfter);

} // namespace NlsData
