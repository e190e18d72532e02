#pragma once

namespace Core {
namespace Constants {

/// Identifier of the File menu's Save command.
constexpr char A_FILE_SAVE[] = "Core.Action.Save";

} // namespace Constants
} // namespace Core
