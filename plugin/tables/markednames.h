#pragma once

#include <QIcon>
#include <QObject>
#include <QSet>
#include <QString>

#include <memory>

class QTableView;

namespace VLT {

/// Kinds of objects that tables list by name.
enum class ListedKind { None, Net, Port, BlockSram, FlipFlop, Instance };

/// The kind of the records that are elements called `section` in the file. Clocks are constraints,
/// whose names need not be those of objects.
ListedKind listedKind(const QString &section);

/// Names that have been looked up in a netlist, and those of them that are not in it, by kind.
struct LookedUpNames
{
    QSet<QString> known[int(ListedKind::Instance) + 1];
    QSet<QString> missing[int(ListedKind::Instance) + 1];
};

/// Which names of a table are not in the netlist: what its delegate marks, the table explains in
/// tool tips, and screen readers are told. It knows nothing until names have been looked up.
class MarkedNames : public QObject
{
    Q_OBJECT

public:
    /// Names are in the first column. The table owns this object.
    MarkedNames(QTableView *table, ListedKind kind);

    ListedKind kind() const { return m_kind; }
    QTableView *table() const { return m_table; }

    bool isMissing(const QString &name) const
    {
        return m_names && m_names->missing[int(m_kind)].contains(name);
    }
    bool isKnown(const QString &name) const
    {
        return m_names && m_names->known[int(m_kind)].contains(name);
    }
    void setNames(const std::shared_ptr<const LookedUpNames> &names);

    const QIcon &icon() const;

    /// Why the name is marked, in plain text.
    QString reason(const QString &name) const;

signals:
    /// There may be names that have not been looked up.
    void namesAdded();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void tellScreenReaders();

    QTableView *const m_table;
    const ListedKind m_kind;
    std::shared_ptr<const LookedUpNames> m_names;
    mutable QIcon m_icon; // made when first painted
};

} // namespace VLT
