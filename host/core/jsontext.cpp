#include "host/core/jsontext.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace Core {

namespace {

constexpr int LINE_LENGTH = 80;

QByteArray compact(const QJsonValue &value)
{
    const QByteArray list = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return list.mid(1, list.size() - 2);
}

/// The value as a user would write it: a short list on one line.
QByteArray rendered(const QJsonValue &value, const QByteArray &lineBreak)
{
    const bool isObject = value.isObject();
    if (!isObject && !value.isArray())
        return compact(value);
    const QByteArray inner = lineBreak.isEmpty() ? QByteArray() : lineBreak + "    ";
    QList<QByteArray> parts;
    int length = 0;
    if (isObject) {
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it)
            parts.append(compact(it.key()) + ": " + rendered(it.value(), inner));
        length = LINE_LENGTH;
    } else {
        const QJsonArray list = value.toArray();
        for (const QJsonValue &item : list) {
            parts.append(rendered(item, inner));
            length += parts.last().size() + 2;
        }
    }
    const QByteArray begin(1, isObject ? '{' : '[');
    const QByteArray end(1, isObject ? '}' : ']');
    if (parts.isEmpty() || lineBreak.isEmpty() || length < LINE_LENGTH)
        return begin + parts.join(", ") + end;
    return begin + inner + parts.join("," + inner) + lineBreak + end;
}

} // namespace

JsonText JsonText::object(const QJsonObject &object)
{
    return JsonText(rendered(object, "\n") + '\n');
}

int JsonText::skipSpace(int at) const
{
    while (at < m_text.size() && strchr(" \t\r\n", m_text.at(at)))
        ++at;
    return at;
}

int JsonText::skipValue(int at) const
{
    int depth = 0;
    bool quoted = false;
    for (; at < m_text.size(); ++at) {
        const char c = m_text.at(at);
        if (quoted) {
            if (c == '\\')
                ++at;
            else if (c == '"')
                quoted = false;
            if (!quoted && depth == 0)
                return at + 1;
        } else if (c == '"') {
            quoted = true;
        } else if (c == '{' || c == '[') {
            ++depth;
        } else if (c == '}' || c == ']') {
            if (depth == 0)
                return at;
            if (--depth == 0)
                return at + 1;
        } else if (depth == 0 && strchr(", \t\r\n:", c)) {
            return at;
        }
    }
    return at;
}

QVector<JsonText::Item> JsonText::items(int container) const
{
    const bool isObject = m_text.at(container) == '{';
    QVector<Item> result;
    int at = skipSpace(container + 1);
    while (at < m_text.size() && m_text.at(at) != '}' && m_text.at(at) != ']') {
        Item item{{at, at}, {at, at}};
        if (isObject) {
            item.name.end = skipValue(at);
            at = skipSpace(skipSpace(item.name.end) + 1); // after the colon
            item.value.begin = at;
        }
        item.value.end = skipValue(item.value.begin);
        result.append(item);
        at = skipSpace(item.value.end);
        if (at < m_text.size() && m_text.at(at) == ',')
            at = skipSpace(at + 1);
    }
    return result;
}

int JsonText::find(const QVector<Item> &items, const QString &name) const
{
    for (int i = items.size() - 1; i >= 0; --i) {
        const QByteArray quoted = '[' + slice(items.at(i).name) + ']';
        if (QJsonDocument::fromJson(quoted).array().at(0).toString() == name)
            return i;
    }
    return -1;
}

/// The line break and indentation before a position; empty if something else is on its line.
QByteArray JsonText::breakBefore(int at) const
{
    int begin = at;
    while (begin > 0 && strchr(" \t", m_text.at(begin - 1)))
        --begin;
    if (begin == 0 || m_text.at(begin - 1) != '\n')
        return QByteArray();
    begin -= begin > 1 && m_text.at(begin - 2) == '\r' ? 2 : 1;
    return m_text.mid(begin, at - begin);
}

void JsonText::addItem(int container, const QByteArray &item, bool isMember)
{
    const QVector<Item> present = items(container);
    if (present.isEmpty()) {
        const int end = skipSpace(container + 1);
        m_text.replace(container + 1, end - container - 1, item);
        return;
    }
    // Not as the last line: the line before that would need a comma.
    const Item &next = isMember ? present.last() : present.first();
    const QByteArray lineBreak = breakBefore(next.name.begin);
    if (lineBreak.isEmpty())
        m_text.insert(present.last().value.end, ", " + item);
    else
        m_text.insert(next.name.begin, item + ',' + lineBreak);
}

void JsonText::removeItem(int container, int index)
{
    const QVector<Item> present = items(container);
    const bool isLast = index == present.size() - 1;
    Range range{present.at(index).name.begin, present.at(index).value.end};
    if (!isLast)
        range.end = present.at(index + 1).name.begin;
    else if (index > 0)
        range.begin = present.at(index - 1).value.end;
    else
        range = {container + 1, skipSpace(range.end)};
    m_text.remove(range.begin, range.end - range.begin);
}

int JsonText::open(const QStringList &path, const QJsonValue &missing)
{
    int container = skipSpace(0);
    for (int i = 0; i < path.size(); ++i) {
        QVector<Item> present = items(container);
        int index = find(present, path.at(i));
        if (index < 0) {
            const QJsonValue value = i + 1 < path.size() ? QJsonValue(QJsonObject()) : missing;
            addItem(container, compact(path.at(i)) + ": " + compact(value), true);
            present = items(container);
            index = find(present, path.at(i));
        }
        container = present.at(index).value.begin;
    }
    return container;
}

void JsonText::set(const QStringList &path, const QJsonValue &value)
{
    const int container = open(path.mid(0, path.size() - 1), QJsonObject());
    const QVector<Item> present = items(container);
    const int index = find(present, path.last());
    if (value.isUndefined()) {
        if (index >= 0)
            removeItem(container, index);
        return;
    }
    const QByteArray lineBreak = present.isEmpty()
                                     ? QByteArray()
                                     : breakBefore(present.at(index < 0 ? 0 : index).name.begin);
    if (index < 0) {
        addItem(container, compact(path.last()) + ": " + rendered(value, lineBreak), true);
        return;
    }
    const Range old = present.at(index).value;
    if (QJsonDocument::fromJson('[' + slice(old) + ']').array().at(0) != value)
        m_text.replace(old.begin, old.end - old.begin, rendered(value, lineBreak));
}

void JsonText::add(const QStringList &path, const QJsonValue &value)
{
    addItem(open(path, QJsonArray()), compact(value), false);
}

void JsonText::insert(const QStringList &path, int index, const QJsonValue &value)
{
    const int container = open(path, QJsonArray());
    const QVector<Item> present = items(container);
    const QByteArray item = compact(value);
    if (present.isEmpty())
        return addItem(container, item, false);
    const bool isLast = index >= present.size();
    const Range at = isLast ? present.last().value : present.at(index).value;
    const QByteArray lineBreak = breakBefore(at.begin);
    const QByteArray gap = lineBreak.isEmpty() ? QByteArray(" ") : lineBreak;
    if (isLast)
        m_text.insert(at.end, ',' + gap + item);
    else
        m_text.insert(at.begin, item + ',' + gap);
}

void JsonText::removeAt(const QStringList &path, int index)
{
    removeItem(open(path, QJsonArray()), index);
}

} // namespace Core
