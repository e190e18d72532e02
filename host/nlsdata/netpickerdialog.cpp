#include "host/nlsdata/netpickerdialog.h"

#include "host/nlsdata/netpickermodel.h"
#include "host/nlsdata/othernames.h"
#include "ui_netpickerdialog.h"

#include <QPushButton>

#include <algorithm>

namespace NlsData {

NetPickerDialog::NetPickerDialog(const QList<Net *> &nets, QWidget *parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::NetPickerDialog>())
    , m_model(new NetPickerModel(nets, this))
    , m_total(nets.size())
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_ui->listView->setAccessibleName(tr("Nets"));
    m_ui->listView->setModel(m_model);
    connect(m_ui->lineEditFilter, &QLineEdit::textChanged, m_model, &NetPickerModel::setFilter);
    connect(m_model, &NetPickerModel::filteringChanged, this, &NetPickerDialog::showState);
    connect(m_ui->listView->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &NetPickerDialog::showState);
    connect(m_ui->listView, &QListView::doubleClicked, this, &QDialog::accept);
    if (!nets.isEmpty()) {
        m_otherNames = new OtherNames(nets.first(), this);
        connect(m_otherNames, &OtherNames::found, m_model,
                [this] { m_model->setOtherNames(m_otherNames); });
    }
    showState();
}

NetPickerDialog::~NetPickerDialog() = default;

void NetPickerDialog::showState()
{
    const int chosen = selectedCount();
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(chosen > 0);
    if (m_model->isFiltering()) {
        m_ui->labelCount->setText(tr("Filtering\u2026"));
        return;
    }
    const QLocale locale;
    m_ui->labelCount->setText(tr("%1 of %2 nets, %3 selected")
                                  .arg(locale.toString(m_model->rowCount()),
                                       locale.toString(m_total), locale.toString(chosen)));
}

int NetPickerDialog::selectedCount() const
{
    int count = 0;
    // From the ranges: with a million selected, one index per row would take seconds.
    for (const QItemSelectionRange &range : m_ui->listView->selectionModel()->selection())
        count += range.height();
    return count;
}

QList<Net *> NetPickerDialog::selected() const
{
    QItemSelection ranges = m_ui->listView->selectionModel()->selection();
    std::sort(ranges.begin(), ranges.end(),
              [](const QItemSelectionRange &a, const QItemSelectionRange &b) {
                  return a.top() < b.top();
              });
    QList<Net *> nets;
    nets.reserve(selectedCount());
    for (const QItemSelectionRange &range : ranges) {
        for (int row = range.top(); row <= range.bottom(); ++row)
            nets.append(m_model->net(row));
    }
    return nets;
}

} // namespace NlsData
