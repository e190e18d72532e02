#pragma once

#include "check/activity/designtree.h"
#include "check/configurationinput.h"
#include "check/designinput.h"
#include "check/findings.h"
#include "check/names/designnames.h"

#include <QMap>

namespace Check {

/// How closely the rules look at activity files.
enum class ActivityLevel {
    None,   ///< whether they exist
    Header, ///< what they declare
    Full    ///< their values, too
};

struct ActivityOptions
{
    ActivityLevel level = ActivityLevel::None;
    QMap<NetKind, double> minimum; ///< coverage below this is a finding, in percent
    KnownScopes *found = nullptr;  ///< borrowed, may be null: receives the scopes that fit
};

/// The findings on one configuration, sorted. An input that cannot be read is one of them.
QVector<Finding> checkConfiguration(const ConfigurationInput &input, const DesignInput &design,
                                    const QSet<QString> &disabled = {},
                                    const ActivityOptions &activity = {});

// The rules by what they need.

/// The file alone: what opening it passes over or changes.
void checkFile(const ConfigurationInput &input, Findings *findings);

/// The operating conditions, with the supplies of the device when one is given.
void checkConditions(const ConfigurationInput &input, const QString &device, Findings *findings);

/// Rates and the files that they come from. `design` is null without a netlist.
void checkActivityFiles(const ConfigurationInput &input, const DesignNames *design,
                        Findings *findings);

/// What activity files are, and what they cover. Without a netlist the files alone.
void checkActivityContents(const ConfigurationInput &input, const DesignInput &design,
                           const ActivityOptions &options, Findings *findings);

/// Listed objects: once each, and in the netlist. `design` is null without a netlist.
void checkObjects(const ConfigurationInput &input, const DesignNames *design, Findings *findings);

/// Names whose objects are others than when they were recorded, and proposals for the names in
/// `findings` that are missing.
void checkMeanings(const ConfigurationInput &input, const DesignNames &design, Findings *findings);

} // namespace Check
