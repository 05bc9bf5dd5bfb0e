#pragma once

// Numbers of the resource texts of the terminal: 41800 to 41879.
namespace calyx::ui::terminal_text {

inline constexpr int kTitle = 41800;
inline constexpr int kMenu = 41801;
inline constexpr int kLogName = 41802;
inline constexpr int kFilter = 41803;
inline constexpr int kHex = 41804;
inline constexpr int kLine = 41805;
inline constexpr int kLineTip = 41806;
inline constexpr int kSend = 41807;
inline constexpr int kSendFile = 41808;
inline constexpr int kClear = 41809;
inline constexpr int kSaveLog = 41810;
inline constexpr int kSaveLogTitle = 41811;
inline constexpr int kMacroFree = 41812;     // {1} key
inline constexpr int kMacroCaption = 41813;  // {1} key, {2} caption
inline constexpr int kMacroTip = 41814;      // {1} what it sends
inline constexpr int kMacroFreeTip = 41815;
inline constexpr int kMacroTitle = 41816;  // {1} key
inline constexpr int kMacroName = 41817;
inline constexpr int kMacroText = 41818;
inline constexpr int kMacroEnter = 41819;
inline constexpr int kKeep = 41820;
inline constexpr int kEmpty = 41821;
inline constexpr int kNoAnswer = 41822;
inline constexpr int kSendingLine = 41823;  // {1} number, {2} count
inline constexpr int kFileEnd = 41824;      // {1} sent, {2} count, {3} not accepted
inline constexpr int kFileLost = 41825;
inline constexpr int kFileAborted = 41826;
inline constexpr int kNotConnected = 41827;
inline constexpr int kMacrosUnsaved = 41828;  // {1} reason
inline constexpr int kFileHalted = 41829;
inline constexpr int kEditMacro = 41830;
inline constexpr int kHalt = 41831;

}  // namespace calyx::ui::terminal_text
