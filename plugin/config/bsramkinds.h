#pragma once

#include <QtGlobal>

#include <optional>

namespace VLT {

/// The port functions of a memory kind, with their values in percent when a memory is added;
/// negative where the kind has no such function.
struct BSRamPorts
{
    float aEnable, aRead, aWrite, bEnable, bRead, bWrite;
};

constexpr qint32 BSRAM_KINDS = 9;

/// Null for a number that is no kind.
const BSRamPorts *bsramPorts(qint32 kind);

/// The kind of the environment's primitive `code`; none for a code that is no block SRAM.
std::optional<qint32> bsramKind(int code);

} // namespace VLT
