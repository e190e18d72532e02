#include "check/names/recordedits.h"
#include "check/names/recordscanner.h"
#include "config/configurationfile.h"

#include <QHash>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <random>

using namespace Check;

namespace {

/// Half of the records with other names, and now and then one to be removed.
QVector<RecordEdit> someEdits(const RecordScanner &scanner, uint seed)
{
    const QStringList pieces{QStringLiteral("x"),   QStringLiteral("<&\"'>"), QStringLiteral("[3]"),
                             QStringLiteral(" \t"), QStringLiteral("\u00e9"), QString()};
    std::minstd_rand random(seed);
    const auto below = [&random](int limit) { return int(random() % uint(limit)); };
    QVector<RecordEdit> edits;
    QHash<QString, int> ordinals;
    const QVector<ScannedRecord> records = scanner.records();
    for (const ScannedRecord &record : records) {
        const int ordinal = ++ordinals[record.section];
        if (!record.hasName || below(2) == 0)
            continue;
        const QString name = scanner.text(record.name);
        const int at = below(name.size() + 1);
        const QString to =
            name.left(at) + pieces.at(below(pieces.size())) + name.mid(at + below(2));
        edits.append({record.section, ordinal, name, to, below(16) == 0});
    }
    return edits;
}

} // namespace

/// Takes any bytes as a configuration file and renames and removes records in it. A file that is
/// changed must be the same again when the change is taken back.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), int(size));
    VLT::ReadReport report;
    VLT::readConfiguration(bytes, &report);
    if (!report.isRead())
        return -1;
    const RecordScanner scanner(bytes);
    if (!scanner.isSupported())
        return 0;
    const QVector<RecordEdit> edits = someEdits(scanner, qHash(bytes));
    QByteArray changed;
    QByteArray restored;
    QVector<RecordEdit> inverse;
    QString error;
    if (!editRecords(bytes, edits, &changed, &inverse, &error)) {
        if (error.isEmpty())
            std::abort();
        return 0;
    }
    const bool removes =
        std::any_of(edits.begin(), edits.end(), [](const RecordEdit &edit) { return edit.remove; });
    if (!removes &&
        !(editRecords(changed, inverse, &restored, nullptr, &error) && restored == bytes))
        std::abort();
    return 0;
}
