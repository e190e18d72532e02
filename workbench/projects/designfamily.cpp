#include "workbench/projects/designfamily.h"

#include "host/dev/devicecatalogue.h"

#include <QVector>

#include <iterator>

namespace Workbench {

namespace {

enum Index { Ice40, UltraPlus, Ecp5, Spartan7, Artix7, Kintex7, Fern, Count };

// A netlist does not tell the three 7-series families apart.
constexpr DesignFamily FAMILIES[] = {
    {"iCE40", "iCE40 LP/HX", "iCE40HX8K-CT256", "synth_ice40"},
    {"iCE40 UltraPlus", "iCE40 UltraPlus", "iCE40UP5K-SG48", "synth_ice40 -dsp"},
    {"ECP5", "ECP5", "LFE5U-25F-CABGA256", "synth_ecp5"},
    {"7-series", "Spartan-7", "XC7S50-CSGA324", "synth_xilinx"},
    {"7-series", "Artix-7", "XC7A35T-CSG324", "synth_xilinx"},
    {"7-series", "Kintex-7", "XC7K325T-FFG900", "synth_xilinx"},
    {"QF2", "QF", "QF2-10-BG256", ""},
};
static_assert(std::size(FAMILIES) == Count);

struct CellSign
{
    const char *type; // with "*" at its end: every type that begins so
    Index family;
};

constexpr CellSign SIGNS[] = {
    {"SB_MAC16", UltraPlus},
    {"SB_SPRAM256KA", UltraPlus},
    {"SB_HFOSC", UltraPlus},
    {"SB_LFOSC", UltraPlus},
    {"SB_RGBA_DRV", UltraPlus},
    {"SB_LEDDA_IP", UltraPlus},
    {"SB_*", Ice40},
    {"ICESTORM_*", Ice40},
    {"TRELLIS_*", Ecp5},
    {"CCU2C", Ecp5},
    {"PFUMX", Ecp5},
    {"L6MUX21", Ecp5},
    {"DP16KD", Ecp5},
    {"PDPW16KD", Ecp5},
    {"MULT18X18D", Ecp5},
    {"EHXPLLL", Ecp5},
    {"LUT6", Artix7},
    {"LUT5", Artix7},
    {"FDRE*", Artix7},
    {"FDSE*", Artix7},
    {"FDCE*", Artix7},
    {"FDPE*", Artix7},
    {"CARRY4", Artix7},
    {"RAMB36E1", Artix7},
    {"RAMB18E1", Artix7},
    {"DSP48E1", Artix7},
    {"BUFG", Artix7},
    {"IBUF", Artix7},
    {"OBUF", Artix7},
    {"FERN_*", Fern},
};

bool fits(const QString &type, QLatin1String sign)
{
    if (sign.endsWith(QLatin1Char('*')))
        return type.startsWith(sign.chopped(1));
    return type == sign;
}

} // namespace

const DesignFamily *familyOfCells(const QHash<QString, int> &cellTypes)
{
    QVector<int> numbers(Count);
    for (auto it = cellTypes.begin(); it != cellTypes.end(); ++it) {
        for (const CellSign &sign : SIGNS) {
            if (!fits(it.key(), QLatin1String(sign.type)))
                continue;
            numbers[sign.family] += it.value();
            break;
        }
    }
    // One cell that only the smaller family has outweighs all that both have.
    if (numbers.at(UltraPlus) > 0)
        numbers[UltraPlus] += numbers.at(Ice40);
    const auto most = std::max_element(numbers.begin(), numbers.end());
    return *most > 0 ? &FAMILIES[most - numbers.begin()] : nullptr;
}

const DesignFamily *familyOfDevice(const QString &id)
{
    const DEV::Device *device = DEV::DeviceCatalogue::get()->find(id);
    for (const DesignFamily &family : FAMILIES) {
        if (device && device->series.startsWith(QLatin1String(family.series)))
            return &family;
    }
    return nullptr;
}

} // namespace Workbench
