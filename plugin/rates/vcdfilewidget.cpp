#include "rates/vcdfilewidget.h"

#include "config/activityfile.h"
#include "config/filenames.h"
#include "config/limits.h"
#include "config/sections.h"
#include "rates/vcdfilesetdialog.h"
#include "tables/document.h"
#include "ui_vcdfilewidget.h"
#include "widgets/guardeddialog.h"
#include "widgets/plainmessage.h"
#include "widgets/wheelguard.h"

#include "nlsdata/netlist.h"

#include <QHeaderView>
#include <QSet>

namespace VLT {

namespace {

constexpr int RATE_WIDTH = 110;

} // namespace

VcdFileWidget::VcdFileWidget(VLTView *view, QWidget *parent)
    : RecordPage(view, parent)
    , m_view(view)
    , m_ui(std::make_unique<Ui::VcdFileTableView>())
{
    m_ui->setupUi(this);
    setUpTable(m_ui->tableView, &m_model, NODE_FILE, {100, 240, 120}, tr("Add Input File"));
    m_ui->tableView->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    connectCommands(m_ui->btnAdd, m_ui->btnRemove, &VcdFileWidget::onNew,
                    &VcdFileWidget::onShowContextMenu);
    // Queued, so that the table has finished its mouse event if its view is closed while the dialog
    // is open.
    connect(m_ui->tableView, &QTableView::doubleClicked, this, &VcdFileWidget::onEditData,
            Qt::QueuedConnection);
    auto *edit = new QAction(m_ui->tableView);
    edit->setShortcuts({Qt::Key_F2, Qt::Key_Return, Qt::Key_Enter});
    edit->setShortcutContext(Qt::WidgetShortcut);
    m_ui->tableView->addAction(edit);
    connect(
        edit, &QAction::triggered, this, [this] { onEditData(m_ui->tableView->currentIndex()); },
        Qt::QueuedConnection);
    connect(m_ui->checkGlitch, &QCheckBox::clicked, this, &VcdFileWidget::onGlitchChanged);
    for (const QDoubleSpinBox *field : {m_ui->editIOValue, m_ui->editRemainValue}) {
        connect(field, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
                &VcdFileWidget::modified);
    }
    connect(m_ui->comboIOUnit, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &VcdFileWidget::onIOUnitChanged);
    connect(m_ui->comboRemainUnit, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &VcdFileWidget::onRemainUnitChanged);
    // Otherwise scrolling the page with the wheel would change unit and value.
    for (QComboBox *combo : {m_ui->comboIOUnit, m_ui->comboRemainUnit})
        ignoreWheelWithoutFocus(combo);
    m_ui->radioVectorless->hide();
}

VcdFileWidget::~VcdFileWidget() = default;

VcdFileWidget::RateField VcdFileWidget::ioField() const
{
    return {m_ui->editIOValue, m_ui->comboIOUnit};
}

VcdFileWidget::RateField VcdFileWidget::remainField() const
{
    return {m_ui->editRemainValue, m_ui->comboRemainUnit};
}

void VcdFileWidget::readData(QDomElement *parent)
{
    DefaultRates rates;
    readDefaultRates(*parent, &rates);
    restore(rates.io, ioField());
    restore(rates.remaining, remainField());

    std::optional<bool> filterGlitch;
    const auto add = [this](VLT_VcdFile &&file, const QDomElement &) {
        if (file.entity.isEmpty())
            file.entity = designName();
        m_records.append(std::make_unique<VLT_VcdFile>(std::move(file)));
        m_designNames.insert(m_records.list().last(), designName());
    };
    if (!readFiles(*parent, &filterGlitch, add))
        return;
    if (filterGlitch)
        m_ui->checkGlitch->setChecked(*filterGlitch);
    m_model.reload();
}

void VcdFileWidget::restore(const std::optional<DefaultRate> &rate, const RateField &field)
{
    if (!rate)
        return;
    // The unit first: it sets the limit of the value.
    field.unit->setCurrentIndex(int(rate->unit));
    field.value->setValue(rate->value);
}

void VcdFileWidget::writeData(QXmlStreamWriter *writer) const
{
    const FileSection section = files();
    writeDefaultRates(writer, defaultRates());
    writeFiles(writer, section.records, section.filterGlitch.value_or(false));
}

FileSection VcdFileWidget::files() const
{
    FileSection section{!m_records.list().isEmpty(), m_records.values(), std::nullopt};
    if (section.present)
        section.filterGlitch = m_ui->checkGlitch->isChecked();
    for (int i = 0; i < section.records.size(); ++i) {
        QString &entity = section.records[i].entity;
        if (entity == m_designNames.value(m_records.list().at(i)))
            entity.clear();
    }
    return section;
}

DefaultRates VcdFileWidget::defaultRates() const
{
    const auto rate = [](const RateField &field) {
        return DefaultRate{RateUnit(field.unit->currentIndex()), field.value->value()};
    };
    return {true, rate(ioField()), rate(remainField())};
}

QString VcdFileWidget::designName() const
{
    const NlsData::Netlist *netlist = document()->getNetlist();
    return netlist ? netlist->name() : QString();
}

bool VcdFileWidget::isNamed(int row, const QString &name) const
{
    // A file without an instance is one of the whole design, and shown with its name of then.
    const VLT_VcdFile *file = m_records.list().at(row);
    return file->entity == (name.isEmpty() ? m_designNames.value(file) : name);
}

bool VcdFileWidget::checkData()
{
    const QList<VLT_VcdFile *> &files = m_records.list();
    QSet<QString> found; // one file often serves many instances
    for (int row = 0; row < files.size(); ++row) {
        const QString path = files.at(row)->file;
        if (found.contains(path))
            continue;
        if (!isActivityFile(path)) {
            reveal(row);
            showMessage(QMessageBox::Warning, this, tr("Warning"),
                        tr("The vcd file '%1' doesn't exist.").arg(path));
            return false;
        }
        found.insert(path);
    }
    return true;
}

void VcdFileWidget::modified()
{
    document()->setModified(true);
}

void VcdFileWidget::onNew()
{
    GuardedDialog<VcdFileSetDialog> dialog(new VcdFileSetDialog(m_view, this, nullptr));
    if (!dialog.exec())
        return;
    const int oldCount = m_records.list().size();
    m_records.append(std::unique_ptr<VLT_VcdFile>(dialog->data()));
    m_designNames.insert(dialog->data(), dialog->designName());
    showAdded(oldCount);
    modified();
}

void VcdFileWidget::onEditData(QModelIndex index)
{
    VLT_VcdFile *file = m_records.list().value(index.isValid() ? index.row() : -1);
    if (!file)
        return;
    const QString entity = file->entity;
    GuardedDialog<VcdFileSetDialog> dialog(new VcdFileSetDialog(m_view, this, file));
    if (!dialog.exec())
        return;
    if (file->entity != entity)
        m_designNames.insert(file, dialog->designName());
    m_model.updateRow(m_records.list().indexOf(file));
    modified();
}

void VcdFileWidget::onShowContextMenu(QPoint point)
{
    showMenu(m_ui->tableView->viewport()->mapToGlobal(point));
}

void VcdFileWidget::onGlitchChanged()
{
    // The flag belongs to the files' section, which is written only if there are files.
    if (!m_records.list().isEmpty())
        modified();
}

void VcdFileWidget::onIOUnitChanged()
{
    changeUnit(ioField());
}

void VcdFileWidget::onRemainUnitChanged()
{
    changeUnit(remainField());
}

void VcdFileWidget::changeUnit(const RateField &field)
{
    const RateUnit unit = RateUnit(field.unit->currentIndex());
    const double limit = rateRange(unit).maximum;
    // Before the limit, which would reduce a larger value to 200.
    if (unit == RateUnit::Toggle && field.value->value() > limit)
        field.value->setValue(DefaultRate().value);
    field.value->setMaximum(limit);
    // The usual width fits the largest toggle rate; the largest signal rate needs more.
    field.value->setFixedWidth(unit == RateUnit::Toggle
                                   ? RATE_WIDTH
                                   : std::max(RATE_WIDTH, field.value->sizeHint().width()));
    modified();
}

void VcdFileWidget::collect(Configuration *configuration) const
{
    configuration->defaultRates = defaultRates();
    configuration->files = files();
}

} // namespace VLT
