#pragma once

// Numbers of the resource texts of the board, its points and what a connected indicator reports.
namespace calyx::ui::hardware_text {

inline constexpr int kPointColumn = 40020;
inline constexpr int kFunctionColumn = 40021;
inline constexpr int kAliasColumn = 40022;
inline constexpr int kUsedByColumn = 40023;
inline constexpr int kPoint = 40024;     // {1} its number
inline constexpr int kSetpoint = 40025;  // {1} its number
inline constexpr int kMorePoints = 40026;

inline constexpr int kIndicatorHas = 40080;  // {1} card
inline constexpr int kAsIndicator = 40081;   // {1} card
inline constexpr int kIndicatorHasNone = 40082;

// the page of a port
inline constexpr int kNothingSent = 40083;
inline constexpr int kCannotStream = 40084;  // {1} input type

}  // namespace calyx::ui::hardware_text
