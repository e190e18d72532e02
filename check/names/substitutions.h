#pragma once

#include "check/names/namereview.h"

#include <QPair>

namespace Check {

/// One part of a path that another may replace: "u_top/", "u_uart", "/tx_ready".
struct PathPart
{
    QString left;
    QString part;
    QString right;
};

/// Every way to replace one part of `name`: a component, or the front of the last one, before its
/// bit or before one of `cellTypes` between underscores, which synthesis puts there. A part with
/// nothing behind it is no way: anything would do in its place.
QVector<PathPart> partsOf(const QString &name, const QStringList &cellTypes);

/// Proposes names by substitutions, each of which explains a whole group of two or more: every
/// listed name that has the old part is gone, and has the new part in the netlist, with an object
/// of the same kind that is not listed itself. Where more than one part would do, none is proposed.
class Substitutions
{
public:
    /// `records` are all of a configuration, with their states and the proposals so far.
    Substitutions(QVector<ReviewedRecord> *records, const DesignNames &design);

    void propose();

private:
    using Prefix = QPair<QString, QString>; ///< left and old part
    /// For one record: what to look for in the netlist, whatever the new part.
    struct Member
    {
        int record;
        QVector<QString> keys;
    };

    void addWitnesses(int record);
    void addKept(int record);
    void search();
    void addHit(const QString &section, const QString &key, const QString &part,
                const DesignObject &object);
    void tryGroup(const Prefix &prefix, const QVector<Member> &members);
    QHash<QString, QString> targets(const Member &member) const;
    bool isFree(const ReviewedRecord &record, const QString &target) const;

    QVector<ReviewedRecord> &m_records;
    const DesignNames &m_design;
    QStringList m_cellTypes; // each between underscores
    QHash<Prefix, QVector<Member>> m_groups;
    QSet<Prefix> m_kept;                    // of listed names that are as they were
    QSet<NamedRecord> m_taken;              // listed names that stay, and proposals
    QHash<QString, QSet<QString>> m_wanted; // keys, by section
    /// By section, key and new part: the path; empty when there is more than one.
    QHash<QString, QHash<QString, QHash<QString, QString>>> m_hits;
};

} // namespace Check
