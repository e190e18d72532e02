#include "config/bsramkinds.h"

#include <algorithm>
#include <iterator>

namespace VLT {

namespace {

constexpr BSRamPorts readOnly = {100, 100, -1, -1, -1, -1};
constexpr BSRamPorts single = {100, 100, 50, -1, -1, -1};
constexpr BSRamPorts writeAReadB = {100, -1, 100, 100, 100, -1};
constexpr BSRamPorts dual = {100, 100, 50, 100, 100, 50};

constexpr const BSRamPorts *kinds[BSRAM_KINDS] = {&readOnly,    &single,      &writeAReadB,
                                                  &dual,        &writeAReadB, &readOnly,
                                                  &writeAReadB, &dual,        &readOnly};

struct Primitive
{
    int code;
    qint32 kind;
};

constexpr Primitive primitives[] = {{90, 0},  {91, 0},  {88, 1},  {89, 1},  {86, 2},
                                    {87, 2},  {242, 2}, {84, 3},  {85, 3},  {192, 4},
                                    {193, 4}, {194, 5}, {195, 5}, {199, 6}, {200, 6},
                                    {201, 7}, {202, 7}, {204, 8}, {205, 8}};

} // namespace

const BSRamPorts *bsramPorts(qint32 kind)
{
    return kind >= 0 && kind < BSRAM_KINDS ? kinds[kind] : nullptr;
}

std::optional<qint32> bsramKind(int code)
{
    const auto primitive =
        std::find_if(std::begin(primitives), std::end(primitives),
                     [code](const Primitive &candidate) { return candidate.code == code; });
    return primitive == std::end(primitives) ? std::nullopt : std::make_optional(primitive->kind);
}

} // namespace VLT
