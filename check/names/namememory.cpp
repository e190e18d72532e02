#include "check/names/namememory.h"

#include "check/names/namereview.h"

#include "nlsdata/netlist.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Check {

namespace {

constexpr int FORMAT = 1;

const QString KEY_FORMAT = QStringLiteral("format");
const QString KEY_NETLIST = QStringLiteral("netlist");
const QString KEY_RECORDS = QStringLiteral("records");
const QString KEY_SECTION = QStringLiteral("section");
const QString KEY_NAME = QStringLiteral("name");
const QString KEY_TYPE = QStringLiteral("type");
const QString KEY_NAMES = QStringLiteral("names");
const QString KEY_SOURCE = QStringLiteral("source");

/// Whether the text is such a sum in hexadecimal digits.
bool isSha256(const QByteArray &text)
{
    return text.size() == 64 && QByteArray::fromHex(text).toHex() == text;
}

} // namespace

QString NameMemory::fileFor(const QString &path)
{
    return path + QStringLiteral(".names");
}

bool NameMemory::parse(const QByteArray &json, QString *error)
{
    m_records.clear();
    netlist.clear();
    QJsonParseError problem;
    const QJsonDocument document = QJsonDocument::fromJson(json, &problem);
    if (problem.error != QJsonParseError::NoError) {
        *error = QStringLiteral("not valid JSON at byte %1: %2")
                     .arg(QString::number(problem.offset), problem.errorString());
        return false;
    }
    const QJsonObject root = document.object();
    if (!root.value(KEY_RECORDS).isArray()) {
        *error = QStringLiteral("not a memory of names: it has no list of records");
        return false;
    }
    if (root.value(KEY_FORMAT).toInt() != FORMAT) {
        *error = QStringLiteral("its format is not %1, the only one that this program knows")
                     .arg(FORMAT);
        return false;
    }
    const QByteArray hash = root.value(KEY_NETLIST).toString().toLatin1();
    if (isSha256(hash)) // it is written as it stands
        netlist = hash;
    const QJsonArray records = root.value(KEY_RECORDS).toArray();
    for (const QJsonValue &value : records) {
        const QJsonObject record = value.toObject();
        Meaning meaning{record.value(KEY_TYPE).toString(), {}, record.value(KEY_SOURCE).toString()};
        const QJsonArray names = record.value(KEY_NAMES).toArray();
        for (const QJsonValue &name : names)
            meaning.names.append(name.toString());
        m_records.insert({record.value(KEY_SECTION).toString(), record.value(KEY_NAME).toString()},
                         meaning);
    }
    return true;
}

QByteArray NameMemory::toJson() const
{
    QByteArray json = "{\"format\":" + QByteArray::number(FORMAT) + ",\"netlist\":\"" + netlist +
                      "\",\"records\":[";
    const char *separator = "\n";
    for (auto it = m_records.constBegin(); it != m_records.constEnd(); ++it) {
        QJsonObject record{{KEY_SECTION, it.key().section},
                           {KEY_NAME, it.key().name},
                           {KEY_NAMES, QJsonArray::fromStringList(it->names)}};
        if (!it->type.isEmpty())
            record.insert(KEY_TYPE, it->type);
        if (!it->source.isEmpty())
            record.insert(KEY_SOURCE, it->source);
        json += separator + QJsonDocument(record).toJson(QJsonDocument::Compact);
        separator = ",\n";
    }
    return json + "\n]}\n";
}

bool NameMemory::read(const QString &path, QString *error)
{
    m_records.clear();
    QFile file(fileFor(path));
    if (!file.exists())
        return true;
    if (!QFileInfo(file).isFile()) {
        *error = QStringLiteral("not a regular file");
        return false;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        *error = file.errorString();
        return false;
    }
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        *error = file.errorString();
        return false;
    }
    return parse(bytes, error);
}

const Meaning *NameMemory::find(const NamedRecord &record) const
{
    const auto it = m_records.constFind(record);
    return it == m_records.constEnd() ? nullptr : &*it;
}

void NameMemory::update(const VLT::Configuration &configuration, const DesignNames &design,
                        const QSet<NamedRecord> &decided)
{
    QMap<NamedRecord, Meaning> updated;
    const QVector<ReviewedRecord> records = namedRecords(configuration, design);
    for (const ReviewedRecord &record : records) {
        const NamedRecord key{record.section, record.name};
        const DesignObject object = design.find(kindOf(record), record.name);
        const Meaning *meant = find(key);
        const NameState state = stateOf(kindOf(record), object, meant, design);
        const bool isNew = !meant || meant->names.isEmpty() || decided.contains(key);
        if (object && (isNew || state == NameState::Same))
            updated.insert(key, design.meaning(kindOf(record), object));
        else if (meant)
            updated.insert(key, *meant);
    }
    m_records = updated;
}

} // namespace Check
