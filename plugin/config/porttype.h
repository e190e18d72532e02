#pragma once

#include "config/records.h"

namespace VLT {

/// Whether the environment's primitive `code` is a plain output buffer.
constexpr bool isOutputBuffer(int code)
{
    return code == 116 || code == 122 || code == 127;
}

/// The type of a port by the environment's direction code, and by the primitive that drives its
/// net (0 without one).
constexpr PortType portType(int direction, int driver)
{
    if (direction == 1)
        return isOutputBuffer(driver) ? BufferedOutput : OtherOutput;
    return direction == 2 ? InOut : OtherDirection;
}

} // namespace VLT
