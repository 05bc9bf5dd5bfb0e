#pragma once

// Numbers of the resource texts of what is told about a connection that was made.
namespace calyx::ui::link_ui_text {

inline constexpr int kBusEnabled = 40060;
inline constexpr int kUnknownVersionTitle = 40061;
inline constexpr int kUnknownVersion = 40062;  // {1} version
inline constexpr int kCardsDifferTitle = 40063;
inline constexpr int kCardsDiffer = 40064;  // {1} the findings, one a line
inline constexpr int kShowSlots = 40065;
inline constexpr int kLogReason = 40067;  // {1} reason

}  // namespace calyx::ui::link_ui_text
