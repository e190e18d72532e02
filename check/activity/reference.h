#pragma once

#include <QVarLengthArray>

#include <string_view>

namespace Check {

/// A range of bit numbers, the most significant one first: [7:0], [0:3], [5:5].
struct BitRange
{
    qint32 left = 0;
    qint32 right = 0;

    qint64 size() const { return (left > right ? qint64(left) - right : qint64(right) - left) + 1; }
    bool operator==(const BitRange &other) const
    {
        return left == other.left && right == other.right;
    }
};

/// What the reference of a variable says, however it is spelled.
struct Reference
{
    std::string_view base; ///< name without the bits; of "mem[0] [7:0]" it is "mem[0]"
    QVarLengthArray<BitRange, 4>
        ranges; ///< one, or the dimensions of a packed array; none for a scalar
};

/// Takes a reference of `width` bits apart. `name` is without its leading backslash, `ranges` is
/// what follows it behind a blank, without blanks, and may be empty.
Reference parseReference(std::string_view name, std::string_view ranges, qint64 width);

/// Takes "[3]" or "[7:0]" from the end of `text`. False when there is none.
bool takeRange(std::string_view *text, BitRange *range, bool *isSingle);

} // namespace Check
