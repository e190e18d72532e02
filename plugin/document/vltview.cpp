#include "document/vltview.h"

#include "conditions/vltcommonwidget.h"
#include "config/configurationfile.h"
#include "config/environmentcodes.h"
#include "config/filenames.h"
#include "document/namelookup.h"
#include "document/netlistreload.h"
#include "document/openeditors.h"
#include "document/saving.h"
#include "document/vltenablesetwidget.h"
#include "document/vltratewidget.h"
#include "rates/ratetableview.h"
#include "tables/doubledelegate.h"
#include "tables/tablepage.h"
#include "ui_changedbanner.h"
#include "widgets/plainmessage.h"
#include "widgets/waitcursor.h"

#include "core/viewmanager.h"
#include "nlsdata/netlist.h"
#include "qutil/eventmanager.h"
#include "qutil/ievent.h"

#include <QCloseEvent>
#include <QDir>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>
#include <QStyle>
#include <QTabWidget>
#include <QTimer>
#include <QVBoxLayout>

namespace VLT {

namespace {

/// Whether the library writes the same file as the pages. Checked on every save of a debug
/// build.
[[maybe_unused]] bool isReadAlike(const QByteArray &saved, const Configuration &pages)
{
    ReadReport report;
    const Configuration read = readConfiguration(saved, &report);
    QByteArray bytes;
    QString offender;
    return writeConfiguration(read, &bytes, &offender) && bytes == saved &&
           writeConfiguration(pages, &bytes, &offender) && bytes == saved;
}

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
    m_tabs = new QTabWidget(this);
    m_tabs->addTab(m_settingPage, tr("General Setting"));
    m_tabs->addTab(m_ratePage, tr("Rate Setting"));
    m_tabs->addTab(m_enablePage, tr("Clock Setting"));
    m_layout->addWidget(m_tabs);
    m_nameLookup = new NameLookup(this, this);
    for (const auto *delegate : findChildren<DoubleEditorDelegate *>())
        connect(delegate, &DoubleEditorDelegate::pendingEditChanged, this,
                &VLTView::pendingEditsChanged);
    m_reload = new NetlistReload(this);
    connect(m_reload, &NetlistReload::succeeded, this, &VLTView::takeNetlist);
    connect(m_reload, &NetlistReload::failed, this, &VLTView::closeWithoutNetlist);
    QUtil::EventManager::instance()->subscribe(
        this, QString::fromLatin1(Environment::EVENT_PROCESS_STATUS));
}

VLTView::~VLTView()
{
    // The tables drop their editors when they are destroyed, which is after the view itself.
    for (const auto *delegate : findChildren<DoubleEditorDelegate *>())
        delegate->disconnect(this);
    m_netlist.reset();
    QUtil::EventManager::instance()->unsubscribe(
        this, QString::fromLatin1(Environment::EVENT_PROCESS_STATUS));
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
    // The title first, because the Save action reads it when it is notified of the change.
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

int VLTView::addNetRates(const QStringList &paths)
{
    auto *table = findChild<RateTableView *>(QStringLiteral("tableviewNet"));
    m_tabs->setCurrentWidget(m_ratePage);
    return table->addNets(paths);
}

bool VLTView::showRecord(const QString &section, const QString &name, int occurrence)
{
    const auto pages = findChildren<TablePage *>();
    bool isListed = false;
    for (TablePage *page : pages) {
        if (section.isEmpty() || page->section() != section)
            continue;
        isListed = true;
        m_tabs->setCurrentWidget(m_ratePage->isAncestorOf(page) ? static_cast<QWidget *>(m_ratePage)
                                                                : m_enablePage);
        if (page->showRecord(name, occurrence))
            return true;
    }
    if (isListed)
        return false;
    const QStringList rates = {NODE_NET_RATE, NODE_DEFAULT_CFG, NODE_SIMU_FILE, NODE_FILTER_GLITCH};
    const QStringList enables = {NODE_GLOBAL_ENABLE, NODE_PORT_OUT_ENABLE, NODE_BSRAM_ENABLE,
                                 NODE_LOCAL_ENABLE};
    const bool isRate = rates.contains(section) || section.startsWith(QLatin1String("Default"));
    m_tabs->setCurrentIndex(isRate ? 1 : enables.contains(section) ? 2 : 0);
    return name.isEmpty();
}

bool VLTView::getVoltageInfo()
{
    const bool available = m_settingPage->updateVoltageInfo();
    m_settingPage->checkVlotageShow();
    return available;
}

bool VLTView::readCfgFile(const QString &path)
{
    m_file = path;
    const WaitCursor wait;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return false;
    QByteArray bytes = file.readAll();
    file.close();
    QDomDocument document;
    const VlrContent content = parseFile(bytes, &document);
    if (content == VlrContent::Invalid)
        return false;
    if (content == VlrContent::NoRoot) {
        setModified(true);
        // Connected nevertheless: voltages edited after the first save modify the document again.
        m_settingPage->connectVlotageDoubleSpin();
        return true;
    }
    // Not kept any longer than needed; freed after the tree, a large text would make the allocator
    // sweep all of the tree's nodes before the view can show.
    bytes.clear();
    QDomElement root = document.documentElement();
    for (Page *page : pages())
        page->readData(&root);
    m_file = path;
    setModified(false);
    setTitle();
    m_settingPage->connectVlotageDoubleSpin();
    m_settingPage->checkVoltageRange();
    return true;
}

QVector<Page *> VLTView::pages() const
{
    return {m_settingPage, m_ratePage, m_enablePage};
}

Configuration VLTView::configuration() const
{
    Configuration configuration;
    for (const Page *page : pages())
        page->collect(&configuration);
    return configuration;
}

bool VLTView::writeToFile()
{
    if (m_file.isEmpty())
        return false;
    commitEdits();
    // The checks and messages run event loops, in which the view may be destroyed.
    QPointer<VLTView> self(this);
    if (!m_settingPage->checkData() || !self)
        return false;
    if (!m_ratePage->checkData() || !self)
        return false;
    QByteArray bytes;
    if (!composeText(&bytes) || !saveBytes(m_file, bytes, this))
        return false;
    setModified(false);
    return true;
}

bool VLTView::composeText(QByteArray *bytes)
{
    const auto writeSections = [this](QXmlStreamWriter *writer) {
        for (const Page *page : pages())
            page->writeData(writer);
    };
    QString offender;
    {
        const WaitCursor wait;
        if (composeFile(writeSections, bytes)) {
            Q_ASSERT(isReadAlike(*bytes, configuration()));
            return true;
        }
        offender = unwritableText(configuration()).value_or(QString());
    }
    for (TablePage *table : findChildren<TablePage *>()) {
        if (table->revealUnwritable(offender))
            break;
    }
    reportUnwritableText(m_file, offender, this);
    return false;
}

void VLTView::commitEdits()
{
    commitOpenEditors(this);
}

bool VLTView::hasPendingEdits() const
{
    return hasPendingEditor(this);
}

void VLTView::handleIEvent(const QUtil::IEvent *event)
{
    if (event->type() != QString::fromLatin1(Environment::EVENT_PROCESS_STATUS))
        return;
    const QString process =
        event->value(QString::fromLatin1(Environment::VALUE_PROCESS)).toString();
    const int status = event->value(QString::fromLatin1(Environment::VALUE_STATUS)).toInt();
    // The reload may close and destroy the view, so it waits until the event has been delivered.
    if (process == QLatin1String(Environment::PROCESS_SYNTHESIS) &&
        status == Environment::STATUS_FINISHED)
        QTimer::singleShot(0, this, &VLTView::onNetlistChanged);
}

void VLTView::onNetlistChanged()
{
    if (m_closing != Closing::Done)
        m_reload->run();
}

void VLTView::takeNetlist(const std::shared_ptr<NlsData::Netlist> &netlist)
{
    m_netlist = netlist;
    m_nameLookup->startOver();
    showChangedBanner();
}

void VLTView::closeWithoutNetlist()
{
    if (m_closing != Closing::Done)
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
    // By now its file may be that of another view.
    if (m_closing == Closing::Done)
        return;
    abandonEdits();
    setModified(false);
    emit closeRequested(m_file);
}

void VLTView::abandonEdits()
{
    if (m_closing == Closing::Done)
        return;
    m_closing = Closing::Abandoned;
    if (m_question)
        m_question->reject();
    // A host that refuses the close leaves a view like any other.
    QTimer::singleShot(0, this, [this] {
        if (m_closing == Closing::Abandoned)
            m_closing = Closing::No;
    });
}

void VLTView::closeEvent(QCloseEvent *event)
{
    if (m_closing != Closing::Abandoned)
        commitEdits();
    QPointer<VLTView> self(this);
    const bool closing = !isModified() || mayClose();
    event->setAccepted(closing);
    if (self && closing)
        m_closing = Closing::Done;
}

bool VLTView::mayClose()
{
    // The question that is already open decides.
    if (m_question)
        return false;
    m_closing = Closing::Asking;
    m_question =
        newMessage(QMessageBox::Question, this, QStringLiteral("Save"),
                   tr("Save changes to \"%1\" ?").arg(QDir::toNativeSeparators(m_file)),
                   QMessageBox::Ok | QMessageBox::Cancel | QMessageBox::Discard, QMessageBox::Ok);
    QPointer<VLTView> self(this);
    const QMessageBox::StandardButton answer = runMessage(m_question);
    if (!self || m_closing == Closing::Done)
        return false;
    // A device change may have dropped the changes, and the question with them.
    const bool withdrawn = m_closing != Closing::Asking;
    m_closing = Closing::No;
    if (withdrawn)
        return !isModified();
    if (answer == QMessageBox::Ok)
        return !isModified() || (writeToFile() && self && m_closing != Closing::Done);
    return answer == QMessageBox::Discard;
}

} // namespace VLT
