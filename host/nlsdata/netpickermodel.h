#pragma once

#include <QAbstractListModel>
#include <QRegularExpression>
#include <QStringMatcher>
#include <QTimer>

#include <vector>

namespace NlsData {

class Net;
class OtherNames;

/// The nets of a list that a filter keeps, in the list's order, but with the numbers in brackets in
/// theirs: [2] before [10]. Filtering works in short slices of the event loop, so that typing stays
/// responsive on a million nets; until it has finished, the model has the previous filter's rows.
class NetPickerModel : public QAbstractListModel
{
    Q_OBJECT

public:
    /// The nets must outlive the model.
    explicit NetPickerModel(const QList<Net *> &nets, QObject *parent = nullptr);

    /// Starts filtering. A text without "*" and "?" matches the nets whose path contains it; with
    /// them, it has to match the whole path. Both are case-insensitive.
    void setFilter(const QString &filter);
    bool isFiltering() const { return m_turn.isActive(); }

    /// Looks for other names of the nets as well from now on, and lists them in tool tips. `names`
    /// is borrowed.
    void setOtherNames(const OtherNames *names);

    Net *net(int row) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

signals:
    /// Filtering has begun or ended.
    void filteringChanged();

private:
    QString toolTip(const Net &net) const;
    void sortVectors();
    void takeTurn();
    void finish();
    const QString &path(int position);
    void start();
    bool matches(const QString &name) const;
    bool isFound(int position);

    QList<Net *> m_nets;
    const OtherNames *m_otherNames = nullptr;
    std::vector<QString> m_paths; ///< of m_nets
    std::vector<int> m_rows;      ///< positions in m_nets
    QString m_shownFilter;
    bool m_all = true; ///< every net is kept and m_rows is not used

    QString m_filter;
    bool m_wildcard = false;
    QStringMatcher m_part;
    QRegularExpression m_pattern;
    bool m_narrowing = false; ///< only nets in m_rows can match
    int m_next = 0;           ///< position in what is searched
    std::vector<int> m_found;
    QTimer m_turn;
};

} // namespace NlsData
