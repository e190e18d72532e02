#include "document/namelookup.h"

#include "config/environmentcodes.h"
#include "tables/document.h"

#include "nlsdata/netlist.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QPointer>
#include <QTableView>
#include <QThreadPool>

#include <algorithm>

namespace VLT {

namespace {

constexpr int TURN_MS = 10;
constexpr int BETWEEN_LOOKS = 256; // objects between two looks at clock or flag

/// Where names are looked up, and who receives the results in the thread of the views. Results that
/// have not arrived go with it.
struct Background
{
    QObject receiver;
    QThreadPool threads; // waits, and goes first
};

// Not created with the library, which may be before QApplication.
std::unique_ptr<Background> background;

} // namespace

/// One look at a netlist, handed over to the thread and back.
struct NameLookup::Search
{
    std::shared_ptr<NlsData::Netlist> netlist;
    std::shared_ptr<const LookedUpNames> before; // null when none of it counts
    QSet<QString> wanted[int(ListedKind::Instance) + 1];
    QSet<QString> designNames;
    std::shared_ptr<const LookedUpNames> after;
    std::atomic<bool> isCancelled{false};

    bool isEmpty() const
    {
        return std::all_of(std::begin(wanted), std::end(wanted),
                           [](const QSet<QString> &names) { return names.isEmpty(); });
    }
    void run();

private:
    void find(ListedKind kind, const QString &path) { missing[int(kind)].remove(path); }
    void findPorts();
    void findInstances();
    void findNets();

    QSet<QString> missing[int(ListedKind::Instance) + 1];
};

void NameLookup::Search::run()
{
    std::copy(std::begin(wanted), std::end(wanted), std::begin(missing));
    // The whole design, also by a name that it had before.
    missing[int(ListedKind::Instance)].subtract(designNames);
    findPorts();
    findInstances();
    findNets();
    auto names =
        before ? std::make_shared<LookedUpNames>(*before) : std::make_shared<LookedUpNames>();
    for (int kind = 0; kind <= int(ListedKind::Instance); ++kind) {
        names->known[kind].unite(wanted[kind]);
        names->missing[kind].unite(missing[kind]);
        wanted[kind].clear();
        missing[kind].clear();
    }
    after = names;
}

void NameLookup::Search::findPorts()
{
    if (missing[int(ListedKind::Port)].isEmpty())
        return;
    for (const NlsData::Port *port : netlist->ports())
        find(ListedKind::Port, port->path());
}

void NameLookup::Search::findInstances()
{
    const auto isWanted = [this](ListedKind kind) { return !missing[int(kind)].isEmpty(); };
    const bool all = isWanted(ListedKind::Instance);
    if (!all && !isWanted(ListedKind::BlockSram) && !isWanted(ListedKind::FlipFlop))
        return;
    int count = 0;
    for (const NlsData::Instance *instance : netlist->instances()) {
        if (++count % BETWEEN_LOOKS == 0 && isCancelled)
            return;
        const int category = instance->category();
        const ListedKind kind = category == Environment::CATEGORY_BSRAM ? ListedKind::BlockSram
                                : category == Environment::CATEGORY_DFF ? ListedKind::FlipFlop
                                                                        : ListedKind::None;
        if (!all && !isWanted(kind))
            continue;
        const QString path = instance->path();
        find(kind, path);
        find(ListedKind::Instance, path);
    }
}

void NameLookup::Search::findNets()
{
    QSet<QString> &names = missing[int(ListedKind::Net)];
    if (names.isEmpty() || isCancelled)
        return;
    const QMap<QString, NlsData::Net *> &nets = netlist->netMap();
    for (auto name = names.begin(); name != names.end();) {
        if (nets.contains(*name))
            name = names.erase(name);
        else
            ++name;
    }
}

NameLookup::NameLookup(Document *document, QWidget *view)
    : QObject(view)
    , m_document(document)
{
    const auto tables = view->findChildren<MarkedNames *>();
    for (MarkedNames *table : tables) {
        m_tables.append(table);
        connect(table, &MarkedNames::namesAdded, this, &NameLookup::schedule);
    }
    m_turn.setInterval(0);
    connect(&m_turn, &QTimer::timeout, this, &NameLookup::gather);
    view->installEventFilter(this);
}

NameLookup::~NameLookup()
{
    if (m_search)
        m_search->isCancelled = true;
}

bool NameLookup::eventFilter(QObject *watched, QEvent *event)
{
    // The first picture is painted before the names are gathered.
    if (event->type() == QEvent::Paint && !m_isShown) {
        m_isShown = true;
        schedule();
    }
    return QObject::eventFilter(watched, event);
}

void NameLookup::startOver()
{
    if (m_search)
        m_search->isCancelled = true;
    m_search.reset();
    m_isSearching = false;
    m_names.reset();
    schedule();
}

void NameLookup::finish()
{
    background.reset();
}

void NameLookup::schedule()
{
    m_isStale = true;
    if (m_isShown && !m_isSearching)
        m_turn.start();
}

void NameLookup::gather()
{
    if (m_isStale) {
        m_isStale = false;
        m_table = 0;
        m_row = 0;
        m_search = std::make_shared<Search>();
        m_search->before = m_names;
    }
    QElapsedTimer clock;
    clock.start();
    for (; m_table < m_tables.size(); ++m_table, m_row = 0) {
        const MarkedNames *table = m_tables.at(m_table);
        const QAbstractItemModel *model = table->table()->model();
        const int kind = int(table->kind());
        for (int count = model->rowCount(); m_row < count; ++m_row) {
            if (m_row % BETWEEN_LOOKS == BETWEEN_LOOKS - 1 && clock.hasExpired(TURN_MS)) {
                ++m_row;
                return;
            }
            const QString name = model->index(m_row, 0).data().toString();
            if (!m_names || !m_names->known[kind].contains(name))
                m_search->wanted[kind].insert(name);
        }
    }
    m_turn.stop();
    search();
}

void NameLookup::search()
{
    m_search->netlist = m_document->holdNetlist();
    if (m_search->netlist)
        m_designNames.insert(m_search->netlist->name());
    m_search->designNames = m_designNames;
    if (!m_search->netlist || m_search->isEmpty()) {
        m_search.reset();
        return;
    }
    m_isSearching = true;
    if (!background)
        background = std::make_unique<Background>();
    background->threads.start([search = m_search, self = QPointer<NameLookup>(this),
                               receiver = &background->receiver]() mutable {
        search->run();
        // The netlist goes where it came from, should this be the last to hold it.
        QMetaObject::invokeMethod(
            receiver,
            [search = std::move(search), self] {
                if (self)
                    self->take(search);
            },
            Qt::QueuedConnection);
    });
}

void NameLookup::take(const std::shared_ptr<Search> &search)
{
    if (search != m_search) // of a netlist before
        return;
    m_names = search->after;
    m_search.reset();
    m_isSearching = false;
    for (MarkedNames *table : qAsConst(m_tables))
        table->setNames(m_names);
    if (m_isStale)
        m_turn.start();
}

} // namespace VLT
