#pragma once

#include <QString>
#include <QVector>

namespace Check {

enum class Level { Note, Warning, Error };

/// A kind of finding. Identifiers are part of the interface: scripts name them.
struct Rule
{
    const char *id;
    Level level;
    const char *summary; ///< one sentence
};

/// All rules, in the order of their identifiers.
const QVector<Rule> &allRules();

/// The rule of that identifier; null when there is none.
const Rule *findRule(const QString &id);

/// Something about a configuration that its author should know.
struct Finding
{
    const Rule *rule; ///< of allRules()
    QString file;     ///< path as given
    int line = 0;     ///< from 1; 0 when it is about the file as a whole
    QString section;  ///< name of the element that it is about; empty without one
    int ordinal = 0;  ///< the record's number among those of its section, from 1; 0 for no record
    QString name;     ///< the object's path, as the file has it; empty without one
    QString message;
    QString proposal = {}; ///< a better name or value; empty without one
};

/// "error", "warning" or "note".
QString levelName(Level level);

/// Numbers of findings by level.
struct Counts
{
    int errors = 0;
    int warnings = 0;
    int notes = 0;
};

Counts countsOf(const QVector<Finding> &findings);

/// "1 error, 3 warnings, 2 notes".
QString summary(const Counts &counts);

/// Orders by file, line, rule; what is equal in these keeps its order.
void sortFindings(QVector<Finding> *findings);

} // namespace Check
