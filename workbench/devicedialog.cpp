#include "workbench/devicedialog.h"

#include "host/dev/devicecatalogue.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>
#include <QTreeView>
#include <QVBoxLayout>

namespace Workbench {

namespace {

constexpr int ID_ROLE = Qt::UserRole;

/// As for configurations: another entry may have the data of the same part and package.
bool hasSupplyData(const DEV::Device &device)
{
    return DEV::DeviceCatalogue::get()
        ->supplies(device.arg.partName, device.arg.packageName)
        .isKnown();
}

} // namespace

DeviceDialog::DeviceDialog(const QString &current, QWidget *parent)
    : QDialog(parent)
    , m_devices(new QSortFilterProxyModel(this))
    , m_filter(new QLineEdit)
    , m_view(new QTreeView)
    , m_note(new QLabel)
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel))
{
    setObjectName(QStringLiteral("deviceDialog"));
    setWindowTitle(tr("Choose Device"));
    m_filter->setObjectName(QStringLiteral("deviceFilter"));
    m_filter->setAccessibleName(tr("Filter"));
    m_filter->setPlaceholderText(tr("Filter, for example part of a name or package"));
    m_view->setObjectName(QStringLiteral("deviceList"));
    m_view->setAccessibleName(tr("Devices"));
    m_view->setRootIsDecorated(false);
    m_view->setUniformRowHeights(true);
    m_view->setSortingEnabled(true);
    m_view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_view->setModel(m_devices);
    m_view->sortByColumn(0, Qt::AscendingOrder);
    m_note->setWordWrap(true);
    m_note->setTextFormat(Qt::PlainText);
    m_note->setText(
        tr("No supply data is known for this device: open configurations will be closed "
           "and their unsaved changes discarded."));

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_filter);
    layout->addWidget(m_view, 1);
    layout->addWidget(m_note);
    layout->addWidget(m_buttons);

    connect(m_filter, &QLineEdit::textChanged, this, &DeviceDialog::onFilterChanged);
    connect(m_view->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &DeviceDialog::onSelectionChanged);
    connect(m_view, &QTreeView::doubleClicked, this, &DeviceDialog::accept);
    connect(m_buttons, &QDialogButtonBox::accepted, this, &DeviceDialog::accept);
    connect(m_buttons, &QDialogButtonBox::rejected, this, &DeviceDialog::reject);

    fill();
    select(current);
    onSelectionChanged();
    resize(fontMetrics().averageCharWidth() * 100, fontMetrics().height() * 26);
}

void DeviceDialog::fill()
{
    auto *model = new QStandardItemModel(m_devices);
    model->setHorizontalHeaderLabels(
        {tr("Device"), tr("Model"), tr("Package"), tr("Grade"), tr("Family"), tr("Supply data")});
    for (const DEV::Device &device : DEV::DeviceCatalogue::get()->devices()) {
        QList<QStandardItem *> row;
        for (const QString &text :
             {device.arg.id, device.arg.partName, device.arg.packageName, device.arg.grade,
              device.series, hasSupplyData(device) ? tr("yes") : tr("none")}) {
            row.append(new QStandardItem(text));
        }
        row.constFirst()->setData(device.arg.id, ID_ROLE);
        model->appendRow(row);
    }
    m_devices->setFilterCaseSensitivity(Qt::CaseInsensitive);
    m_devices->setFilterKeyColumn(-1);
    m_devices->setSourceModel(model);
    m_view->header()->resizeSections(QHeaderView::ResizeToContents);
}

void DeviceDialog::select(const QString &id)
{
    const QModelIndexList found =
        m_devices->match(m_devices->index(0, 0), ID_ROLE, id, 1, Qt::MatchExactly);
    if (!found.isEmpty())
        m_view->setCurrentIndex(found.constFirst());
}

QString DeviceDialog::deviceId() const
{
    const QModelIndexList rows = m_view->selectionModel()->selectedRows();
    return rows.isEmpty() ? QString() : rows.constFirst().data(ID_ROLE).toString();
}

void DeviceDialog::onFilterChanged(const QString &text)
{
    m_devices->setFilterFixedString(text.trimmed());
    // A filter that leaves one device selects it.
    if (m_devices->rowCount() == 1)
        m_view->setCurrentIndex(m_devices->index(0, 0));
}

void DeviceDialog::onSelectionChanged()
{
    const QString id = deviceId();
    const DEV::Device *device = DEV::DeviceCatalogue::get()->find(id);
    m_buttons->button(QDialogButtonBox::Ok)->setEnabled(device);
    m_note->setVisible(device && !hasSupplyData(*device));
}

} // namespace Workbench
