#pragma once

#include "check/configurationinput.h"
#include "check/names/namereview.h"
#include "check/names/recordedits.h"

namespace Check {

/// Changes of names that somebody has looked at, and what they were made for.
struct NamePlan
{
    QSet<QByteArray> inputs;   ///< SHA-256 of configuration and netlist; empty: not given
    QVector<RecordEdit> edits; ///< one whose name stays accepts what it means now
};

/// The review as JSON, which is a plan as well. `inputs` are path and SHA-256 of the configuration
/// and the netlist.
QByteArray reviewJson(const NameReview &review, const QVector<QPair<QString, QByteArray>> &inputs);

/// Reads such a list. Records with neither proposal nor "remove" are left out. False with a
/// sentence in `error` when it is none.
bool parsePlan(const QByteArray &json, NamePlan *plan, QString *error);

/// The proposals that are at least so certain, without those that would need others.
NamePlan planOf(const NameReview &review, const VLT::Configuration &configuration,
                const DesignNames &design, Certainty least);

/// Checks that the plan is for these inputs, that its names are in the netlist, as objects of the
/// right kind, and that no two names become one. False with a sentence in `error` otherwise.
bool checkPlan(const NamePlan &plan, const ConfigurationInput &input, const DesignNames &design,
               const QByteArray &netlistSha256, QString *error);

/// Carries a checked plan out on the file that `input` was read from, if its bytes are still the
/// same, and brings the memory up to date. The memory is written when `writeMemory` says so, or
/// when there is one. `inverse` may be null.
bool applyPlan(const NamePlan &plan, const ConfigurationInput &input, const DesignNames &design,
               const QByteArray &netlistSha256, bool writeMemory, QVector<RecordEdit> *inverse,
               QString *error);

/// Brings the memory of a saved configuration up to date and writes it, unless it is the same.
bool recordNames(const ConfigurationInput &input, const DesignNames &design,
                 const QByteArray &netlistSha256, const QSet<NamedRecord> &decided, QString *error);

} // namespace Check
