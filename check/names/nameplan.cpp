#include "check/names/nameplan.h"

#include "check/names/proposals.h"
#include "config/filenames.h"
#include "config/safewrite.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Check {

namespace {

constexpr int FORMAT = 1;

QJsonObject toJson(const ReviewedRecord &record)
{
    QJsonObject json{{QStringLiteral("section"), record.section},
                     {QStringLiteral("ordinal"), record.ordinal},
                     {QStringLiteral("name"), record.name},
                     {QStringLiteral("state"), stateName(record.state)},
                     {QStringLiteral("meant"), QJsonArray::fromStringList(record.meant)}};
    if (!record.proposal.isEmpty()) {
        json.insert(QStringLiteral("proposal"), record.proposal);
        json.insert(QStringLiteral("certainty"), certaintyName(record.certainty));
    }
    if (!record.reason.isEmpty())
        json.insert(QStringLiteral("reason"), record.reason);
    return json;
}

/// All records with what the plan would make of them.
QVector<ReviewedRecord> planned(const QVector<ReviewedRecord> &records, const NamePlan &plan)
{
    QHash<QPair<QString, int>, const RecordEdit *> edits;
    for (const RecordEdit &edit : plan.edits)
        edits.insert({edit.section, edit.ordinal}, &edit);
    QVector<ReviewedRecord> result;
    for (ReviewedRecord record : records) {
        const RecordEdit *edit = edits.value({record.section, record.ordinal});
        if (edit && edit->remove)
            continue;
        record.proposal = edit ? edit->to : QString();
        record.certainty = edit ? Certainty::Sure : Certainty::None;
        result.append(record);
    }
    return result;
}

QString described(const RecordEdit &edit)
{
    return QStringLiteral("%1 %2 \"%3\"")
        .arg(edit.section, QString::number(edit.ordinal), edit.from);
}

} // namespace

QByteArray reviewJson(const NameReview &review, const QVector<QPair<QString, QByteArray>> &inputs)
{
    QJsonArray inputList;
    for (const auto &[path, sha256] : inputs)
        inputList.append(QJsonObject{{QStringLiteral("path"), path},
                                     {QStringLiteral("sha256"), QString::fromLatin1(sha256)}});
    QJsonArray records;
    for (const ReviewedRecord &record : review.records)
        records.append(toJson(record));
    const NameCounts &counts = review.counts;
    return QJsonDocument(QJsonObject{{QStringLiteral("format"), FORMAT},
                                     {QStringLiteral("inputs"), inputList},
                                     {QStringLiteral("counts"),
                                      QJsonObject{{QStringLiteral("same"), counts.same},
                                                  {QStringLiteral("moved"), counts.moved},
                                                  {QStringLiteral("missing"), counts.missing},
                                                  {QStringLiteral("unknown"), counts.unknown}}},
                                     {QStringLiteral("records"), records}})
        .toJson();
}

bool parsePlan(const QByteArray &json, NamePlan *plan, QString *error)
{
    QJsonParseError problem;
    const QJsonObject root = QJsonDocument::fromJson(json, &problem).object();
    if (problem.error != QJsonParseError::NoError) {
        *error = QStringLiteral("not valid JSON at byte %1: %2")
                     .arg(QString::number(problem.offset), problem.errorString());
        return false;
    }
    if (root.value(QStringLiteral("format")).toInt() != FORMAT ||
        !root.value(QStringLiteral("records")).isArray()) {
        *error = QStringLiteral("not a list of names in format %1").arg(FORMAT);
        return false;
    }
    const QJsonArray inputs = root.value(QStringLiteral("inputs")).toArray();
    for (const QJsonValue &input : inputs)
        plan->inputs.insert(input.toObject().value(QStringLiteral("sha256")).toString().toLatin1());
    const QJsonArray records = root.value(QStringLiteral("records")).toArray();
    for (const QJsonValue &value : records) {
        const QJsonObject record = value.toObject();
        RecordEdit edit{record.value(QStringLiteral("section")).toString(),
                        record.value(QStringLiteral("ordinal")).toInt(),
                        record.value(QStringLiteral("name")).toString(),
                        record.value(QStringLiteral("proposal")).toString(),
                        record.value(QStringLiteral("remove")).toBool()};
        if (edit.remove && !edit.to.isEmpty()) {
            *error = QStringLiteral("%1 has a proposal and is to be removed").arg(described(edit));
            return false;
        }
        if (edit.remove || !edit.to.isEmpty())
            plan->edits.append(edit);
    }
    return true;
}

NamePlan planOf(const NameReview &review, const VLT::Configuration &configuration,
                const DesignNames &design, Certainty least)
{
    NamePlan plan;
    for (const ReviewedRecord &record : review.records) {
        if (!record.proposal.isEmpty() && record.certainty >= least)
            plan.edits.append({record.section, record.ordinal, record.name, record.proposal});
    }
    // A link of a chain that is not certain enough holds up those that end at it.
    QVector<ReviewedRecord> records = planned(namedRecords(configuration, design), plan);
    resolveConflicts(&records, [](const ReviewedRecord &) { return true; });
    plan.edits.clear();
    for (const ReviewedRecord &record : qAsConst(records)) {
        if (!record.proposal.isEmpty())
            plan.edits.append({record.section, record.ordinal, record.name, record.proposal});
    }
    return plan;
}

bool checkPlan(const NamePlan &plan, const ConfigurationInput &input, const DesignNames &design,
               const QByteArray &netlistSha256, QString *error)
{
    if (!plan.inputs.isEmpty() && !plan.inputs.contains(input.sha256)) {
        *error = QStringLiteral("the configuration has changed since the plan was made");
        return false;
    }
    if (!plan.inputs.isEmpty() && !plan.inputs.contains(netlistSha256)) {
        *error = QStringLiteral("the netlist has changed since the plan was made");
        return false;
    }
    const QVector<ReviewedRecord> all = namedRecords(input.configuration, design);
    QHash<QPair<QString, int>, QString> names;
    for (const ReviewedRecord &record : all)
        names.insert({record.section, record.ordinal}, record.name);
    // Those of the whole design, too, which may be bound to an instance.
    for (int i = 0; i < input.configuration.files.records.size(); ++i)
        names.insert({VLT::NODE_FILE, i + 1}, input.configuration.files.records.at(i).entity);
    QSet<QPair<QString, int>> seen;
    for (const RecordEdit &edit : plan.edits) {
        const QPair<QString, int> place{edit.section, edit.ordinal};
        if (!names.contains(place) || names.value(place) != edit.from) {
            *error = QStringLiteral("%1 is not in the configuration").arg(described(edit));
            return false;
        }
        if (seen.contains(place)) {
            *error = QStringLiteral("%1 is listed twice").arg(described(edit));
            return false;
        }
        seen.insert(place);
        ObjectKind kind{};
        kindOfSection(edit.section, &kind);
        const bool isDesign = edit.section == VLT::NODE_FILE && edit.to == design.design();
        if (!edit.remove && edit.to != edit.from && !isDesign && !design.find(kind, edit.to)) {
            *error = QStringLiteral("the netlist has no %1 \"%2\"").arg(kindName(kind), edit.to);
            return false;
        }
    }
    QVector<ReviewedRecord> records = planned(all, plan);
    const QVector<ReviewedRecord> wanted = records;
    resolveConflicts(&records, [](const ReviewedRecord &) { return true; });
    for (int i = 0; i < records.size(); ++i) {
        if (records.at(i).proposal == wanted.at(i).proposal)
            continue;
        *error = QStringLiteral("%1 %2: %3")
                     .arg(records.at(i).section, QString::number(records.at(i).ordinal),
                          records.at(i).reason);
        return false;
    }
    return true;
}

bool applyPlan(const NamePlan &plan, const ConfigurationInput &input, const DesignNames &design,
               const QByteArray &netlistSha256, bool writeMemory, QVector<RecordEdit> *inverse,
               QString *error)
{
    QVector<RecordEdit> edits;
    QSet<NamedRecord> decided;
    for (const RecordEdit &edit : plan.edits) {
        if (edit.remove || edit.to != edit.from)
            edits.append(edit);
        if (!edit.remove)
            decided.insert({edit.section, edit.to});
    }
    ConfigurationInput after = input;
    if (!edits.isEmpty()) {
        QByteArray bytes;
        if (!editRecords(input.bytes, edits, &bytes, inverse, error))
            return false;
        QFile file(input.path);
        if (!file.open(QIODevice::ReadOnly) || file.readAll() != input.bytes) {
            *error = QStringLiteral("the configuration has changed since it was read");
            return false;
        }
        file.close();
        const VLT::WriteResult written = VLT::replaceFile(input.path, bytes);
        if (!written.isWritten()) {
            *error = written.cause;
            return false;
        }
        after = configurationInput(input.path, bytes);
    }
    if (!writeMemory && !QFile::exists(NameMemory::fileFor(input.path)))
        return true;
    return recordNames(after, design, netlistSha256, decided, error);
}

bool recordNames(const ConfigurationInput &input, const DesignNames &design,
                 const QByteArray &netlistSha256, const QSet<NamedRecord> &decided, QString *error)
{
    NameMemory memory;
    const QString path = NameMemory::fileFor(input.path);
    QString cause;
    if (!memory.read(input.path, &cause)) {
        *error = QStringLiteral("the memory of names is kept as it is: %1").arg(cause);
        return false;
    }
    memory.update(input.configuration, design, decided);
    memory.netlist = netlistSha256;
    const QByteArray json = memory.toJson();
    QFile file(path);
    if (file.open(QIODevice::ReadOnly) && file.readAll() == json)
        return true;
    file.close();
    const VLT::WriteResult written = VLT::replaceFile(path, json);
    if (!written.isWritten())
        *error = QStringLiteral("the memory of names cannot be written: %1").arg(written.cause);
    return written.isWritten();
}

} // namespace Check
