#include "check/names/recordedits.h"

#include "check/names/recordscanner.h"
#include "config/configurationfile.h"
#include "config/filenames.h"

#include <QHash>

#include <algorithm>

namespace Check {

namespace {

struct Replacement
{
    Span span;
    QByteArray bytes;
};

/// Applies the edits to what the file says; what its bytes say afterwards must be equal.
template<class Record, class NameOf>
void applyTo(QVector<Record> *records, const QString &section, const QVector<RecordEdit> &edits,
             const NameOf &nameOf)
{
    QVector<bool> removed(records->size());
    for (const RecordEdit &edit : edits) {
        if (edit.section != section || edit.ordinal > records->size())
            continue;
        if (edit.remove)
            removed[edit.ordinal - 1] = true;
        else
            nameOf((*records)[edit.ordinal - 1]) = edit.to;
    }
    QVector<Record> kept;
    for (int i = 0; i < records->size(); ++i) {
        if (!removed.at(i))
            kept.append(records->at(i));
    }
    *records = kept;
}

VLT::Configuration edited(VLT::Configuration configuration, const QVector<RecordEdit> &edits)
{
    const auto name = [](auto &record) -> QString & { return record.name; };
    applyTo(&configuration.rates.records, VLT::NODE_NET, edits, name);
    applyTo(&configuration.files.records, VLT::NODE_FILE, edits,
            [](VLT::VLT_VcdFile &file) -> QString & { return file.entity; });
    applyTo(&configuration.clocks.records, VLT::NODE_CLOCK, edits, name);
    applyTo(&configuration.ports.records, VLT::NODE_PORT, edits, name);
    applyTo(&configuration.bsrams.records, VLT::NODE_BSRAM, edits, name);
    applyTo(&configuration.dffs.records, VLT::NODE_INSTANCE, edits, name);
    return configuration;
}

/// What to replace so that the name becomes `to`: front and end that stay keep their bytes.
Replacement renaming(const RecordScanner &scanner, const Span &span, const QString &to)
{
    const QVector<Span> spans = scanner.characters(span);
    QStringList texts;
    for (const Span &character : spans)
        texts.append(scanner.text(character));
    if (texts.join(QString()) != scanner.text(span)) // a line break of two characters
        return {span, scanner.spelled(to)};
    int front = 0;
    int begin = 0;
    while (front < spans.size() && to.midRef(begin, texts.at(front).size()) == texts.at(front))
        begin += texts.at(front++).size();
    int back = spans.size();
    int end = to.size();
    while (back > front && end - texts.at(back - 1).size() >= begin &&
           to.midRef(0, end).endsWith(texts.at(back - 1)))
        end -= texts.at(--back).size();
    const int from = front < spans.size() ? spans.at(front).begin : span.end;
    const int until = back > front ? spans.at(back - 1).end : from;
    return {{from, until}, scanner.spelled(to.mid(begin, end - begin))};
}

QString described(const RecordEdit &edit)
{
    return QStringLiteral("%1 %2 \"%3\"")
        .arg(edit.section, QString::number(edit.ordinal), edit.from);
}

} // namespace

bool editRecords(const QByteArray &bytes, const QVector<RecordEdit> &edits, QByteArray *result,
                 QVector<RecordEdit> *inverse, QString *error)
{
    VLT::ReadReport report;
    const VLT::Configuration before = VLT::readConfiguration(bytes, &report);
    if (!report.isRead()) {
        *error = QStringLiteral("not a configuration: %1").arg(report.error);
        return false;
    }
    const RecordScanner scanner(bytes);
    if (!scanner.isSupported()) {
        *error = QStringLiteral("names cannot be replaced in the encoding of the file");
        return false;
    }
    QHash<QString, QVector<ScannedRecord>> sections;
    const QVector<ScannedRecord> records = scanner.records();
    for (const ScannedRecord &record : records)
        sections[record.section].append(record);

    QVector<Replacement> replacements;
    QVector<RecordEdit> backwards;
    for (const RecordEdit &edit : edits) {
        const QVector<ScannedRecord> section = sections.value(edit.section);
        const bool exists = edit.ordinal >= 1 && edit.ordinal <= section.size();
        if (exists && !section.at(edit.ordinal - 1).hasName) {
            *error = QStringLiteral("%1 has no attribute to be changed: choose its object in the "
                                    "editor and save it once")
                         .arg(described(edit));
            return false;
        }
        if (!exists || !section.at(edit.ordinal - 1).hasName ||
            scanner.text(section.at(edit.ordinal - 1).name) != edit.from) {
            *error = QStringLiteral("%1 is not in the file").arg(described(edit));
            return false;
        }
        const ScannedRecord &record = section.at(edit.ordinal - 1);
        if (edit.remove)
            replacements.append({scanner.withLine(record.element), QByteArray()});
        else if (edit.spelling.isEmpty())
            replacements.append(renaming(scanner, record.name, edit.to));
        else
            replacements.append({record.name, edit.spelling});
        backwards.append({edit.section, edit.ordinal, edit.to, edit.from, false,
                          bytes.mid(record.name.begin, record.name.end - record.name.begin)});
    }
    std::sort(
        replacements.begin(), replacements.end(),
        [](const Replacement &a, const Replacement &b) { return a.span.begin < b.span.begin; });
    QByteArray text;
    int copied = 0;
    for (const Replacement &replacement : qAsConst(replacements)) {
        if (replacement.span.begin < copied) {
            *error = QStringLiteral("a record is changed twice");
            return false;
        }
        text += bytes.mid(copied, replacement.span.begin - copied) + replacement.bytes;
        copied = replacement.span.end;
    }
    text += bytes.mid(copied);

    const VLT::Configuration after = VLT::readConfiguration(text, &report);
    if (!report.isRead() || after != edited(before, edits)) {
        *error = QStringLiteral("the changed file would not read as intended");
        return false;
    }
    *result = text;
    if (inverse)
        *inverse = backwards;
    return true;
}

} // namespace Check
