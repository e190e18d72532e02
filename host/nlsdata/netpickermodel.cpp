#include "host/nlsdata/netpickermodel.h"

#include "host/nlsdata/othernames.h"
#include "host/utils/naturalorder.h"

#include "nlsdata/netlist.h"

#include <QElapsedTimer>

#include <algorithm>
#include <numeric>

namespace NlsData {

namespace {

constexpr int TURN_MS = 15;
constexpr int NETS_BETWEEN_CLOCK_LOOKS = 256;
constexpr int MAXIMUM_LISTED = 20; // names in a tool tip

bool isWildcard(const QString &filter)
{
    return filter.contains(QLatin1Char('*')) || filter.contains(QLatin1Char('?'));
}

bool keepsEverything(const QString &filter)
{
    return filter.count(QLatin1Char('*')) == filter.size();
}

/// Brackets are literal, because nearly every net name has them.
QRegularExpression wildcardExpression(const QString &wildcard)
{
    QString pattern = QRegularExpression::escape(wildcard);
    pattern.replace(QLatin1String("\\*"), QLatin1String(".*"));
    pattern.replace(QLatin1String("\\?"), QLatin1String("."));
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern),
                              QRegularExpression::CaseInsensitiveOption |
                                  QRegularExpression::DotMatchesEverythingOption);
}

} // namespace

NetPickerModel::NetPickerModel(const QList<Net *> &nets, QObject *parent)
    : QAbstractListModel(parent)
    , m_nets(nets)
{
    sortVectors();
    m_turn.setInterval(0);
    connect(&m_turn, &QTimer::timeout, this, &NetPickerModel::takeTurn);
}

/// Puts neighbours whose names differ behind a first bracket into natural order. They are
/// neighbours in any usual order, so that nothing else has to be compared.
void NetPickerModel::sortVectors()
{
    m_paths.resize(size_t(m_nets.size()));
    std::vector<int> order(m_paths.size());
    std::iota(order.begin(), order.end(), 0);
    for (int begin = 0, end = 0; begin < m_nets.size(); begin = end) {
        const QString head = path(begin).left(path(begin).indexOf(QLatin1Char('[')) + 1);
        for (end = begin + 1; end < m_nets.size(); ++end) {
            if (head.isEmpty() || !path(end).startsWith(head))
                break;
        }
        std::stable_sort(order.begin() + begin, order.begin() + end, [this](int a, int b) {
            return Utils::naturalLess(m_paths[size_t(a)], m_paths[size_t(b)]);
        });
    }
    QList<Net *> nets;
    std::vector<QString> paths;
    nets.reserve(m_nets.size());
    paths.reserve(m_paths.size());
    for (const int position : order) {
        nets.append(m_nets.at(position));
        paths.push_back(std::move(m_paths[size_t(position)]));
    }
    m_nets.swap(nets);
    m_paths.swap(paths);
}

void NetPickerModel::setFilter(const QString &typed)
{
    const QString filter = typed.trimmed(); // a pasted name may end in a line break
    if (filter == m_filter)
        return;
    m_filter = filter;
    m_wildcard = isWildcard(filter);
    m_narrowing = !m_all && !m_wildcard && !isWildcard(m_shownFilter) &&
                  filter.contains(m_shownFilter, Qt::CaseInsensitive);
    start();
}

void NetPickerModel::setOtherNames(const OtherNames *names)
{
    m_otherNames = names;
    if (keepsEverything(m_filter))
        return;
    m_narrowing = false; // what is not in the rows may have another name that matches
    start();
}

void NetPickerModel::start()
{
    m_found.clear();
    m_next = 0;
    if (keepsEverything(m_filter)) {
        finish();
        return;
    }
    if (m_wildcard)
        m_pattern = wildcardExpression(m_filter);
    else
        m_part = QStringMatcher(m_filter, Qt::CaseInsensitive);
    m_turn.start();
    emit filteringChanged();
    takeTurn();
}

void NetPickerModel::takeTurn()
{
    QElapsedTimer clock;
    clock.start();
    const int total = m_narrowing ? int(m_rows.size()) : m_nets.size();
    while (m_next < total) {
        const int position = m_narrowing ? m_rows[size_t(m_next)] : m_next;
        if (isFound(position))
            m_found.push_back(position);
        if (++m_next % NETS_BETWEEN_CLOCK_LOOKS == 0 && clock.hasExpired(TURN_MS))
            return;
    }
    finish();
}

void NetPickerModel::finish()
{
    m_turn.stop();
    beginResetModel();
    m_shownFilter = m_filter;
    m_all = keepsEverything(m_filter);
    m_rows.swap(m_found);
    m_found.clear();
    endResetModel();
    emit filteringChanged();
}

bool NetPickerModel::matches(const QString &name) const
{
    return m_wildcard ? m_pattern.match(name).hasMatch() : m_part.indexIn(name) >= 0;
}

bool NetPickerModel::isFound(int position)
{
    if (matches(path(position)))
        return true;
    if (!m_otherNames)
        return false;
    const QStringList names = m_otherNames->of(m_nets.at(position));
    return std::any_of(names.begin(), names.end(),
                       [this](const QString &name) { return matches(name); });
}

const QString &NetPickerModel::path(int position)
{
    QString &path = m_paths[size_t(position)];
    if (path.isNull())
        path = m_nets.at(position)->path();
    return path;
}

Net *NetPickerModel::net(int row) const
{
    return m_nets.at(m_all ? row : m_rows[size_t(row)]);
}

QString NetPickerModel::toolTip(const Net &net) const
{
    QStringList lines{net.path()};
    const QStringList names = m_otherNames ? m_otherNames->of(&net) : QStringList();
    if (!names.isEmpty())
        lines += tr("Also called:");
    lines += names.mid(0, MAXIMUM_LISTED);
    if (names.size() > MAXIMUM_LISTED)
        lines += tr("... and %1 more").arg(names.size() - MAXIMUM_LISTED);
    // A name may look like markup.
    return QLatin1String("<p style='white-space:pre'>") +
           lines.join(QLatin1Char('\n')).toHtmlEscaped() + QLatin1String("</p>");
}

int NetPickerModel::rowCount(const QModelIndex &parent) const
{
    if (parent.isValid())
        return 0;
    return m_all ? m_nets.size() : int(m_rows.size());
}

QVariant NetPickerModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= rowCount())
        return QVariant();
    if (role == Qt::DisplayRole)
        return net(index.row())->path();
    return role == Qt::ToolTipRole ? toolTip(*net(index.row())) : QVariant();
}

} // namespace NlsData
