#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>
#include <QVector>

namespace Core {

/// A JSON object as text, changed in place: everything else keeps its spelling, order and line
/// breaks, so that version control shows only the actual change.
///
/// A path names a member by the names of the objects around it, the outermost first. If an object
/// has a name several times, the last one counts, as for Qt's parser.
class JsonText
{
public:
    /// `text` must be a valid JSON object.
    explicit JsonText(QByteArray text)
        : m_text(std::move(text))
    {
    }

    /// Creates a text with one member per line.
    static JsonText object(const QJsonObject &object);

    const QByteArray &text() const { return m_text; }

    /// Sets the member's value; missing objects and the member are added. An undefined value
    /// removes the member. An equal value changes nothing.
    void set(const QStringList &path, const QJsonValue &value);

    /// Adds a value to an array, which is created if missing: at the end of an array on one line,
    /// otherwise on a line of its own before the other values. Only one line changes.
    void add(const QStringList &path, const QJsonValue &value);

    /// Puts a value before the one at `index` of an array, or at its end: on a line of its own
    /// where the others have that. The array is made when it is missing.
    void insert(const QStringList &path, int index, const QJsonValue &value);

    /// Removes a value of an array, with its line if it has one to itself.
    void removeAt(const QStringList &path, int index);

private:
    struct Range
    {
        int begin;
        int end;
    };
    struct Item
    {
        Range name; // with its quotes; empty for an array value
        Range value;
    };

    int skipSpace(int at) const;
    int skipValue(int at) const;
    QVector<Item> items(int container) const;
    int find(const QVector<Item> &items, const QString &name) const;
    /// The start of the object or array at the end of the path, which is created if missing.
    int open(const QStringList &path, const QJsonValue &missing);
    QByteArray slice(Range range) const { return m_text.mid(range.begin, range.end - range.begin); }
    QByteArray breakBefore(int at) const;
    void addItem(int container, const QByteArray &item, bool isMember);
    void removeItem(int container, int index);

    QByteArray m_text;
};

} // namespace Core
