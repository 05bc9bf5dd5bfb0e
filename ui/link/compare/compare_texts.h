#pragma once

// Numbers of the resource texts of comparing with and sending to an indicator: 41660 to 41739.
namespace calyx::ui::compare_text {

inline constexpr int kTitle = 41660;
inline constexpr int kParts = 41661;
inline constexpr int kPartsTip = 41662;
inline constexpr int kShow = 41663;
inline constexpr int kShowAll = 41664;
inline constexpr int kShowSent = 41665;
inline constexpr int kShowNot = 41666;
inline constexpr int kFilter = 41667;
inline constexpr int kLine = 41668;
inline constexpr int kState = 41669;
inline constexpr int kDiffer = 41670;  // {1} lines to be sent, {2} lines that will not go
inline constexpr int kReading = 41671;
inline constexpr int kReceived = 41672;  // {1} number
inline constexpr int kReadAgain = 41673;
inline constexpr int kSend = 41674;  // {1} number
inline constexpr int kPause = 41675;
inline constexpr int kGoOn = 41676;
inline constexpr int kResume = 41677;
inline constexpr int kRestore = 41678;
inline constexpr int kRestoreTip = 41679;
inline constexpr int kAbort = 41680;
inline constexpr int kBackup = 41681;  // {1} path
inline constexpr int kNothingTicked = 41682;
inline constexpr int kWillGo = 41683;
inline constexpr int kWillNotGo = 41684;  // left out by its tick
inline constexpr int kAccepted = 41685;
inline constexpr int kReadBack = 41686;
inline constexpr int kDone = 41687;  // accepted, cannot be read back
inline constexpr int kRefused = 41688;
inline constexpr int kNoAnswer = 41689;
inline constexpr int kHeldBack = 42011;
inline constexpr int kOther = 41690;  // {1} what was read back
inline constexpr int kMissing = 41691;
inline constexpr int kNotSentYet = 41692;
inline constexpr int kPaused = 41693;
inline constexpr int kReadingBack = 41694;
inline constexpr int kCommands = 41695;
inline constexpr int kGoesWhole = 41696;
inline constexpr int kCannotGoBack = 41697;  // {1} keys
inline constexpr int kRestored = 41698;
inline constexpr int kReadCancelled = 41699;
inline constexpr int kBackupFolder = 41700;  // {1} path, {2} reason
inline constexpr int kUnread = 41702;

// A run that was broken off.
inline constexpr int kPendingTitle = 41710;
inline constexpr int kPending = 41711;  // {1} configuration, {2} where, {3} lines left, {4} lines in all
inline constexpr int kPendingResume = 41712;
inline constexpr int kPendingRestore = 41713;
inline constexpr int kPendingForget = 41714;
inline constexpr int kPendingLater = 41715;
inline constexpr int kElsewhereTitle = 41716;
inline constexpr int kElsewhere = 41717;  // {1} where the run went, {2} what is connected
inline constexpr int kElsewhereGo = 41718;
inline constexpr int kReplacesTitle = 41719;
inline constexpr int kReplaces = 41720;
inline constexpr int kReplacesGo = 41721;
inline constexpr int kPendingRestores = 41722;  // as kPending, a run that put back
inline constexpr int kPendingPlain = 41723;     // as kPending, a run without a backup
inline constexpr int kPositionKept = 41724;
inline constexpr int kNoPosition = 41725;

}  // namespace calyx::ui::compare_text
