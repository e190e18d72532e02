#include "rates/ratewidget.h"

#include "config/sections.h"
#include "rates/ratetableview.h"
#include "tables/document.h"
#include "ui_ratewidget.h"
#include "widgets/plainmessage.h"

#include <QPointer>

#include <algorithm>

namespace VLT {

RateWidget::RateWidget(VLTView *view, QWidget *parent)
    : QWidget(parent)
    , m_document(documentOf(view))
    , m_ui(std::make_unique<Ui::NetRateEditor>())
{
    m_ui->setupUi(this);
    m_ui->tableviewNet->setType(RateOfNets);
    m_ui->tableviewNet->setView(view);
    m_ui->tableviewPort->setType(RateOfPorts);
    m_ui->tableviewPort->setView(view);

    connect(m_ui->btnAdd, &QToolButton::clicked, m_ui->tableviewNet, &RateTableView::onNew);
    connect(m_ui->btnRemove, &QToolButton::clicked, m_ui->tableviewNet, &RateTableView::onRemove);
    connect(m_ui->btnAddIO, &QToolButton::clicked, m_ui->tableviewPort, &RateTableView::onNew);
    connect(m_ui->btnRemoveIO, &QToolButton::clicked, m_ui->tableviewPort,
            &RateTableView::onRemove);
    for (const QRadioButton *radio : {m_ui->radioToggle, m_ui->radioSignal})
        connect(radio, &QRadioButton::clicked, this, &RateWidget::onNetRateUnitChanged);
    for (const QRadioButton *radio : {m_ui->radioSignalIO, m_ui->radioToggleIO})
        connect(radio, &QRadioButton::clicked, this, &RateWidget::onIORateUnitChanged);
    m_ui->groupIORate->hide();
}

RateWidget::~RateWidget() = default;

void RateWidget::readData(QDomElement *parent)
{
    RateUnit unit = RateUnit::Toggle;
    QList<VLT_Rate *> rates;
    const auto add = [&rates](VLT_Rate &&rate, const QDomElement &) {
        rates.append(new VLT_Rate(std::move(rate)));
    };
    if (!readRates(*parent, &unit, add))
        return;
    const bool toggle = unit == RateUnit::Toggle;
    (toggle ? m_ui->radioToggle : m_ui->radioSignal)->setChecked(true);
    m_ui->tableviewNet->setValueType(toggle);
    m_ui->tableviewNet->setData(rates);
}

void RateWidget::writeData(QXmlStreamWriter *writer) const
{
    writeRates(writer, unit(), m_ui->tableviewNet->getData());
}

RateUnit RateWidget::unit() const
{
    // The table's: while the question about another one is open, the radio is ahead of the values.
    return m_ui->tableviewNet->valueType() ? RateUnit::Toggle : RateUnit::Signal;
}

bool RateWidget::checkData()
{
    return checkValues(m_ui->tableviewNet, tr("Rate value of Net '%1' is empty.")) &&
           checkValues(m_ui->tableviewPort, tr("Rate value of Port '%1' is empty."));
}

bool RateWidget::checkValues(RateTableView *table, const QString &text)
{
    const QList<VLT_Rate *> &rates = table->getData();
    const auto empty = std::find_if(rates.begin(), rates.end(),
                                    [](const VLT_Rate *rate) { return rate->value.isEmpty(); });
    if (empty == rates.end())
        return true;
    const QString name = (*empty)->name;
    table->reveal(int(empty - rates.begin()));
    showMessage(QMessageBox::Warning, this, tr("Warning"), text.arg(name));
    return false;
}

void RateWidget::modified()
{
    m_document->setModified(true);
}

void RateWidget::onVectorlessChanged(bool vectorless)
{
    m_ui->groupIORate->setEnabled(vectorless);
}

void RateWidget::onNetRateUnitChanged()
{
    changeUnit(m_ui->tableviewNet, m_ui->radioToggle, m_ui->radioSignal);
}

void RateWidget::onIORateUnitChanged()
{
    changeUnit(m_ui->tableviewPort, m_ui->radioToggleIO, m_ui->radioSignalIO);
}

void RateWidget::changeUnit(RateTableView *table, QRadioButton *toggle, QRadioButton *signal)
{
    if (table->getData().isEmpty()) {
        table->setValueType(toggle->isChecked());
        return;
    }
    const QPointer<RateWidget> self(this);
    const QMessageBox::StandardButton answer = showMessage(
        QMessageBox::Question, this, tr("Confirm"),
        tr("Are you sure to change unit?\nThe edited values will be clear after changed."),
        QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
    if (!self)
        return;
    if (answer == QMessageBox::Yes) {
        table->setValueType(toggle->isChecked());
        table->resetValue();
    } else {
        // The table's unit, not the clicked button, which may have been checked already.
        (table->valueType() ? toggle : signal)->setChecked(true);
    }
}

void RateWidget::collect(Configuration *configuration) const
{
    const QVector<VLT_Rate> rates = m_ui->tableviewNet->rates();
    configuration->rates = {!rates.isEmpty(), unit(), rates};
}

} // namespace VLT
