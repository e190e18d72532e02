#pragma once

#include "nlsdata/netlist.h"

/// A design with ports of every kind (in: clk; buffered: led[0..3]; other outputs: CPU_q, loose;
/// bidirectional: bus), the flip-flops CPU_reg and u_cpu/reg_9, and a block SRAM of every memory
/// kind, named ram0 to ram8. The caller owns it.
NlsData::Netlist *activityNetlist();
