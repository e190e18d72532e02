#pragma once

namespace VLT {

// Names and fixed texts of the configuration file, in the order in which the file has them.
// NODE_ names elements, ATTR_ attributes.

constexpr char DOCTYPE_NAME[] = "TAVRO_POWER_ANALYSIS_CONFIG";
constexpr char DOCTYPE[] = "<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>";
constexpr char VERSION[] = "1.0";

constexpr char NODE_CONFIG[] = "Config";
constexpr char NODE_VERSION[] = "Version";

// Operating conditions
constexpr char NODE_TEMP_GRADE[] = "TempGrade";
constexpr char NODE_PROCESS[] = "Process";
constexpr char NODE_JUNCTION_TEMP[] = "JunctionTemp";
constexpr char NODE_AMBIENT_TEMP[] = "AmbientTemp";
constexpr char NODE_VCC[] = "VCC";
constexpr char NODE_VCCX[] = "VCCX";
constexpr char NODE_VCC_LDO[] = "VCC_LDO";
constexpr char NODE_CUSTOM_THETA_JA[] = "CustomThetaJA";
constexpr char NODE_HEAT_SINK[] = "HeatSink";
constexpr char NODE_AIR_FLOW[] = "AirFlow";
constexpr char NODE_CUSTOM_THETA_SA[] = "CustomThetaSA";
constexpr char NODE_BOARD_THERMAL_MODEL[] = "BoardThermalModel";
constexpr char NODE_CUSTOM_THETA_JB[] = "CustomThetaJB";
constexpr char NODE_BOARD_TEMP[] = "BoardTemp";

// Toggle rates
constexpr char NODE_NET_RATE[] = "NetRate";
constexpr char NODE_NET[] = "Net";

// Default rates and simulation activity files
constexpr char NODE_DEFAULT_CFG[] = "DefaultConfig";
constexpr char NODE_DEFAULT_IO_TOGGLE[] = "DefaultIoToggleRate";
constexpr char NODE_DEFAULT_IO_SIGNAL[] = "DefaultIoSignalRate";
constexpr char NODE_DEFAULT_RM_TOGGLE[] = "DefaultRmToggleRate";
constexpr char NODE_DEFAULT_RM_SIGNAL[] = "DefaultRmSignalRate";
constexpr char NODE_SIMU_FILE[] = "SimuFile";
constexpr char NODE_FILE[] = "File";
constexpr char NODE_FILTER_GLITCH[] = "FilterGlitch";
constexpr char ATTR_ENTITY[] = "entity";
constexpr char ATTR_START_TIME[] = "start_time";
constexpr char ATTR_END_TIME[] = "end_time";
constexpr char ATTR_TIME_UNIT[] = "time_unit";

// Clock enables
constexpr char NODE_GLOBAL_ENABLE[] = "GlobalEnable";
constexpr char NODE_CLOCK[] = "Clock";
constexpr char ATTR_QUAD1[] = "quad1";
constexpr char ATTR_QUAD2[] = "quad2";
constexpr char ATTR_QUAD3[] = "quad3";
constexpr char ATTR_QUAD4[] = "quad4";

// Ports
constexpr char NODE_PORT_OUT_ENABLE[] = "PortOutEnable";
constexpr char NODE_PORT[] = "Port";
constexpr char ATTR_OUT_ENABLE[] = "out_enable";
constexpr char ATTR_CAPACITY[] = "capacity";

// Block SRAMs
constexpr char NODE_BSRAM_ENABLE[] = "GlobalBsram";
constexpr char NODE_BSRAM[] = "BSRam";
constexpr char ATTR_CLOCK_ENABLE[] = "clock_enable";
constexpr char ATTR_READ_PROBABILITY[] = "read_probability";
constexpr char ATTR_WRITE_PROBABILITY[] = "write_probability";
constexpr char ATTR_A_CLK_ENABLE[] = "clock_a_enable";
constexpr char ATTR_B_CLK_ENABLE[] = "clock_b_enable";
constexpr char ATTR_A_READ[] = "port_a_read";
constexpr char ATTR_A_WRITE[] = "port_a_write";
constexpr char ATTR_B_READ[] = "port_b_read";
constexpr char ATTR_B_WRITE[] = "port_b_write";

// Flip-flops
constexpr char NODE_LOCAL_ENABLE[] = "LocalEnable";
constexpr char NODE_INSTANCE[] = "Instance";

// Attributes of several sections
constexpr char ATTR_NAME[] = "name";
constexpr char ATTR_TYPE[] = "type";
constexpr char ATTR_VALUE[] = "value";

} // namespace VLT
