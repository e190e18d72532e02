#pragma once

#include <QString>

#include <tuple>

namespace VLT {

// The records of a configuration, as listed in its tables and stored in its file. A `name` is the
// object's full path in the netlist. A negative number means "not set".

enum class RateUnit {
    Toggle, ///< percent
    Signal  ///< transitions per second
};

/// The toggle rate of a net or port. `value` is a text in the unit of its table, empty if not given
/// yet.
struct VLT_Rate
{
    QString name;
    QString value;
};

/// A simulation activity file. Times are decimal texts as typed; empty means no limit.
struct VLT_VcdFile
{
    QString file;   ///< full path as chosen
    QString entity; ///< path of the instance that the file describes, or the design's name
    bool isVcd = true;
    QString startTime;
    QString endTime;
    QString timeUnit;
};

/// A clock by its name, with the rates at which it is enabled as a whole and in each quadrant of
/// the chip, in percent.
struct VLT_ClkEnable
{
    QString name;
    float enable = -1.0F;
    float quad1 = -1.0F;
    float quad2 = -1.0F;
    float quad3 = -1.0F;
    float quad4 = -1.0F;
};

enum PortType : qint32 {
    BufferedOutput = 0, ///< driven by a plain output buffer: always enabled
    OtherOutput = 1,
    InOut = 2,
    OtherDirection = 3
};

/// A port that drives an output of the chip.
struct VLT_Port
{
    QString name;
    float outEnable = -1.0F; ///< share of time, in percent
    float capacity = -1.0F;  ///< load in picofarads
    qint32 type = 0;         ///< one of PortType; a file may hold any number
};

/// A block SRAM with the rates and probabilities of its ports A and B, in percent. A negative value
/// means that the memory has no such port function.
struct VLT_BSRam
{
    QString name;
    float aEnable = -1.0F;
    float bEnable = -1.0F;
    float aRead = -1.0F;
    float bRead = -1.0F;
    float aWrite = -1.0F;
    float bWrite = -1.0F;
    qint32 type = 0; ///< memory kind, 0 to 8; a file may hold any number
};

/// A flip-flop with the rate of its local enable, in percent.
struct VLT_Dff
{
    QString name;
    float value = -1.0F;
};

/// The name under which a record is looked up.
template<class Record>
const QString &nameOf(const Record &record)
{
    return record.name;
}

inline const QString &nameOf(const VLT_VcdFile &record)
{
    return record.file;
}

/// The fields of a record, for comparison.
inline auto fields(const VLT_Rate &r)
{
    return std::tie(r.name, r.value);
}

inline auto fields(const VLT_VcdFile &r)
{
    return std::tie(r.file, r.entity, r.isVcd, r.startTime, r.endTime, r.timeUnit);
}

inline auto fields(const VLT_ClkEnable &r)
{
    return std::tie(r.name, r.enable, r.quad1, r.quad2, r.quad3, r.quad4);
}

inline auto fields(const VLT_Port &r)
{
    return std::tie(r.name, r.outEnable, r.capacity, r.type);
}

inline auto fields(const VLT_BSRam &r)
{
    return std::tie(r.name, r.aEnable, r.bEnable, r.aRead, r.bRead, r.aWrite, r.bWrite, r.type);
}

inline auto fields(const VLT_Dff &r)
{
    return std::tie(r.name, r.value);
}

} // namespace VLT
