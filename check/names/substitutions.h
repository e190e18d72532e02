#pragma once

#include "check/names/namereview.h"
#include "check/names/pathhashes.h"

#include <QVarLengthArray>

namespace Check {

/// Proposes names by substitutions, each of which explains a whole group of two or more: every
/// listed name that has the old part is gone, and has the new part in the netlist, with an object
/// of the same kind that is not listed itself. Where more than one part would do, none is proposed.
///
/// A part is a component of a path, or the front of the last one, before its bit or before a cell
/// type between underscores, which synthesis puts there. A part with nothing behind it is none:
/// anything would do in its place.
class Substitutions
{
public:
    /// `records` are all of a configuration, with their states and the proposals so far.
    Substitutions(QVector<ReviewedRecord> *records, const DesignNames &design);

    void propose();

private:
    /// The characters of a path from `begin` on and before `end`.
    struct Part
    {
        int begin;
        int end;
    };
    using Parts = QVarLengthArray<Part, 16>;

    /// What a path is beside one of its parts. Names of nets and of objects are looked up apart.
    struct Key
    {
        QString left;
        QString right;
        QString section;
        bool isNet;
        /// By new part: the path of the object; empty when there is more than one.
        QHash<QString, QString> hits;
    };
    /// For one record: what to look for in the netlist, whatever the new part.
    struct Member
    {
        int record;
        QVarLengthArray<int, 2> keys;
    };
    /// The records whose names have the same part in the same place.
    struct Group
    {
        QString left;
        QString part;
        QVector<Member> members;
        bool isKept = false; ///< a name that has not changed contains it, too
    };

    Parts partsOf(const QString &name, bool withCellTypes) const;
    void addWitnesses(int record);
    void addKept(int record);
    int findGroup(const QString &name, const PathHashes &hashes, const Part &part) const;
    int findKey(const QString &name, const PathHashes &hashes, const Part &part,
                const QString &section, bool isNet) const;
    void search();
    void look(const QString &section, const QString &name, bool isNet, const DesignObject &object);
    void tryGroup(const Group &group);
    QString target(const Member &member, const QString &part) const;
    bool isDistinct(const QVector<Member> &members, const QString &part) const;
    bool isFree(const ReviewedRecord &record, const QString &target) const;

    QVector<ReviewedRecord> &m_records;
    const DesignNames &m_design;
    QStringList m_cellTypes; ///< each between underscores
    std::vector<Group> m_groups;
    HashedNumbers m_groupNumbers;
    std::vector<Key> m_keys;
    HashedNumbers m_keyNumbers;
    QSet<QString> m_ownSections; ///< with keys of the objects' names
    QSet<QString> m_netSections; ///< with keys of their nets' names
    QSet<NamedRecord> m_taken;   ///< listed names that stay, and proposals
};

} // namespace Check
