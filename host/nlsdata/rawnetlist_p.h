#pragma once

#include "celllibrary.h"

#include <QtGlobal>

#include <limits>
#include <string_view>
#include <utility>
#include <vector>

namespace NlsData {

// The netlist as in the file, module by module and before elaboration. Views point into the file's
// text or the parser's buffers.

/// Number of a net bit within its module, or no net.
using RawBit = quint32;
constexpr RawBit CONSTANT_BIT = 0xffffffff;
constexpr RawBit MAXIMUM_BIT = CONSTANT_BIT - 1;

/// The values are the contract's direction codes.
enum class Direction : quint8 { Input, Output, Bidirectional, Unknown };

/// A named group of bits: `count` from `first` on in its module's `bits`, lowest first. As a
/// vector, its bits are numbered upwards from `offset`, or downwards to it with `upto`.
struct RawVector
{
    std::string_view name;
    quint32 first = 0;
    quint32 count = 0;
    qint32 offset = 0;
    bool isVector = false;
    bool upto = false;
    bool generatedName = false;
    Direction direction = Direction::Unknown; ///< of a port
    quint32 portName = 0;                     ///< of a port: its number among all port names

    /// Number of the bit `place` bits above the lowest; the least integer when it is no vector.
    qint32 bitNumber(quint32 place) const
    {
        if (!isVector)
            return std::numeric_limits<qint32>::min();
        return offset + qint32(upto ? count - 1 - place : place);
    }
};

/// A connection of a cell; its bits end where the next pin's begin.
struct RawPin
{
    quint32 portName : 30;
    quint32 direction : 2;
    quint32 firstBit;
};

/// Its pins end where the next cell's begin.
struct RawCell
{
    std::string_view name;
    quint32 kind;
    quint32 firstPin;
};

struct RawModule
{
    std::string_view name;
    bool top = false;
    bool blackbox = false;
    std::vector<RawVector> ports;
    std::vector<RawVector> nets;
    std::vector<RawBit> bits; ///< of ports and nets
    std::vector<RawCell> cells;
    std::vector<RawPin> pins;
    std::vector<RawBit> pinBits;
    std::vector<std::string_view> sources;                          ///< by cell, when asked for
    std::vector<std::pair<quint32, std::string_view>> scopeModules; ///< by cell, when asked for

    quint32 pinEnd(size_t cell) const
    {
        return cell + 1 < cells.size() ? cells[cell + 1].firstPin : quint32(pins.size());
    }
    quint32 bitEnd(quint32 pin) const
    {
        return pin + 1 < pins.size() ? pins[pin + 1].firstBit : quint32(pinBits.size());
    }
};

/// A cell type with one result of its parameters.
struct CellKind
{
    std::string_view type;
    const CellType *library = nullptr; ///< borrowed from the cell library; null when unknown
    CellCodes codes;
};

/// The type of the cell that synthesis leaves for a flattened module instance.
constexpr std::string_view SCOPE_INFO = "$scopeinfo";

struct RawNetlist
{
    std::vector<RawModule> modules;
    std::vector<CellKind> kinds;
    std::vector<std::string_view> portNames;
};

} // namespace NlsData
