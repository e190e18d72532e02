#include "rates/moduleinstselectdialog.h"

#include "ui_moduleinstselectdialog.h"
#include "widgets/uniformrows.h"
#include "widgets/waitcursor.h"

#include "nlsdata/netlist.h"

#include <QElapsedTimer>
#include <QStringMatcher>

#include <algorithm>

namespace VLT {

namespace {

constexpr int TURN_MS = 25;
constexpr int ENTRIES_BETWEEN_CLOCK_LOOKS = 512;

using InstanceMap = QMap<QString, NlsData::Instance *>;

/// Whether there are instances inside the one of this path; "." joins the names where synthesis has
/// flattened the hierarchy.
bool hasContents(const InstanceMap &instances, const QString &path)
{
    for (const char separator : {'/', '.'}) {
        const QString prefix = path + QLatin1Char(separator);
        const auto next = instances.lowerBound(prefix);
        if (next != instances.end() && next.key().startsWith(prefix))
            return true;
    }
    return false;
}

bool isModule(const InstanceMap &instances, const QString &path, const NlsData::Instance *instance)
{
    return instance->category() == 0 && instance->primitive() == 0 && hasContents(instances, path);
}

} // namespace

ModuleInstSelectDialog::ModuleInstSelectDialog(QWidget *parent, NlsData::Netlist *netlist,
                                               bool single)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::ModuleInstSelectDialog>())
{
    m_ui->setupUi(this);
    readNetlist(netlist);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_ui->listWidget->setAccessibleName(tr("Instances"));
    if (single)
        m_ui->listWidget->setSelectionMode(QAbstractItemView::SingleSelection);
    m_turn.setInterval(0);
    connect(&m_turn, &QTimer::timeout, this, &ModuleInstSelectDialog::fillTurn);
    connect(m_ui->lineEditFilter, &QLineEdit::textChanged, this, &ModuleInstSelectDialog::onSearch);
    connect(m_ui->checkModules, &QCheckBox::toggled, this, [this] { restart(false); });
    connect(m_ui->listWidget, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    restart(false);
}

ModuleInstSelectDialog::~ModuleInstSelectDialog() = default;

void ModuleInstSelectDialog::readNetlist(const NlsData::Netlist *netlist)
{
    if (!netlist)
        return;
    const WaitCursor wait; // the map is made when it is first asked for
    const InstanceMap &instances = netlist->instanceMap();
    m_entries.reserve(instances.size() + 1);
    m_entries.append(netlist->name());
    m_modules.append(netlist->name());
    for (const NlsData::Instance *instance : instances) {
        m_entries.append(instance->path());
        if (isModule(instances, m_entries.last(), instance))
            m_modules.append(m_entries.last());
    }
}

const QStringList &ModuleInstSelectDialog::offered() const
{
    return m_ui->checkModules->isChecked() ? m_modules : m_entries;
}

void ModuleInstSelectDialog::onSearch()
{
    const QString filter = m_ui->lineEditFilter->text().trimmed();
    if (filter == m_filter)
        return;
    // A filter that contains the previous one can only match entries that the previous one matched,
    // provided that its search was complete.
    const bool narrowing = filter.contains(m_filter, Qt::CaseInsensitive);
    m_filter = filter;
    restart(narrowing);
}

/// `narrowing`: among what is being searched or was found, all that can match is.
void ModuleInstSelectDialog::restart(bool narrowing)
{
    if (!narrowing)
        m_candidates = offered();
    else if (!m_turn.isActive())
        m_candidates = m_found;
    m_ui->listWidget->clear();
    m_found.clear();
    m_next = 0;
    m_turn.start();
    m_ui->listWidget->viewport()->setCursor(Qt::BusyCursor);
    fillTurn();
}

void ModuleInstSelectDialog::fillTurn()
{
    QElapsedTimer clock;
    clock.start();
    const QStringMatcher matcher(m_filter, Qt::CaseInsensitive);
    QStringList kept;
    while (m_next < m_candidates.size() && !clock.hasExpired(TURN_MS)) {
        const int end = std::min(m_next + ENTRIES_BETWEEN_CLOCK_LOOKS, m_candidates.size());
        for (; m_next < end; ++m_next) {
            const QString &entry = m_candidates.at(m_next);
            if (m_filter.isEmpty() || matcher.indexIn(entry) >= 0)
                kept.append(entry);
        }
    }
    m_ui->listWidget->addItems(kept);
    m_found += kept;
    if (m_next == m_candidates.size()) {
        m_turn.stop();
        m_ui->listWidget->viewport()->unsetCursor();
        widenUniformRows(m_ui->listWidget, m_found);
    }
}

QStringList ModuleInstSelectDialog::getSelected() const
{
    QStringList selected;
    const QList<QListWidgetItem *> items = m_ui->listWidget->selectedItems();
    for (const QListWidgetItem *item : items)
        selected.append(item->text());
    return selected;
}

} // namespace VLT
