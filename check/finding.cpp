#include "check/finding.h"

#include <algorithm>
#include <tuple>

namespace Check {

const QVector<Rule> &allRules()
{
    static const QVector<Rule> rules = {
        {"bsram-type", Level::Warning,
         "The stored memory kind, or a value of it, differs from the netlist."},
        {"clock-unknown", Level::Note, "No net or port has the name of the clock."},
        {"clock-value-missing", Level::Warning, "The clock section without a value reads as 0."},
        {"coverage-low", Level::Error, "Fewer nets of a kind than wanted have rates of their own."},
        {"device-unknown", Level::Warning, "The device has no known supply data."},
        {"duplicate", Level::Warning, "An object is listed more than once."},
        {"entity-missing", Level::Error, "The instance of an activity file is not in the netlist."},
        {"file-kind", Level::Error, "An activity file is not of its kind, or cannot be used."},
        {"file-missing", Level::Error, "An activity file does not exist."},
        {"file-older", Level::Note, "An activity file is older than the netlist."},
        {"file-relative", Level::Note, "The path of an activity file is relative."},
        {"file-truncated", Level::Warning, "An activity file is cut off."},
        {"ignored", Level::Note, "An element has no effect because of another one."},
        {"name-missing", Level::Error, "An object is not in the netlist."},
        {"name-moved", Level::Error, "A name belongs to another object than when it was recorded."},
        {"name-unstable", Level::Note, "Names that synthesis generated may change with every run."},
        {"not-a-config", Level::Error, "The file is not a configuration that opens."},
        {"not-a-number", Level::Error, "A text is not a number."},
        {"not-readable", Level::Error, "An input cannot be read."},
        {"out-of-range", Level::Error, "A value is outside its range or choices."},
        {"overlap", Level::Warning, "A net has several sources of its rate."},
        {"port-type", Level::Warning, "The stored port type differs from the netlist."},
        {"rate-empty", Level::Error, "A net has no rate, so the editor refuses to save."},
        {"rate-limit", Level::Error, "A rate is over its limit."},
        {"scope-misfit", Level::Error, "An activity file does not fit its instance."},
        {"span-empty", Level::Error, "The time window of an activity file is empty."},
        {"span-outside", Level::Error, "The time window is not within the activity file."},
        {"static", Level::Note, "Flip-flops never toggle in an activity file."},
        {"supply-absent", Level::Warning, "The device does not have a supply that is given."},
        {"supply-range", Level::Warning, "Opening replaces a supply voltage on this device."},
        {"unknown-element", Level::Warning, "The next save drops an element or attribute."},
        {"wrong-kind", Level::Error, "A name belongs to an object of another kind."},
        {"x-time", Level::Note, "Nets are unknown for some time of an activity file."},
    };
    return rules;
}

const Rule *findRule(const QString &id)
{
    const QVector<Rule> &rules = allRules();
    const auto rule = std::find_if(rules.begin(), rules.end(), [&id](const Rule &candidate) {
        return id == QLatin1String(candidate.id);
    });
    return rule == rules.end() ? nullptr : rule;
}

QString levelName(Level level)
{
    switch (level) {
    case Level::Error:
        return QStringLiteral("error");
    case Level::Warning:
        return QStringLiteral("warning");
    default:
        return QStringLiteral("note");
    }
}

Counts countsOf(const QVector<Finding> &findings)
{
    Counts counts;
    for (const Finding &finding : findings) {
        const Level level = finding.rule->level;
        ++(level == Level::Error     ? counts.errors
           : level == Level::Warning ? counts.warnings
                                     : counts.notes);
    }
    return counts;
}

QString summary(const Counts &counts)
{
    const auto counted = [](int count, const char *what) {
        return QStringLiteral("%1 %2%3").arg(QString::number(count), QLatin1String(what),
                                             QLatin1String(count == 1 ? "" : "s"));
    };
    return counted(counts.errors, "error") + QStringLiteral(", ") +
           counted(counts.warnings, "warning") + QStringLiteral(", ") +
           counted(counts.notes, "note");
}

void sortFindings(QVector<Finding> *findings)
{
    std::stable_sort(findings->begin(), findings->end(), [](const Finding &a, const Finding &b) {
        // Rules are in the order of their identifiers.
        return std::tie(a.file, a.line, a.rule) < std::tie(b.file, b.line, b.rule);
    });
}

} // namespace Check
