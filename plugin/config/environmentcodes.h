#pragma once

/// Codes and names that the design environment uses: object codes, events and their values.
namespace VLT::Environment {

// Instance categories
constexpr int CATEGORY_BSRAM = 5;
constexpr int CATEGORY_DFF = 50;

// Port directions
constexpr int DIRECTION_OUT = 1;
constexpr int DIRECTION_IN_OUT = 2;

// Events and what they carry
constexpr char EVENT_PROCESS_STATUS[] = "TE.Process.Status.Change";
constexpr char EVENT_DEVICE_CHANGE[] = "TE.Device.Change";
constexpr char VALUE_PROCESS[] = "process";
constexpr char VALUE_STATUS[] = "status";
constexpr char PROCESS_SYNTHESIS[] = "Process.Syn";
constexpr int STATUS_FINISHED = 2;

} // namespace VLT::Environment
