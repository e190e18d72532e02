#include "document/vltview.h"

#include "conditions/vltcommonwidget.h"
#include "document/vltenablesetwidget.h"
#include "document/vltratewidget.h"
#include "tables/doubledelegate.h"
#include "ui_changedbanner.h"
#include "widgets/plainmessage.h"
#include "widgets/waitcursor.h"

#include "core/viewmanager.h"
#include "nlsdata/netlist.h"
#include "nlsdata/netlistreader.h"
#include "qutil/eventmanager.h"
#include "qutil/ievent.h"
#include "te/constants.h"
#include "te/flowmanager.h"
#include "te/taskengine.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QStyle>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace VLT {

namespace {

QString processStatusEvent()
{
    return QStringLiteral("TE.Process.Status.Change");
}

constexpr int PROCESS_FINISHED = 2;

} // namespace

Document *documentOf(VLTView *view)
{
    return view;
}

VLTView::VLTView(DEV::DeviceArg device, NlsData::Netlist *netlist)
    : m_netlist(netlist)
{
    setTitle();
    m_layout = new QVBoxLayout(this);
    m_layout->setContentsMargins(0, 5, 0, 0);
    m_settingPage = new VLTSettingWidget(this, nullptr);
    m_ratePage = new VLTRateWidget(this, nullptr);
    m_enablePage = new VLTEnableSetWidget(this, nullptr);
    m_settingPage->setDevice(device);
    auto *tabs = new QTabWidget(this);
    tabs->addTab(m_settingPage, tr("General Setting"));
    tabs->addTab(m_ratePage, tr("Rate Setting"));
    tabs->addTab(m_enablePage, tr("Clock Setting"));
    m_layout->addWidget(tabs);
    for (const auto *delegate : findChildren<DoubleEditorDelegate *>())
        connect(delegate, &DoubleEditorDelegate::pendingEditChanged, this,
                &VLTView::pendingEditsChanged);
    QUtil::EventManager::instance()->subscribe(this, processStatusEvent());
}

VLTView::~VLTView()
{
    // The tables drop their editors while they are destroyed, after the view itself.
    for (const auto *delegate : findChildren<DoubleEditorDelegate *>())
        delegate->disconnect(this);
    m_netlist.reset();
    QUtil::EventManager::instance()->unsubscribe(this, processStatusEvent());
}

void VLTView::setDevice(DEV::DeviceArg device)
{
    m_settingPage->setDevice(device);
}

void VLTView::setModified(bool modified)
{
    const bool before = isModified();
    m_modified = modified;
    if (!modified)
        m_fileMissing = false;
    announceModified(before);
}

void VLTView::setFileMissing(bool missing)
{
    const bool before = isModified();
    m_fileMissing = missing;
    announceModified(before);
}

void VLTView::announceModified(bool before)
{
    if (isModified() == before)
        return;
    // The title first: the Save action takes it when it hears of the change.
    setTitle();
    emit modificationStatusChanged(!before);
}

void VLTView::setTitle()
{
    QString title = QFileInfo(m_file).fileName();
    if (isModified())
        title += QLatin1Char('*');
    setWindowTitle(title);
    setShortTitle(title);
}

bool VLTView::getVoltageInfo()
{
    const bool available = m_settingPage->updateVoltageInfo();
    m_settingPage->checkVlotageShow();
    return available;
}

void VLTView::handleIEvent(const QUtil::IEvent *event)
{
    if (event->type() != processStatusEvent())
        return;
    const QString process = event->value(QStringLiteral("process")).toString();
    const int status = event->value(QStringLiteral("status")).toInt();
    // The reload may close and destroy the view, so it waits until the event has been delivered.
    if (process == QLatin1String("Process.Syn") && status == PROCESS_FINISHED)
        QTimer::singleShot(0, this, &VLTView::onNetlistChanged);
}

void VLTView::onNetlistChanged()
{
    if (m_closed)
        return;
    const QString path =
        TE::TaskEngine::instance()->flowManager()->resultFile(QString::fromLatin1(TE::RES_NETLIST));
    std::shared_ptr<NlsData::Netlist> netlist;
    {
        const WaitCursor wait;
        netlist.reset(NlsData::readNetlistFile(path, nullptr, true));
    }
    if (netlist) {
        m_netlist = netlist;
        showChangedBanner();
        return;
    }
    // The message announces that the view closes; another failure meanwhile has nothing to add.
    if (m_reloadFailureOpen)
        return;
    m_reloadFailureOpen = true;
    QPointer<VLTView> self(this);
    showMessage(QMessageBox::Critical, this, QStringLiteral("Error"),
                QStringLiteral("Netlist file does not exist or some errors are in the netlist "
                               "file. VLR view will be closed"));
    if (!self)
        return;
    m_reloadFailureOpen = false;
    if (!m_closed)
        Core::ViewManager::instance()->closeView(this);
}

void VLTView::showChangedBanner()
{
    if (m_banner) {
        m_banner->show();
        return;
    }
    m_banner = new QWidget(this);
    m_bannerForm = std::make_unique<Ui::ChangedBanner>();
    m_bannerForm->setupUi(m_banner);
    QPixmap icon(QStringLiteral(":/fpgaprj/image/warning.png"));
    if (icon.isNull())
        icon = style()->standardPixmap(QStyle::SP_MessageBoxWarning);
    m_bannerForm->labelIcon->setPixmap(icon);
    m_layout->insertWidget(0, m_banner);
    connect(m_bannerForm->btnOk, &QPushButton::clicked, this, &VLTView::onOkBtn);
    m_banner->show();
}

void VLTView::onOkBtn()
{
    m_banner->hide();
}

void VLTView::closeWithoutQuestion()
{
    abandonEdits();
    setModified(false);
    emit closeRequested(m_file);
}

void VLTView::abandonEdits()
{
    m_editsAbandoned = true;
    if (!m_closeQuestionOpen)
        return;
    const auto boxes = findChildren<QMessageBox *>(QString(), Qt::FindDirectChildrenOnly);
    for (QMessageBox *box : boxes)
        box->reject();
}

void VLTView::closeEvent(QCloseEvent *event)
{
    if (!m_editsAbandoned)
        commitEdits();
    QPointer<VLTView> self(this);
    const bool closing = !isModified() || mayClose();
    event->setAccepted(closing);
    if (self && closing)
        m_closed = true;
}

bool VLTView::mayClose()
{
    // The question that is already open decides.
    if (m_closeQuestionOpen)
        return false;
    QPointer<VLTView> self(this);
    m_closeQuestionOpen = true;
    const QMessageBox::StandardButton answer =
        showMessage(QMessageBox::Question, this, QStringLiteral("Save"),
                    tr("Save changes to \"%1\" ?").arg(QDir::toNativeSeparators(m_file)),
                    QMessageBox::Ok | QMessageBox::Cancel | QMessageBox::Discard, QMessageBox::Ok);
    if (!self)
        return false;
    m_closeQuestionOpen = false;
    if (m_closed)
        return false;
    // A device change may have dropped the changes meanwhile.
    if (!isModified())
        return true;
    if (answer == QMessageBox::Ok)
        return writeToFile() && self && !m_closed;
    return answer == QMessageBox::Discard;
}

} // namespace VLT
