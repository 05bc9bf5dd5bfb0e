#pragma once

// Numbers of the resource texts of the stream simulator and of training: 41880 to 41959.
namespace calyx::ui::tool_text {

inline constexpr int kStreamTitle = 41880;
inline constexpr int kStreamMenu = 41881;
inline constexpr int kStreamWords = 41882;
inline constexpr int kDefinition = 41883;
inline constexpr int kPortName = 41884;  // {1} number, {2} alias
inline constexpr int kNoPorts = 41885;
inline constexpr int kWeights = 41886;
inline constexpr int kWeightsTip = 41887;
inline constexpr int kWrongWeights = 41888;
inline constexpr int kMode = 41889;
inline constexpr int kState = 41890;
inline constexpr int kUnits = 41891;
inline constexpr int kPrimary = 41892;
inline constexpr int kSecondary = 41893;
inline constexpr int kTertiary = 41894;
inline constexpr int kEvery = 41895;
inline constexpr int kStart = 41896;
inline constexpr int kStop = 41897;
inline constexpr int kSent = 41898;  // {1} number
inline constexpr int kGone = 41899;
inline constexpr int kLast = 41900;
inline constexpr int kNotSending = 41901;

inline constexpr int kTrainingTitle = 41940;
inline constexpr int kTrainingMenu = 41941;
inline constexpr int kTrainingWords = 41942;
inline constexpr int kFault = 41943;
inline constexpr int kArgument = 41944;
inline constexpr int kDoes = 41945;
inline constexpr int kApply = 41946;
inline constexpr int kHealthy = 41947;
inline constexpr int kFaultNeeds = 41948;  // {1} how it is given
inline constexpr int kArgumentTip = 41949;
inline constexpr int kFaultWrong = 41950;  // {1} fault, {2} how it is given

}  // namespace calyx::ui::tool_text
