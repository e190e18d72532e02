#include "activity/dffsetwidget.h"

#include "config/filenames.h"
#include "ui_dffsetwidget.h"

#include <QCursor>

namespace VLT {

DffModel::DffModel(VLTView *view, QList<VLT_Dff *> &records, QObject *parent)
    : RecordModel(view, records, parent,
                  {Column::text("Name", &VLT_Dff::name)
                       .sortedBy(lessThanByName, greaterThanByName, &VLT_Dff::name),
                   Column::number("Value", &VLT_Dff::value, 100)
                       .editable()
                       .sortedBy(lessThanByValue, greaterThanByValue)})
{
}

DFFSetWidget::DFFSetWidget(VLTView *view, QWidget *parent)
    : RecordPage(view, parent)
    , m_ui(std::make_unique<Ui::DFFSetWidget>())
{
    m_ui->setupUi(this);
    setUpTable(m_ui->tableView, &m_model, NODE_INSTANCE);
    connectCommands(m_ui->btnAdd, m_ui->btnRemove, &DFFSetWidget::onAdd,
                    &DFFSetWidget::onShowContextMenu);
}

DFFSetWidget::~DFFSetWidget() = default;

void DFFSetWidget::onAdd()
{
    find(NlsDataFinderDialog::FindDff, [this](const NlsDataFinderDialog &finder) {
        addRecords(
            finder.getSelected(), [](const QString &name) { return name; },
            [](VLT_Dff &, const QString &) {});
    });
}

void DFFSetWidget::onShowContextMenu()
{
    showMenu(QCursor::pos());
}

void DFFSetWidget::readData(QDomElement *parent)
{
    if (readDffs(*parent, adopt()))
        m_model.reload();
}

void DFFSetWidget::writeData(QXmlStreamWriter *writer) const
{
    writeDffs(writer, m_records.list());
}

void DFFSetWidget::collect(Configuration *configuration) const
{
    configuration->dffs = {true, m_records.values()};
}

} // namespace VLT
