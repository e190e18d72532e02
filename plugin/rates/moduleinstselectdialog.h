#pragma once

#include <QDialog>
#include <QStringList>
#include <QTimer>

#include <memory>

namespace NlsData {
class Netlist;
}

namespace VLT {

namespace Ui {
class ModuleInstSelectDialog;
}

/// Chooses a module instance of the netlist, or the design itself, by a part of its path. The list
/// is filled in short slices of the event loop, so that typing and scrolling stay responsive with a
/// million instances; a list that fits into one slice is complete at once.
class ModuleInstSelectDialog : public QDialog
{
    Q_OBJECT

public:
    /// Reads the netlist only here, because it may be replaced while the dialog is open.
    ModuleInstSelectDialog(QWidget *parent, NlsData::Netlist *netlist, bool single);
    ~ModuleInstSelectDialog() override;

    QStringList getSelected() const;

public slots:
    void onSearch();

private:
    const QStringList &offered() const;
    void readNetlist(const NlsData::Netlist *netlist);
    void restart(bool narrowing);
    void fillTurn();

    const std::unique_ptr<Ui::ModuleInstSelectDialog> m_ui;
    QStringList m_entries;
    QStringList m_modules; ///< of m_entries, the design and the instances with contents

    QString m_filter;
    QStringList m_found;      ///< what the filter keeps, as far as it was searched
    QStringList m_candidates; ///< what is searched: offered(), or what a wider filter kept
    int m_next = 0;           ///< position in m_candidates
    QTimer m_turn;
};

} // namespace VLT
