#pragma once

// The resource texts of the pages of prompts, soft keys and custom parameters, and of grids with rows that
// move.
namespace calyx::ui::prompts_text {

inline constexpr int kSoftKeys = 41000, kIndustrialMode = 41001;  // titles of pages

inline constexpr int kPromptHeadings[] = {41002, 41003, 41004, 41005};
inline constexpr int kLengthOf = 41006;  // {1} characters, {2} most
inline constexpr int kSetpoint = 41007;  // {1} number

inline constexpr int kSoftKeyHeadings[] = {41010, 41011, 41012};
inline constexpr int kNotOnDisplay = 41013;
inline constexpr int kSoftKeyMoved = 41014;  // {1} soft key, {2} place
inline constexpr int kSoftKeyHint = 41015;

inline constexpr int kCustomHeadings[] = {41020, 41021, 41022};
inline constexpr int kCustomHint = 41023;
inline constexpr int kCustomRemoved = 41024;         // {1} name
inline constexpr int kSeveralCustomRemoved = 41025;  // {1} how many
inline constexpr int kCustomMoved = 41026;           // {1} name or place, {2} place
inline constexpr int kAllTaken = 41027;              // {1} places
inline constexpr int kNothingToRemove = 41028;

inline constexpr int kAdd = 41030, kCustomAddTip = 41031;
inline constexpr int kRemove = 41032, kRemoveTip = 41033;
inline constexpr int kMoveUp = 41034, kMoveUpTip = 41035;
inline constexpr int kMoveDown = 41036, kMoveDownTip = 41037;
inline constexpr int kCopyRows = 41038, kCopyRowsTip = 41039;
inline constexpr int kPasteRows = 41040, kPasteRowsTip = 41041;
inline constexpr int kNoFurther = 41042;

}  // namespace calyx::ui::prompts_text
