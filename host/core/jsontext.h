#pragma once

#include <QByteArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>
#include <QVector>

namespace Core {

/// A JSON object as text, changed in place: what a change does not concern keeps its spelling, its
/// order and its line breaks, so that files under version control show what was changed.
///
/// A path names a member by the names of the objects that lead to it, the outermost first. Of a
/// name that an object has several times, the last one counts, as for Qt's parser.
class JsonText
{
public:
    /// `text` must be a valid JSON object.
    explicit JsonText(QByteArray text)
        : m_text(std::move(text))
    {
    }

    /// A new text, with one member per line.
    static JsonText object(const QJsonObject &object);

    const QByteArray &text() const { return m_text; }

    /// Gives the member that value; missing objects and the member are added. An undefined value
    /// removes the member. Nothing changes when the member has that value.
    void set(const QStringList &path, const QJsonValue &value);

    /// Adds a value to an array, which is made when it is missing: at the end of an array that has
    /// its values on one line, else on a line of its own before the others. One line changes.
    void add(const QStringList &path, const QJsonValue &value);

    /// Puts a value before the one at `index` of an array, or at its end: on a line of its own
    /// where the others have that. The array is made when it is missing.
    void insert(const QStringList &path, int index, const QJsonValue &value);

    /// Removes a value of an array, and the line that it had to itself.
    void removeAt(const QStringList &path, int index);

private:
    struct Range
    {
        int begin;
        int end;
    };
    struct Item
    {
        Range name; // with its quotes; empty for a value of an array
        Range value;
    };

    int skipSpace(int at) const;
    int skipValue(int at) const;
    QVector<Item> items(int container) const;
    int find(const QVector<Item> &items, const QString &name) const;
    /// Where the object or array at the end of the path begins, after it was made when missing.
    int open(const QStringList &path, const QJsonValue &missing);
    QByteArray slice(Range range) const { return m_text.mid(range.begin, range.end - range.begin); }
    QByteArray breakBefore(int at) const;
    void addItem(int container, const QByteArray &item, bool isMember);
    void removeItem(int container, int index);

    QByteArray m_text;
};

} // namespace Core
