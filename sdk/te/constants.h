#pragma once

namespace TE {

/// Key of the flow's netlist result.
constexpr char RES_NETLIST[] = "RES.netlist";

} // namespace TE
