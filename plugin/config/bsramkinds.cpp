#include "config/bsramkinds.h"

#include <algorithm>
#include <iterator>

namespace VLT {

namespace {

constexpr BSRamPorts READ_ONLY = {100, 100, -1, -1, -1, -1};
constexpr BSRamPorts SINGLE = {100, 100, 50, -1, -1, -1};
constexpr BSRamPorts WRITE_A_READ_B = {100, -1, 100, 100, 100, -1};
constexpr BSRamPorts DUAL = {100, 100, 50, 100, 100, 50};

constexpr const BSRamPorts *KINDS[BSRAM_KINDS] = {&READ_ONLY,      &SINGLE,         &WRITE_A_READ_B,
                                                  &DUAL,           &WRITE_A_READ_B, &READ_ONLY,
                                                  &WRITE_A_READ_B, &DUAL,           &READ_ONLY};

struct Primitive
{
    int code;
    qint32 kind;
};

constexpr Primitive PRIMITIVES[] = {{90, 0},  {91, 0},  {88, 1},  {89, 1},  {86, 2},
                                    {87, 2},  {242, 2}, {84, 3},  {85, 3},  {192, 4},
                                    {193, 4}, {194, 5}, {195, 5}, {199, 6}, {200, 6},
                                    {201, 7}, {202, 7}, {204, 8}, {205, 8}};

} // namespace

const BSRamPorts *bsramPorts(qint32 kind)
{
    return kind >= 0 && kind < BSRAM_KINDS ? KINDS[kind] : nullptr;
}

std::optional<qint32> bsramKind(int code)
{
    const auto primitive =
        std::find_if(std::begin(PRIMITIVES), std::end(PRIMITIVES),
                     [code](const Primitive &candidate) { return candidate.code == code; });
    return primitive == std::end(PRIMITIVES) ? std::nullopt : std::make_optional(primitive->kind);
}

} // namespace VLT
