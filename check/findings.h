#pragma once

#include "check/finding.h"

#include <QHash>
#include <QPair>
#include <QSet>

namespace Check {

/// Where a record is in its file.
struct RecordPlace
{
    QString section;
    int ordinal = 0; ///< from 1
    int line = 0;    ///< from 1
    QString name;
};

/// Collects the findings on one file.
class Findings
{
public:
    /// Findings of the rules in `disabled` are dropped.
    Findings(const QString &file, const QSet<QString> &disabled)
        : m_file(file)
        , m_disabled(disabled)
    {
    }

    /// About a record. `rule` must be one of allRules().
    void add(const char *rule, const RecordPlace &place, const QString &message,
             const QString &proposal = {});

    /// About the element `section`, or about the whole file when it is empty.
    void add(const char *rule, int line, const QString &section, const QString &message,
             const QString &proposal = {});

    /// Adds proposals, by section and ordinal, to the findings that names or entities are missing.
    void propose(const QHash<QPair<QString, int>, QString> &proposals);

    const QVector<Finding> &all() const { return m_findings; }

private:
    const QString m_file;
    const QSet<QString> m_disabled;
    QVector<Finding> m_findings;
};

} // namespace Check
