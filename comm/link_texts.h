#pragma once

namespace calyx::link_text {

// Numbers of the resource texts that the link, download and upload use beside the error codes.
inline constexpr int kReading = 122;
inline constexpr int kStreaming = 1030;
inline constexpr int kSectionFailed = 1282;
inline constexpr int kSectionFailedTitle = 1283;
inline constexpr int kNotInSetupMode = 1294;
inline constexpr int kAborted = 9521;
inline constexpr int kComplete = 9522;
inline constexpr int kFailed = 9523;

inline constexpr int kUnreachable = 9600;  // {1} where, {2} the system's reason
inline constexpr int kNoSerial = 9601;     // {1} port, {2} the system's reason
inline constexpr int kLost = 9602;         // {1} where
inline constexpr int kCancelled = 9603;    // {1} where
inline constexpr int kBusAddress = 9604;   // {1} the address as given
inline constexpr int kBusy = 9605;
inline constexpr int kNotConnected = 9606;
inline constexpr int kTooMuch = 9607;         // {1} megabytes
inline constexpr int kLogFailed = 9608;       // {1} path
inline constexpr int kNoDump = 9609;          // upload: the reply holds no parameter line
inline constexpr int kLostAtLine = 9610;      // download: {1} lines accepted, {2} lines in all
inline constexpr int kLineRefused = 9611;     // why a line failed
inline constexpr int kLineUnanswered = 9612;  // why a line failed
inline constexpr int kDumpCutOff = 9614;      // upload: the last line has no end
inline constexpr int kPartlySent = 9615;      // download: {1} lines accepted, {2} lines in all
inline constexpr int kNoVersion = 9616;
inline constexpr int kNotOneLine = 9617;       // a command with a line end in it
inline constexpr int kEmptyProgram = 9618;     // download: {1} path
inline constexpr int kStreamHeldBack = 42010;  // download: {1} port
inline constexpr int kLineHeldBack = 42011;    // why one of its lines was not sent
// What a line of a plan is not sent for.
inline constexpr int kGated = 40300;  // {1} the versions that have it, in words
inline constexpr int kOnlyThere = 40301;
inline constexpr int kNoCalibration = 40302;
inline constexpr int kNoSetpoints = 40303;
inline constexpr int kNoWidgets = 40304;
inline constexpr int kNoSchemas = 40305;
inline constexpr int kNoBase = 40306;

// How a safe send ended.
inline constexpr int kCounts = 40310;  // {1} sent .. {6} not read back, see SendCounts
inline constexpr int kAllReadBack = 40311;
inline constexpr int kNotAllReadBack = 40312;
inline constexpr int kPaused = 40313;  // {1} lines done, {2} lines in all
inline constexpr int kRestoring = 40314;
inline constexpr int kNothingToSend = 42200;
inline constexpr int kNoBackup = 42201;
inline constexpr int kRestored = 41698;

// Putting a calibration back.
inline constexpr int kCalibrationBack = 40320;
inline constexpr int kCalibrationNotBack = 40321;
inline constexpr int kOtherIndicator = 40322;
inline constexpr int kCalibrationWaits = 42202;

inline constexpr int kPortSettings = 9613;    // {1} the settings as given
inline constexpr int kPortBusy = 9619;        // {1} port, {2} the system's reason
inline constexpr int kRateRefused = 9620;     // {1} port, {2} baud, {3} the system's reason
inline constexpr int kFramingRefused = 9621;  // {1} port, {2} "E,7,1", {3} the system's reason
inline constexpr int kNoSuchPort = 9622;      // {1} port, {2} the system's reason

}  // namespace calyx::link_text
