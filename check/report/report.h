#pragma once

#include "check/finding.h"

#include <QByteArray>
#include <QString>

namespace Check {

/// A file that the findings depend on.
struct InputFile
{
    QString path;      ///< as given
    QByteArray sha256; ///< in hexadecimal digits; empty when it could not be read
};

/// One run of the checks. Reports have no times and no paths but those that were given: two runs on
/// the same files give the same bytes.
struct Report
{
    QVector<InputFile> inputs;
    QVector<Finding> findings; ///< sorted
};

/// One finding per line, `file:line: level: message [rule]`, and a line with the numbers.
QByteArray textReport(const Report &report);

/// The line of one finding in the text report, without its end.
QString textLine(const Finding &finding);

QByteArray jsonReport(const Report &report);

/// SARIF 2.1.0. Of a rule's results at most `maxPerRule` are listed, and one more sums up the rest.
QByteArray sarifReport(const Report &report, int maxPerRule, const QString &version);

} // namespace Check
