#pragma once

#include "check/names/namememory.h"

#include <QVector>

namespace VLT {
struct Configuration;
struct FileLines;
} // namespace VLT

namespace Check {

enum class NameState {
    Same,    ///< shares a public name with what it meant
    Moved,   ///< means something else now
    Missing, ///< no such object
    Unknown  ///< what it meant is not known, or is no longer in the netlist
};

enum class Certainty { None, Likely, Sure };

/// A record of a configuration and what its name means now.
struct ReviewedRecord
{
    QString section;
    int ordinal = 0; ///< among the records of the section, from 1
    QString name;
    NameState state = NameState::Unknown;
    QStringList meant; ///< as recorded; empty when nothing is
    QStringList now;   ///< what it means now; empty when missing or when `meant` is
    QString proposal;  ///< a name; empty: none, or removal of what is gone
    Certainty certainty = Certainty::None;
    QString reason; ///< for the proposal, or why there is none
    QString rule;   ///< of proposals that one substitution explains: "u_uart/ -> u_serial/"
};

struct NameCounts
{
    int same = 0;
    int moved = 0;
    int missing = 0;
    int unknown = 0;
};

struct NameReview
{
    NameCounts counts;
    QVector<ReviewedRecord> records; ///< all but the same ones, in the order of the file

    /// Whether a name is missing or moved.
    bool needsAttention() const { return counts.moved + counts.missing > 0; }
};

/// The records of a configuration whose names are looked up in the netlist, in the order of the
/// file's sections. Activity files of the whole design, and clocks, are none.
QVector<ReviewedRecord> namedRecords(const VLT::Configuration &configuration,
                                     const DesignNames &design);

ObjectKind kindOf(const ReviewedRecord &record);

/// The record's line in the file, from 1.
int lineOf(const ReviewedRecord &record, const VLT::FileLines &lines);

/// Reviews every name. `withProposals` looks for new names for those that are missing or moved.
NameReview reviewNames(const VLT::Configuration &configuration, const NameMemory &memory,
                       const DesignNames &design, bool withProposals = true);

/// The state of a name: `object` has it now, `meant` is null when nothing is recorded.
NameState stateOf(ObjectKind kind, const DesignObject &object, const Meaning *meant,
                  const DesignNames &design);

QString stateName(NameState state);         ///< "same", "moved", "missing", "unknown"
QString certaintyName(Certainty certainty); ///< "sure", "likely" or empty

} // namespace Check
