#pragma once

#include <QString>
#include <QStringList>

namespace Workbench {

struct ProjectSettings;

/// A ready-made synthesis command: reads the Verilog sources, maps them to a family, names cells
/// and nets after the user's (`autoname`), and writes the netlist.
struct SynthesisTemplate
{
    const char *title;
    const char *command; ///< the synthesis tool's, for example "synth_ice40"
};

/// All of them, in the order in which they are offered.
constexpr SynthesisTemplate SYNTHESIS_TEMPLATES[] = {
    {"iCE40", "synth_ice40"},     {"iCE40 UltraPlus", "synth_ice40 -dsp"}, {"ECP5", "synth_ecp5"},
    {"7-series", "synth_xilinx"}, {"Generic (no family)", "synth"},
};

/// Program and arguments; the paths in them are relative to the project's folder.
QStringList commandFrom(const SynthesisTemplate &base, const ProjectSettings &settings);

/// Index of the template that produces exactly the command of `settings`; -1 if none does.
int templateOf(const ProjectSettings &settings);

/// Whether the file is Verilog by its name.
bool isVerilog(const QString &path);

} // namespace Workbench
