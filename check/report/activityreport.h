#pragma once

#include "check/activity/scoperanking.h"

#include <QByteArray>
#include <QVector>

#include <memory>

class QJsonObject;

namespace Check {

/// A file and what rankScopes() says; without a ranking when it cannot be used.
struct RankedFile
{
    std::shared_ptr<const ActivityFile> file;
    ScopeRanking ranking;
};

/// At most `maximum` candidates of each file.
QByteArray scopesText(const QVector<RankedFile> &files, const DesignTree &design, int maximum);
QByteArray scopesJson(const QVector<RankedFile> &files, const DesignTree &design, int maximum);

/// {"flip-flop": [covered, nets], …}
QJsonObject kindsJson(const KindCounts &counts);

/// The path in one line, or the placeholder for an empty one.
QString orPlaceholder(const QString &path, const char *placeholder);

/// A name from a file may hold line breaks, which would forge a line of a report.
QString oneLine(QString text);

/// What a file is, in one line: "activity.vcd: vcd, 1 ps, 0 to 10465000".
QString describeFile(const ActivityFile &file);

} // namespace Check
