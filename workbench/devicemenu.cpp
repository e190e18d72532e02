#include "workbench/devicemenu.h"

#include "workbench/devicedialog.h"
#include "workbench/editcatalogue.h"
#include "workbench/menuicons.h"

#include "host/te/deviceselection.h"
#include "host/utils/dialogs.h"

#include <QAction>
#include <QLabel>
#include <QMenu>

namespace Workbench {

DeviceMenu::DeviceMenu(QWidget *window)
    : QObject(window)
    , m_menu(new QMenu(tr("&Device"), window))
    , m_choose(m_menu->addAction(tr("&Choose device\u2026"), this, &DeviceMenu::choose))
    , m_label(new QLabel(window))
{
    m_choose->setObjectName(QStringLiteral("chooseDevice"));
    m_choose->setStatusTip(tr("Choose the project's device from the catalogue"));
    setIconsWhenShown(m_menu, {{m_choose, QStyle::SP_ComputerIcon}});
    QAction *edit =
        m_menu->addAction(tr("&Edit catalogue\u2026"), window, [window] { editCatalogue(window); });
    edit->setObjectName(QStringLiteral("editCatalogue"));
    edit->setStatusTip(tr("Add devices and cell libraries of your own"));
    m_label->setObjectName(QStringLiteral("deviceLabel"));
    m_label->setTextFormat(Qt::PlainText);
}

void DeviceMenu::choose()
{
    Utils::GuardedDialog dialog(
        new DeviceDialog(TE::DeviceSelection::get()->deviceID(), m_menu->parentWidget()));
    if (dialog.exec() != QDialog::Accepted)
        return;
    TE::DeviceSelection::get()->setDevice(dialog->deviceId());
    if (!dialog.get()) // views may have told of the change, and so have run the event loop
        return;
    emit message(tr("Device: %1").arg(dialog->deviceId()));
    update();
}

void DeviceMenu::update()
{
    const QString device = TE::DeviceSelection::get()->deviceID();
    m_label->setText(device.isEmpty() ? tr("No device") : device);
}

} // namespace Workbench
