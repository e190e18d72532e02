#pragma once

#include <QString>
#include <QVariant>

#include <cmath>
#include <functional>
#include <optional>
#include <utility>

namespace VLT {

/// Orders records by name without regard to case: negative when `a` comes before `b`.
template<class Record>
int compareNames(const Record *a, const Record *b)
{
    return QString::compare(a->name, b->name, Qt::CaseInsensitive);
}

/// One column of a RecordModel: how its cells are read and edited, which may be edited, which are
/// gray, and how it sorts. Start from one of the kinds and chain the rest:
///
///     Column::number("Out Enable", &VLT_Port::outEnable, 50)
///         .editable(hasEnable).gray(hasNoEnable).sortedBy(lessThanByOE, greaterThanByOE)
///
/// A column is read-only unless made editable, and does not sort without comparisons.
template<class Record>
struct Column
{
    using Rule = bool (*)(const Record &);
    using Compare = bool (*)(Record *const &, Record *const &);
    using Data = std::function<QVariant(const Record &, int role)>;
    /// Stores an edited value; false if it is refused or unchanged.
    using Store = std::function<bool(Record &, const QVariant &)>;

    /// Null: the column can be read and sorted but is not counted, so no view shows it. Such
    /// columns come after the titled ones.
    const char *title = nullptr;
    /// Every role but the background.
    Data data;
    /// Empty: an edit succeeds without storing anything.
    Store store;
    Rule isEditable = nullptr;
    Rule isGray = nullptr;
    Compare lessThan = nullptr;
    Compare greaterThan = nullptr;
    /// The text that the comparisons compare case-insensitively; null for other comparisons.
    QString Record::*sortText = nullptr;
    bool editsName = false; ///< whether edits change the name that the record is known by

    /// Cells filled by a function of record and role.
    static Column served(const char *title, Data data)
    {
        Column column;
        column.title = title;
        column.data = std::move(data);
        return column;
    }

    /// Text that is shown and not edited.
    static Column text(const char *title, QString Record::*member)
    {
        return served(title, [member](const Record &record, int role) {
            return role == Qt::DisplayRole || role == Qt::ToolTipRole ? record.*member : QVariant();
        });
    }

    /// The record's name, editable; a text that `accepts` rejects is refused.
    static Column editableName(const char *title, QString Record::*member,
                               bool (*accepts)(const QString &))
    {
        Column column = served(title, [member](const Record &record, int role) {
            const bool shown =
                role == Qt::DisplayRole || role == Qt::ToolTipRole || role == Qt::EditRole;
            return shown ? record.*member : QVariant();
        });
        column.store = [member, accepts](Record &record, const QVariant &value) {
            const QString text = value.toString();
            if (!accepts(text) || text == record.*member)
                return false;
            record.*member = text;
            return true;
        };
        column.editsName = true;
        return std::move(column).editable();
    }

    /// A number; a negative one means "not set" and shows nothing. The editor of an unset cell
    /// starts with `editDefault`. A `format` such as "%1pF" makes the shown text.
    static Column number(const char *title, float Record::*member,
                         std::optional<float> editDefault = {}, const char *format = nullptr)
    {
        Column column = served(title, [=](const Record &record, int role) -> QVariant {
            const float number = record.*member;
            const bool isSet = number >= 0;
            if (role == Qt::EditRole)
                return isSet ? number : editDefault ? *editDefault : QVariant();
            if (!isSet || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
                return {};
            if (format)
                return QString::fromLatin1(format).arg(double(number));
            return number;
        });
        column.store = [member](Record &record, const QVariant &value) {
            const float given = value.toFloat();
            const float number = std::isfinite(given) ? given : 0.0F;
            if (number == record.*member)
                return false;
            record.*member = number;
            return true;
        };
        return column;
    }

    Column editable(Rule rule = [](const Record &) { return true; }) &&
    {
        isEditable = rule;
        return std::move(*this);
    }

    Column gray(Rule rule) &&
    {
        isGray = rule;
        return std::move(*this);
    }

    /// Refuses all edits, for cells that must not appear to change.
    Column refusingEdits() &&
    {
        store = [](Record &, const QVariant &) { return false; };
        return std::move(*this);
    }

    Column storedBy(Store function) &&
    {
        store = std::move(function);
        return std::move(*this);
    }

    Column sortedBy(Compare less, Compare greater) &&
    {
        lessThan = less;
        greaterThan = greater;
        return std::move(*this);
    }

    Column sortedBy(Compare less, Compare greater, QString Record::*text) &&
    {
        sortText = text;
        return std::move(*this).sortedBy(less, greater);
    }
};

} // namespace VLT
