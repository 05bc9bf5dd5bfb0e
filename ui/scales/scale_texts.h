#pragma once

// The resource texts of the pages of scales.
namespace calyx::ui::say {

inline constexpr int kScaleKind = 20800;
inline constexpr int kScaleSource = 20801;
inline constexpr int kKindTitle = 20802;
inline constexpr int kKindClears = 20803;   // {1} scale, {2} kind, {3} what goes
inline constexpr int kKindNoScale = 20804;  // {1} scale, {2} what goes
inline constexpr int kChangeKind = 20805;
inline constexpr int kKeepKind = 20806;
inline constexpr int kLostSource = 20807;   // {1} source
inline constexpr int kLostValue = 20808;    // {1} label, {2} before, {3} after
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

}  // namespace calyx::ui::say
