#include "tables/nlsdatafinderdialog.h"

#include "config/environmentcodes.h"
#include "tables/rowselection.h"
#include "ui_nlsdatafinderdialog.h"
#include "widgets/uniformrows.h"

#include "nlsdata/netlist.h"

#include <QElapsedTimer>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>
#include <QRegExp>
#include <QRegularExpression>
#include <QStringMatcher>
#include <QTextDocument>

#include <algorithm>
#include <numeric>

namespace VLT {

namespace {

/// Without this short way the finder's goal for "*" is missed by a factor of 4.
bool matchesEverything(const QRegExp &pattern)
{
    const QString text = pattern.pattern();
    return pattern.patternSyntax() == QRegExp::WildcardUnix && !text.isEmpty() &&
           text.count(QLatin1Char('*')) == text.size();
}

/// Rules out most paths several times faster than the pattern itself: they lack its longest
/// piece of literal text. The finder's goal for a pattern is missed by a factor of 3.7 without
/// it.
class PlainPart
{
public:
    explicit PlainPart(const QRegExp &pattern)
    {
        QString text = pattern.pattern();
        const auto isPlain = [](QChar c) {
            return c != QLatin1Char('[') && c != QLatin1Char('\\') && !c.isSurrogate();
        };
        if (pattern.patternSyntax() != QRegExp::WildcardUnix ||
            !std::all_of(text.cbegin(), text.cend(), isPlain))
            return;
        text.replace(QLatin1Char('?'), QLatin1Char('*'));
        const QStringList pieces = text.split(QLatin1Char('*'));
        const auto longest =
            std::max_element(pieces.begin(), pieces.end(), [](const QString &a, const QString &b) {
                return a.size() < b.size();
            });
        m_part = QStringMatcher(*longest, Qt::CaseInsensitive);
    }

    bool rulesOut(const QString &path) const { return m_part.indexIn(path) < 0; }

private:
    // Case-insensitive, so that letters are equal whenever they are to the pattern.
    QStringMatcher m_part; // without text: it is in every path
};

/// What may be wrong with a pattern that matches nothing; empty when there is nothing to say.
QString adviceOn(const QString &pattern)
{
    static const QRegularExpression set(QStringLiteral("(?<!\\\\)\\[([^\\[\\]]+)\\]"));
    if (const auto match = set.match(pattern); match.hasMatch())
        return NlsDataFinderDialog::tr("Brackets stand for one of the characters in them; write "
                                       "\\[%1\\] to find [%1]")
            .arg(match.captured(1));
    QString core = pattern;
    while (core.startsWith(QLatin1Char('*')))
        core.remove(0, 1);
    while (core.endsWith(QLatin1Char('*')))
        core.chop(1);
    const QString wider = QLatin1Char('*') + core + QLatin1Char('*');
    if (core.isEmpty() || wider == pattern)
        return {};
    return NlsDataFinderDialog::tr("The pattern has to match the whole path; try %1").arg(wider);
}

int rowsIn(const QItemSelection &selection)
{
    return std::accumulate(
        selection.begin(), selection.end(), 0,
        [](int sum, const QItemSelectionRange &range) { return sum + range.height(); });
}

/// The objects of the selected rows, in the order of the selection.
template<class Object>
QList<Object *> chosen(const QListWidget *list, const QVector<Object *> &objects)
{
    const QVector<int> rows = selectedRows(list->selectionModel());
    QList<Object *> result;
    result.reserve(rows.size());
    for (const int row : rows)
        result.append(objects.at(row));
    return result;
}

} // namespace

NlsDataFinderDialog::NlsDataFinderDialog(QWidget *parent, NlsData::Netlist *netlist, FindType type)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::NlsDataFinderDialog>())
    , m_netlist(netlist)
    , m_type(type)
{
    m_ui->setupUi(this);
    if (type == FindPort || type == FindOBuff)
        setWindowTitle(tr("Port Finder"));
    else if (type == FindBsram)
        setWindowTitle(tr("BSRAM Finder"));
    else if (type == FindDff)
        setWindowTitle(tr("DFF Finder"));
    m_ui->listWidget->setAccessibleName(tr("Objects found"));
    m_ui->lineEditFilter->selectAll();
    m_ui->progressBar->hide();
    m_ui->btnStop->hide();
    connect(m_ui->btnSearch, &QPushButton::clicked, this, &NlsDataFinderDialog::onSearch);
    connect(m_ui->btnStop, &QPushButton::clicked, this, [this] { m_stopped = true; });
    connect(m_ui->listWidget->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &NlsDataFinderDialog::showState);
    connect(m_ui->listWidget, &QListWidget::itemDoubleClicked, this, [this] {
        // While a search runs, the list still shows the previous results, which are about to be
        // replaced.
        if (m_ui->btnSearch->isEnabled())
            accept();
    });
}

NlsDataFinderDialog::~NlsDataFinderDialog() = default;

QStringList NlsDataFinderDialog::getSelected() const
{
    QStringList texts;
    const QVector<int> rows = selectedRows(m_ui->listWidget->selectionModel());
    texts.reserve(rows.size());
    for (const int row : rows)
        texts.append(m_ui->listWidget->item(row)->text());
    return texts;
}

QList<NlsData::Port *> NlsDataFinderDialog::getBuff() const
{
    return m_type == FindOBuff ? chosen(m_ui->listWidget, m_ports) : QList<NlsData::Port *>();
}

QList<NlsData::Instance *> NlsDataFinderDialog::getBsram() const
{
    return m_type == FindBsram ? chosen(m_ui->listWidget, m_instances)
                               : QList<NlsData::Instance *>();
}

void NlsDataFinderDialog::onSearch()
{
    QString text = m_ui->lineEditFilter->text();
    if (text.isEmpty())
        text = QStringLiteral("*");
    const QRegExp pattern(text, Qt::CaseInsensitive, QRegExp::WildcardUnix);

    const QPointer<NlsDataFinderDialog> self(this);
    setSearching(true);
    switch (m_netlist && pattern.isValid() ? m_type : FindType(-1)) {
    case FindPort:
        searchPort(pattern);
        break;
    case FindBsram:
        searchBsram(pattern);
        break;
    case FindOBuff:
        searchOBuff(pattern);
        break;
    case FindDff:
        searchDff(pattern);
        break;
    default:
        m_ports.clear();
        m_instances.clear();
        listPaths({});
    }
    if (!self)
        return;
    setSearching(false);
    tellTwinsApart();
    if (!pattern.isValid())
        m_found = tr("This is not a valid pattern. Write \\[ and \\] to find brackets.");
    else if (const QString advice = adviceOn(text);
             m_ui->listWidget->count() == 0 && !advice.isEmpty())
        m_found += QLatin1String(". ") + advice;
    showState();
}

void NlsDataFinderDialog::searchPort(const QRegExp &pattern)
{
    search<NlsData::Port>(
        m_netlist->ports(), pattern, [](const NlsData::Port *) { return true; }, &m_ports);
}

void NlsDataFinderDialog::searchDff(const QRegExp &pattern)
{
    search<NlsData::Instance>(
        m_netlist->instances(), pattern,
        [](const NlsData::Instance *instance) {
            return instance->category() == Environment::CATEGORY_DFF;
        },
        nullptr);
}

void NlsDataFinderDialog::searchBsram(const QRegExp &pattern)
{
    search<NlsData::Instance>(
        m_netlist->instances(), pattern,
        [](const NlsData::Instance *instance) {
            return instance->category() == Environment::CATEGORY_BSRAM;
        },
        &m_instances);
}

void NlsDataFinderDialog::searchOBuff(const QRegExp &pattern)
{
    search<NlsData::Port>(
        m_netlist->ports(), pattern,
        [](const NlsData::Port *port) {
            return port->direction() == Environment::DIRECTION_OUT ||
                   port->direction() == Environment::DIRECTION_IN_OUT;
        },
        &m_ports);
}

template<class Object, class Filter>
void NlsDataFinderDialog::search(const QList<Object *> &objects, const QRegExp &pattern,
                                 Filter accepts, QVector<Object *> *found)
{
    constexpr int STRIDE = 4096; // objects between two checks of the clock
    const bool all = matchesEverything(pattern);
    const PlainPart plainPart(pattern);
    QStringList paths;
    QVector<Object *> matches;
    if (all) {
        paths.reserve(objects.size());
        matches.reserve(found ? objects.size() : 0);
    }
    const QPointer<NlsDataFinderDialog> self(this);
    QElapsedTimer sinceEvents;
    sinceEvents.start();
    for (int i = 0; i < objects.size(); ++i) {
        if (i % STRIDE == STRIDE - 1 && sinceEvents.hasExpired(100)) {
            const bool stop = !goOn(i, objects.size());
            if (!self)
                return;
            if (stop)
                break;
            sinceEvents.restart();
        }
        Object *object = objects.at(i);
        if (!accepts(object))
            continue;
        const QString path = object->path();
        if (!all && (plainPart.rulesOut(path) || !pattern.exactMatch(path)))
            continue;
        paths.append(path);
        if (found)
            matches.append(object);
    }
    if (found)
        *found = matches;
    listPaths(paths);
}

/// Shows the progress of a search and processes events; false if it has to stop. `this` may have
/// been deleted then.
bool NlsDataFinderDialog::goOn(int done, int total)
{
    m_ui->progressBar->setMaximum(total);
    m_ui->progressBar->setValue(done);
    m_ui->progressBar->show();
    m_ui->btnStop->show();
    const QPointer<NlsDataFinderDialog> self(this);
    QCoreApplication::processEvents();
    return self && !m_stopped;
}

void NlsDataFinderDialog::setSearching(bool searching)
{
    m_stopped = false;
    m_ui->btnSearch->setEnabled(!searching);
    m_ui->buttonBox->button(QDialogButtonBox::Ok)->setEnabled(!searching);
    if (searching)
        m_found = tr("Searching…");
    showState();
    m_ui->progressBar->hide();
    m_ui->btnStop->hide();
}

void NlsDataFinderDialog::listPaths(const QStringList &paths)
{
    QListWidget *list = m_ui->listWidget;
    list->clear();
    list->insertItems(list->count(), paths);
    widenUniformRows(list, paths);
    const QString count = QLocale().toString(paths.size());
    QString text = paths.size() == 1 ? tr("1 object found") : tr("%1 objects found").arg(count);
    if (m_stopped)
        text = tr("Stopped: %1 so far").arg(text);
    m_found = text;
}

void NlsDataFinderDialog::showState()
{
    const int selected = rowsIn(m_ui->listWidget->selectionModel()->selection());
    QString text = m_found;
    if (selected > 0)
        text += tr(", %1 selected").arg(QLocale().toString(selected));
    m_ui->labelFound->setText(text);
}

/// Two ports may have one path: an escaped name beside the bit of a vector. Their tool tips say
/// which is which.
void NlsDataFinderDialog::tellTwinsApart()
{
    QHash<QString, int> rows;
    for (int row = 0; row < m_ports.size(); ++row) {
        QListWidgetItem *item = m_ui->listWidget->item(row);
        const int first = rows.value(item->text(), row);
        rows.insert(item->text(), first);
        if (first == row)
            continue;
        m_ui->listWidget->item(first)->setToolTip(originOf(m_ports.at(first)));
        item->setToolTip(originOf(m_ports.at(row)));
    }
}

QString NlsDataFinderDialog::originOf(const NlsData::Port *port) const
{
    const auto &ports = m_netlist->ports();
    const int place = int(std::find(ports.begin(), ports.end(), port) - ports.begin()) + 1;
    QString text = tr("Port %1 of %2 in the netlist").arg(place).arg(ports.size());
    if (const NlsData::Net *net = port->net()) {
        text += tr(", on net %1").arg(net->path());
        if (const NlsData::Instance *driver = net->driver())
            text += tr(", driven by %1").arg(driver->path());
    }
    return Qt::mightBeRichText(text) ? text.toHtmlEscaped() : text;
}

void NlsDataFinderDialog::done(int result)
{
    m_stopped = true;
    QDialog::done(result);
}

void NlsDataFinderDialog::keyPressEvent(QKeyEvent *event)
{
    // In the list, Enter accepts the selection; the default button would search again and lose it.
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (!enter || !m_ui->listWidget->hasFocus()) {
        QDialog::keyPressEvent(event);
        return;
    }
    if (m_ui->listWidget->selectionModel()->hasSelection() && m_ui->btnSearch->isEnabled())
        accept();
}

} // namespace VLT
