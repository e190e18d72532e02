#pragma once

#include <QString>

namespace VLT {

// Names and fixed texts of the configuration file, in the order in which the file has them.
// NODE_ names elements, ATTR_ attributes, TYPE_ what an attribute "type" may be.

inline const QString DOCTYPE_NAME = QStringLiteral("TAVRO_POWER_ANALYSIS_CONFIG");
inline const QString DOCTYPE = QStringLiteral("<!DOCTYPE TAVRO_POWER_ANALYSIS_CONFIG>");
inline const QString VERSION = QStringLiteral("1.0");

inline const QString NODE_CONFIG = QStringLiteral("Config");
inline const QString NODE_VERSION = QStringLiteral("Version");

// Operating conditions
inline const QString NODE_TEMP_GRADE = QStringLiteral("TempGrade");
inline const QString NODE_PROCESS = QStringLiteral("Process");
inline const QString NODE_JUNCTION_TEMP = QStringLiteral("JunctionTemp");
inline const QString NODE_AMBIENT_TEMP = QStringLiteral("AmbientTemp");
inline const QString NODE_VCC = QStringLiteral("VCC");
inline const QString NODE_VCCX = QStringLiteral("VCCX");
inline const QString NODE_VCC_LDO = QStringLiteral("VCC_LDO");
inline const QString NODE_CUSTOM_THETA_JA = QStringLiteral("CustomThetaJA");
inline const QString NODE_HEAT_SINK = QStringLiteral("HeatSink");
inline const QString NODE_AIR_FLOW = QStringLiteral("AirFlow");
inline const QString NODE_CUSTOM_THETA_SA = QStringLiteral("CustomThetaSA");
inline const QString NODE_BOARD_THERMAL_MODEL = QStringLiteral("BoardThermalModel");
inline const QString NODE_CUSTOM_THETA_JB = QStringLiteral("CustomThetaJB");
inline const QString NODE_BOARD_TEMP = QStringLiteral("BoardTemp");
inline const QString THETA_NOT_GIVEN = QStringLiteral("NA");

// Toggle rates
inline const QString NODE_NET_RATE = QStringLiteral("NetRate");
inline const QString NODE_NET = QStringLiteral("Net");
inline const QString TYPE_TOGGLE = QStringLiteral("toggle");
inline const QString TYPE_SIGNAL = QStringLiteral("signal");

// Default rates and simulation activity files
inline const QString NODE_DEFAULT_CFG = QStringLiteral("DefaultConfig");
inline const QString NODE_DEFAULT_IO_TOGGLE = QStringLiteral("DefaultIoToggleRate");
inline const QString NODE_DEFAULT_IO_SIGNAL = QStringLiteral("DefaultIoSignalRate");
inline const QString NODE_DEFAULT_RM_TOGGLE = QStringLiteral("DefaultRmToggleRate");
inline const QString NODE_DEFAULT_RM_SIGNAL = QStringLiteral("DefaultRmSignalRate");
inline const QString NODE_SIMU_FILE = QStringLiteral("SimuFile");
inline const QString NODE_FILE = QStringLiteral("File");
inline const QString NODE_FILTER_GLITCH = QStringLiteral("FilterGlitch");
inline const QString TYPE_VCD = QStringLiteral("vcd");
inline const QString TYPE_SAIF = QStringLiteral("saif");
inline const QString FLAG_TRUE = QStringLiteral("TRUE");
inline const QString FLAG_FALSE = QStringLiteral("FALSE");
inline const QString ATTR_ENTITY = QStringLiteral("entity");
inline const QString ATTR_START_TIME = QStringLiteral("start_time");
inline const QString ATTR_END_TIME = QStringLiteral("end_time");
inline const QString ATTR_TIME_UNIT = QStringLiteral("time_unit");

// Clock enables
inline const QString NODE_GLOBAL_ENABLE = QStringLiteral("GlobalEnable");
inline const QString NODE_CLOCK = QStringLiteral("Clock");
inline const QString ATTR_QUAD1 = QStringLiteral("quad1");
inline const QString ATTR_QUAD2 = QStringLiteral("quad2");
inline const QString ATTR_QUAD3 = QStringLiteral("quad3");
inline const QString ATTR_QUAD4 = QStringLiteral("quad4");

// Ports
inline const QString NODE_PORT_OUT_ENABLE = QStringLiteral("PortOutEnable");
inline const QString NODE_PORT = QStringLiteral("Port");
inline const QString ATTR_OUT_ENABLE = QStringLiteral("out_enable");
inline const QString ATTR_CAPACITY = QStringLiteral("capacity");

// Block SRAMs
inline const QString NODE_BSRAM_ENABLE = QStringLiteral("GlobalBsram");
inline const QString NODE_BSRAM = QStringLiteral("BSRam");
inline const QString ATTR_CLOCK_ENABLE = QStringLiteral("clock_enable");
inline const QString ATTR_READ_PROBABILITY = QStringLiteral("read_probability");
inline const QString ATTR_WRITE_PROBABILITY = QStringLiteral("write_probability");
inline const QString ATTR_A_CLK_ENABLE = QStringLiteral("clock_a_enable");
inline const QString ATTR_B_CLK_ENABLE = QStringLiteral("clock_b_enable");
inline const QString ATTR_A_READ = QStringLiteral("port_a_read");
inline const QString ATTR_A_WRITE = QStringLiteral("port_a_write");
inline const QString ATTR_B_READ = QStringLiteral("port_b_read");
inline const QString ATTR_B_WRITE = QStringLiteral("port_b_write");

// Flip-flops
inline const QString NODE_LOCAL_ENABLE = QStringLiteral("LocalEnable");
inline const QString NODE_INSTANCE = QStringLiteral("Instance");

// Attributes of several sections
inline const QString ATTR_NAME = QStringLiteral("name");
inline const QString ATTR_TYPE = QStringLiteral("type");
inline const QString ATTR_VALUE = QStringLiteral("value");

} // namespace VLT
