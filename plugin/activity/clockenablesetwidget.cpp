#include "activity/clockenablesetwidget.h"

#include "config/filenames.h"
#include "ui_clockenablesetwidget.h"

#include <QCursor>
#include <QRegExp>

namespace VLT {

namespace {

bool isClockName(const QString &text)
{
    return QRegExp(QStringLiteral("_*[a-zA-Z]+[A-Za-z0-9_]*")).exactMatch(text);
}

} // namespace

ClkEnableModel::ClkEnableModel(VLTView *view, QList<VLT_ClkEnable *> &records, QObject *parent)
    : RecordModel(view, records, parent,
                  {Column::editableName("Clock Name", &VLT_ClkEnable::name, isClockName)
                       .sortedBy(lessThanByName, greaterThanByName, &VLT_ClkEnable::name),
                   Column::number("Clock Enable", &VLT_ClkEnable::enable, 100)
                       .editable()
                       .sortedBy(lessThanByClkEnable, greaterThanByClkEnable),
                   Column::number("Quad1", &VLT_ClkEnable::quad1, 100)
                       .editable()
                       .sortedBy(lessThanByQuad1, greaterThanByQuad1),
                   Column::number("Quad2", &VLT_ClkEnable::quad2, 100)
                       .editable()
                       .sortedBy(lessThanByQuad2, greaterThanByQuad2),
                   Column::number("Quad3", &VLT_ClkEnable::quad3, 100)
                       .editable()
                       .sortedBy(lessThanByQuad3, greaterThanByQuad3),
                   Column::number("Quad4", &VLT_ClkEnable::quad4, 100)
                       .editable()
                       .sortedBy(lessThanByQuad4, greaterThanByQuad4)})
{
}

ClockEnableSetWidget::ClockEnableSetWidget(VLTView *view, QWidget *parent)
    : RecordPage(view, parent)
    , m_ui(std::make_unique<Ui::ClockEnableSetWidget>())
{
    m_ui->setupUi(this);
    setUpTable(m_ui->tableView, &m_model, NODE_CLOCK, {150, 120, 120, 120, 120, 120});
    connectCommands(m_ui->btnAdd, m_ui->btnRemove, &ClockEnableSetWidget::onAdd,
                    &ClockEnableSetWidget::onShowContextMenu);
    connect(m_ui->spinGlobalEnable, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
            &ClockEnableSetWidget::modified);
}

ClockEnableSetWidget::~ClockEnableSetWidget() = default;

void ClockEnableSetWidget::onAdd()
{
    commitEditor();
    const int row = m_model.rowCount();
    m_records.append(std::make_unique<VLT_ClkEnable>());
    showAdded(row);
    if (isVisible())
        m_ui->tableView->edit(m_model.index(row, 0));
}

void ClockEnableSetWidget::onShowContextMenu(QPoint)
{
    showMenu(QCursor::pos());
}

void ClockEnableSetWidget::readData(QDomElement *parent)
{
    double value = 0;
    if (!readClocks(*parent, &value, adopt()))
        return;
    m_ui->spinGlobalEnable->setValue(value);
    m_model.reload();
}

void ClockEnableSetWidget::writeData(QXmlStreamWriter *writer) const
{
    writeClocks(writer, m_ui->spinGlobalEnable->value(), m_records.list());
}

void ClockEnableSetWidget::collect(Configuration *configuration) const
{
    configuration->clocks = {true, m_ui->spinGlobalEnable->value(), m_records.values()};
}

} // namespace VLT
