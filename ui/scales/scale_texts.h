#pragma once

// The resource texts of the pages of scales.
namespace calyx::ui::say {

inline constexpr int kScaleKind = 20800;
inline constexpr int kKindTitle = 20802;
inline constexpr int kKindClears = 20803;   // {1} scale, {2} kind, {3} what goes
inline constexpr int kKindNoScale = 20804;  // {1} scale, {2} what goes
inline constexpr int kChangeKind = 20805;
inline constexpr int kKeepKind = 20806;
inline constexpr int kLostSource = 20807;   // {1} source
inline constexpr int kLostValue = 20808;    // {1} label, {2} before, {3} after
inline constexpr int kLostLine = 42305;     // {1} label, {2} value
inline constexpr int kChannel = 20810;      // {1} number
inline constexpr int kAlsoInScale = 20811;  // {1} source, {2} scale
inline constexpr int kPort = 20812;         // {1} number
inline constexpr int kPortAlias = 20813;    // {1} port, {2} alias
inline constexpr int kBox = 20814;          // {1} port, {2} box
inline constexpr int kNotThere = 20815;     // {1} source
inline constexpr int kOtherInput = 20816;   // {1} source, {2} input type
inline constexpr int kScaleNumber = 20817;  // {1} number
inline constexpr int kScaleUnset = 20818;   // {1} scale
inline constexpr int kAddChannel = 20820;
inline constexpr int kAddScale = 20821;
inline constexpr int kRemoveSource = 20822;  // {1} source
inline constexpr int kChooseChannel = 20823;
inline constexpr int kChoosePort = 20824;
inline constexpr int kChooseBox = 20825;
inline constexpr int kNoPortFits = 20826;  // {1} input type
inline constexpr int kShowPort = 20827;
inline constexpr int kChooseKindFirst = 20828;
inline constexpr int kByProgram = 20829;
inline constexpr int kNothingToAdd = 20830;
inline constexpr int kAddCard = 20831;

// The table.
inline constexpr int kScaleTableName = 40160;
inline constexpr int kScaleColumns[] = {40121, 40122, 40123, 40124, 40161, 40162};
inline constexpr int kChannels = 40163;      // {1} numbers
inline constexpr int kScales = 40164;        // {1} numbers
inline constexpr int kScalesCopied = 40165;  // {1} how many
inline constexpr int kScalesPasted = 40166;  // {1} how many, {2} first number
inline constexpr int kScalesNoRoom = 40167;  // {1} how many, {2} first number
inline constexpr int kNoScaleCopied = 40168;
inline constexpr int kScaleLinesOdd = 40169;    // {1} lines
inline constexpr int kClearScaleStep = 40170;   // {1} number
inline constexpr int kClearScalesStep = 40171;  // {1} how many
inline constexpr int kNoScaleToClear = 40172;

}  // namespace calyx::ui::say
