#pragma once

// Numbers of the resource texts of the calibration wizard: 41740 to 41799.
namespace calyx::ui::wizard_text {

inline constexpr int kTitle = 41740;
inline constexpr int kNext = 41741;
inline constexpr int kBack = 41742;
inline constexpr int kFinish = 41743;
inline constexpr int kScale = 41744;
inline constexpr int kScaleName = 41745;  // {1} number, {2} alias
inline constexpr int kNoScales = 41746;
inline constexpr int kIntro = 41747;
inline constexpr int kZeroTitle = 41748;
inline constexpr int kZeroWords = 41749;
inline constexpr int kZero = 41750;
inline constexpr int kKeepZero = 41751;
inline constexpr int kSpanTitle = 41752;
inline constexpr int kSpanWords = 41753;
inline constexpr int kSpan = 41754;
inline constexpr int kKeepSpan = 41755;
inline constexpr int kTestWeight = 41756;
inline constexpr int kWrongWeight = 41757;
inline constexpr int kLinearTitle = 41758;
inline constexpr int kLinearWords = 41759;
inline constexpr int kPoint = 41760;      // {1} number
inline constexpr int kPointDo = 41761;    // {1} number
inline constexpr int kPointName = 41762;  // {1} number
inline constexpr int kRezeroTitle = 41763;
inline constexpr int kRezeroWords = 41764;
inline constexpr int kRezero = 41765;
inline constexpr int kEndTitle = 41766;
inline constexpr int kEndWords = 41767;
inline constexpr int kWho = 41768;
inline constexpr int kSave = 41769;
inline constexpr int kSaveTitle = 41770;
inline constexpr int kHtmlFiles = 41771;
inline constexpr int kSaved = 41772;  // {1} path
inline constexpr int kCertificateName = 41773;
inline constexpr int kStepName = 41774;  // {1} scale
inline constexpr int kNotBackTitle = 41775;
inline constexpr int kNotBack = 41776;
inline constexpr int kTryAgain = 41777;
inline constexpr int kLeave = 41778;
inline constexpr int kPendingTitle = 41779;
inline constexpr int kPending = 41780;  // {1} scale, {2} where
inline constexpr int kRestore = 41781;
inline constexpr int kRestoring = 41782;  // {1} scale
inline constexpr int kCounts = 41783;     // {1} counts now, {2} before
inline constexpr int kStartTitle = 41784;
inline constexpr int kMenu = 41785;
inline constexpr int kRefused = 41786;
inline constexpr int kForget = 41787;
inline constexpr int kPrint = 41788;
inline constexpr int kWeightColumn = 42400;
inline constexpr int kCountColumn = 42401;
inline constexpr int kPointCounts = 42402;  // {1} counts now, {2} before

}  // namespace calyx::ui::wizard_text
