#pragma once

// Numbers of the resource texts of grids and item pages.
namespace calyx::ui::items_text {

inline constexpr int kPasteStep = 40000;     // {1} number of values
inline constexpr int kDefaultsStep = 40001;  // {1} number of values
inline constexpr int kNotFitting = 40002;    // {1} number of values
inline constexpr int kNothingToPaste = 40003;
inline constexpr int kNotUsedHere = 40004;
inline constexpr int kNoChoice = 40005;  // {1} what was typed, {2} the choices
inline constexpr int kCellName = 40006;  // {1} row, {2} column
inline constexpr int kPasted = 40007;    // {1} number of values
inline constexpr int kMenuEdit = 40008;
inline constexpr int kAllDefault = 40009;
inline constexpr int kStayMarked = 40010;  // {1} number of values

// restoring the defaults of an item; {1} its title
inline constexpr int kMenuRestore = 40011;
inline constexpr int kRestoreStep = 40012;
inline constexpr int kRestoreTitle = 40013;
inline constexpr int kRestoreQuestion = 40014;  // {2} number of settings
inline constexpr int kRestoreOne = 40015;
inline constexpr int kRestoreIt = 40016;
inline constexpr int kKeepSettings = 40017;
inline constexpr int kHasDefaults = 40018;
inline constexpr int kNoItemShown = 40019;

}  // namespace calyx::ui::items_text
