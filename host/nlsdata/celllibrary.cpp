#include "celllibrary.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>

#include <algorithm>
#include <charconv>
#include <optional>

namespace NlsData {

namespace {

/// The numeric value of a parameter: a text of binary digits, as synthesis writes numbers (any
/// length, if the value fits into 64 bits), or a plain number.
std::optional<quint64> numberOf(const CellParameter &parameter)
{
    std::string_view text = parameter.value;
    if (parameter.decimal) {
        quint64 number = 0;
        const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
        const bool whole = result.ec == std::errc() && result.ptr == text.data() + text.size();
        return whole ? std::optional(number) : std::nullopt;
    }
    if (text.empty() || text.find_first_not_of("01") != std::string_view::npos)
        return std::nullopt;
    const size_t firstOne = std::min(text.find('1'), text.size());
    text.remove_prefix(firstOne);
    if (text.size() > 64)
        return std::nullopt;
    quint64 number = 0;
    for (const char digit : text)
        number = number << 1 | quint64(digit == '1');
    return number;
}

std::string_view trimmed(std::string_view text)
{
    const size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

/// Nothing unless the value is a whole number from 0 to 2^53.
std::optional<quint64> wholeNumber(const QJsonValue &value)
{
    const double number = value.toDouble(-1);
    if (number < 0 || number > 9007199254740992.0 || number != double(quint64(number)))
        return std::nullopt;
    return quint64(number);
}

QString readCodes(const QJsonObject &json, CellCodes *codes)
{
    for (const auto &[key, code] : {std::pair(QLatin1String("category"), &codes->category),
                                    std::pair(QLatin1String("primitive"), &codes->primitive)}) {
        if (!json.contains(key))
            continue;
        const std::optional<quint64> number = wholeNumber(json.value(key));
        if (!number || *number > 1000000)
            return QStringLiteral("'%1' is not a code").arg(key);
        *code = int(*number);
    }
    return {};
}

bool isPattern(std::string_view name)
{
    return !name.empty() && name.back() == '*';
}

struct UserLibrary
{
    QStringList problems;
    CellLibrary library{CellLibrary::userFolder(), &problems};
};

const UserLibrary &userLibrary()
{
    static const UserLibrary user;
    return user;
}

} // namespace

bool CellType::fits(const Value &value, const CellParameter *parameter)
{
    if (value.kind == Value::Absent || !parameter)
        return value.kind == Value::Absent && !parameter;
    if (value.kind == Value::Number)
        return numberOf(*parameter) == value.number;
    return trimmed(parameter->value) == value.text;
}

bool CellType::holds(const Condition &condition, const std::vector<CellParameter> &parameters)
{
    const auto it =
        std::find_if(parameters.begin(), parameters.end(), [&](const CellParameter &parameter) {
            return parameter.name == condition.parameter;
        });
    const CellParameter *parameter = it == parameters.end() ? nullptr : &*it;
    return std::any_of(condition.values.begin(), condition.values.end(),
                       [&](const Value &value) { return fits(value, parameter); });
}

CellCodes CellType::codes(const std::vector<CellParameter> &parameters) const
{
    for (const Variant &variant : m_variants) {
        if (std::all_of(variant.conditions.begin(), variant.conditions.end(),
                        [&](const Condition &each) { return holds(each, parameters); }))
            return variant.codes;
    }
    return m_codes;
}

bool CellType::isOutput(std::string_view port) const
{
    return std::any_of(m_outputs.begin(), m_outputs.end(), [&](std::string_view output) {
        if (!isPattern(output))
            return port == output;
        output.remove_suffix(1);
        return port.substr(0, output.size()) == output;
    });
}

const CellLibrary &CellLibrary::standard()
{
    static const CellLibrary library = [] {
        QStringList problems;
        CellLibrary loaded(QStringLiteral(":/fpgaprj/cells"), &problems);
        for (const QString &problem : qAsConst(problems))
            qWarning().noquote() << problem;
        loaded.add(userLibrary().library);
        return loaded;
    }();
    return library;
}

QString CellLibrary::userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
           QLatin1String("/cells");
}

QStringList CellLibrary::userProblems()
{
    return userLibrary().problems;
}

void CellLibrary::add(const CellLibrary &other)
{
    for (auto it = other.m_types.begin(); it != other.m_types.end(); ++it)
        m_types.insert(it.key(), *it);
    for (auto it = other.m_prefixes.begin(); it != other.m_prefixes.end(); ++it)
        m_prefixes.insert(it.key(), *it);
}

CellLibrary::CellLibrary(const QString &folder, QStringList *problems)
{
    const QFileInfoList files =
        QDir(folder).entryInfoList({QStringLiteral("*.json")}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files)
        load(file.filePath(), problems);
}

void CellLibrary::load(const QString &path, QStringList *problems)
{
    const auto complain = [&](const QString &what) {
        problems->append(QCoreApplication::translate("NlsData::CellLibrary",
                                                     "Cannot read the cell library %1: %2.")
                             .arg(QDir::toNativeSeparators(path), what));
    };
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return complain(file.errorString());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError)
        return complain(QStringLiteral("not JSON (at byte %1: %2)")
                            .arg(QString::number(error.offset), error.errorString()));
    if (!document.object().value(QLatin1String("cells")).isObject())
        return complain(QStringLiteral("'cells' must be an object"));

    const QJsonObject cells = document.object().value(QLatin1String("cells")).toObject();
    for (auto it = cells.begin(); it != cells.end(); ++it) {
        CellType type;
        QByteArray name = it.key().toUtf8();
        const QString problem = parse(it.value().toObject(), &type);
        if (!problem.isEmpty()) {
            complain(
                QStringLiteral("cell '%1': %2; the other cells are used").arg(it.key(), problem));
            continue;
        }
        const bool pattern = name.endsWith('*');
        if (pattern)
            name.chop(1);
        QHash<QByteArray, CellType> &types = pattern ? m_prefixes : m_types;
        if (types.contains(name))
            complain(QStringLiteral("cell '%1' is defined twice").arg(it.key()));
        else
            types.insert(name, type);
    }
}

QString CellLibrary::parse(const QJsonObject &json, CellType *type)
{
    const QString problem = readCodes(json, &type->m_codes);
    if (!problem.isEmpty())
        return problem;
    const QJsonArray outputs = json.value(QLatin1String("outputs")).toArray();
    for (const QJsonValue &output : outputs)
        type->m_outputs.push_back(output.toString().toStdString());
    const QJsonArray variants = json.value(QLatin1String("variants")).toArray();
    for (const QJsonValue &variant : variants) {
        const QString wrong = parseVariant(variant.toObject(), type);
        if (!wrong.isEmpty())
            return wrong;
    }
    return {};
}

QString CellLibrary::parseVariant(const QJsonObject &json, CellType *type)
{
    CellType::Variant variant;
    variant.codes = type->m_codes;
    const QString problem = readCodes(json, &variant.codes);
    if (!problem.isEmpty())
        return problem;
    const QJsonObject when = json.value(QLatin1String("when")).toObject();
    if (when.isEmpty())
        return QStringLiteral("a variant has no 'when'");
    for (auto it = when.begin(); it != when.end(); ++it) {
        CellType::Condition condition;
        condition.parameter = it.key().toStdString();
        const QJsonArray values = it->isArray() ? it->toArray() : QJsonArray{it.value()};
        for (const QJsonValue &each : values) {
            CellType::Value value;
            if (each.isString()) {
                value.kind = CellType::Value::Text;
                value.text = trimmed(each.toString().toStdString());
            } else if (const std::optional<quint64> number = wholeNumber(each)) {
                value.kind = CellType::Value::Number;
                value.number = *number;
            } else if (!each.isNull()) {
                return QStringLiteral("a value of '%1' is not a text, number or null")
                    .arg(it.key());
            }
            condition.values.push_back(value);
        }
        variant.conditions.push_back(std::move(condition));
    }
    type->m_variants.push_back(std::move(variant));
    return {};
}

const CellType *CellLibrary::find(std::string_view type) const
{
    const QByteArray name(type.data(), int(type.size()));
    const auto exact = m_types.constFind(name);
    if (exact != m_types.constEnd())
        return &*exact;
    const CellType *best = nullptr;
    int length = -1;
    for (auto it = m_prefixes.begin(); it != m_prefixes.end(); ++it) {
        if (it.key().size() > length && name.startsWith(it.key())) {
            best = &*it;
            length = it.key().size();
        }
    }
    return best;
}

} // namespace NlsData
