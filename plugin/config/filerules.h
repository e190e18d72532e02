#pragma once

#include "config/limits.h"

#include <QStringList>

#include <vector>

namespace VLT {

/// What a text of the file must be.
struct TextRule
{
    enum Kind {
        Free,
        Field,   ///< a number in a field, which limits it
        Theta,   ///< the same, or "NA"
        Cell,    ///< a number in a table, which is kept whatever it is; negative is not set
        Code,    ///< a whole number in a table
        Typed,   ///< a number that is kept as text, or nothing
        Choice,  ///< one of `choices`, in whatever case; else the first
        Exactly, ///< one of `choices`, case-sensitive; else the last
        Button   ///< the same; else what was chosen stays
    };
    Kind kind = Free;
    Range range = {0, 0};
    QStringList choices = {};
};

struct AttributeRule
{
    QString name;
    TextRule text;
    bool mayMiss = false;
    QString missing = {}; ///< what it is read as when it is missing
};

struct ElementRule
{
    QString name;
    TextRule text = {};
    std::vector<AttributeRule> attributes = {};
    std::vector<ElementRule> children = {};
    bool isRecord = false; ///< may occur any number of times
};

/// The rules for the contents of a file's root element, whose name is not checked. `grade` is the
/// text of its temperature grade, which determines the junction temperature's range.
ElementRule fileRules(const QString &grade);

} // namespace VLT
