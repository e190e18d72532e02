#include "check/activity/reference.h"

#include <charconv>

namespace Check {

namespace {

bool toNumber(std::string_view text, qint32 *number)
{
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, *number);
    return error == std::errc() && stop == end && !text.empty();
}

} // namespace

bool takeRange(std::string_view *text, BitRange *range, bool *isSingle)
{
    const size_t open = text->rfind('[');
    if (text->empty() || text->back() != ']' || open == std::string_view::npos)
        return false;
    const std::string_view inner = text->substr(open + 1, text->size() - open - 2);
    const size_t colon = inner.find(':');
    *isSingle = colon == std::string_view::npos;
    if (!toNumber(inner.substr(0, colon), &range->left))
        return false;
    range->right = range->left;
    if (!*isSingle && !toNumber(inner.substr(colon + 1), &range->right))
        return false;
    *text = text->substr(0, open);
    return true;
}

Reference parseReference(std::string_view name, std::string_view ranges, qint64 width)
{
    Reference reference{name, {}};
    BitRange range;
    bool isSingle = false;
    // Ranges behind a blank are the variable's own, whatever the name ends in.
    for (std::string_view rest = ranges; takeRange(&rest, &range, &isSingle);)
        reference.ranges.prepend(range);
    if (!ranges.empty())
        return reference;
    // In one word: the last range is the variable's own, and those before it as long as its bits
    // are too few; a single number in front of a range is part of the name.
    qint64 bits = 1;
    for (std::string_view rest = name; bits < width || reference.ranges.empty();) {
        if (!takeRange(&rest, &range, &isSingle) || rest.empty() || (isSingle && width != 1))
            break;
        reference.ranges.prepend(range);
        reference.base = rest;
        bits *= range.size();
    }
    return reference;
}

} // namespace Check
