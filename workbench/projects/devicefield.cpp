#include "workbench/projects/devicefield.h"

#include "workbench/devicedialog.h"

#include "host/dev/devicecatalogue.h"
#include "host/utils/dialogs.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace Workbench {

namespace {

QString remarkOn(const QString &id)
{
    if (id.isEmpty())
        return DeviceField::tr("Configurations need a device: it decides the supply voltages.");
    const auto *catalogue = DEV::DeviceCatalogue::get();
    const DEV::Device *device = catalogue->find(id);
    if (!device)
        return DeviceField::tr("The catalogue does not list this device.");
    const DEV::SupplyData supplies =
        catalogue->supplies(device->arg.partName, device->arg.packageName);
    if (!supplies.isKnown()) {
        return DeviceField::tr("No supply data is known for this device: configurations cannot be "
                               "opened.");
    }
    return DeviceField::tr("%1, VCC %2 to %3 V")
        .arg(device->series, supplies.vcc.min, supplies.vcc.max);
}

} // namespace

DeviceField::DeviceField(QWidget *parent)
    : QWidget(parent)
    , m_device(new QLineEdit)
    , m_choose(new QPushButton(tr("C&hoose\u2026")))
    , m_remark(new QLabel)
{
    m_device->setObjectName(QStringLiteral("projectDevice"));
    m_device->setAccessibleName(tr("Chosen device"));
    m_device->setReadOnly(true);
    m_device->setFocusPolicy(Qt::ClickFocus);
    m_device->setPlaceholderText(tr("No device chosen"));
    m_choose->setObjectName(QStringLiteral("chooseProjectDevice"));
    m_remark->setObjectName(QStringLiteral("deviceRemark"));
    m_remark->setTextFormat(Qt::PlainText);
    m_remark->setWordWrap(true);
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_device, 0, 0);
    layout->addWidget(m_choose, 0, 1);
    layout->addWidget(m_remark, 1, 0, 1, 2);
    connect(m_choose, &QPushButton::clicked, this, &DeviceField::choose);
    setDevice(QString());
}

QString DeviceField::device() const
{
    return m_device->text();
}

void DeviceField::setDevice(const QString &id, const QString &remark)
{
    m_device->setText(id);
    m_remark->setText(remark.isEmpty() ? remarkOn(id) : remark);
    emit changed();
}

void DeviceField::choose()
{
    Utils::GuardedDialog dialog(new DeviceDialog(device(), this));
    if (dialog.exec() == QDialog::Accepted)
        setDevice(dialog->deviceId());
}

} // namespace Workbench
