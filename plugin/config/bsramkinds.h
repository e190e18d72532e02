#pragma once

#include <QtGlobal>

#include <optional>

namespace VLT {

/// The port functions of a memory kind, with their values in percent when a memory is added;
/// negative if the kind lacks the function.
struct BSRamPorts
{
    float aEnable, aRead, aWrite, bEnable, bRead, bWrite;
};

constexpr qint32 BSRAM_KINDS = 9;

/// Null if `kind` is not a memory kind.
const BSRamPorts *bsramPorts(qint32 kind);

/// The kind of the environment's primitive `code`; none if it is not a block SRAM.
std::optional<qint32> bsramKind(int code);

} // namespace VLT
