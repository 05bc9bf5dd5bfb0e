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
inline constexpr int kNoSerial = 9601;     // {1} port
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
inline constexpr int kLineLost = 9613;        // why a line failed
inline constexpr int kDumpCutOff = 9614;      // upload: the last line has no end
inline constexpr int kPartlySent = 9615;      // download: {1} lines accepted, {2} lines in all
inline constexpr int kNoVersion = 9616;
inline constexpr int kNotOneLine = 9617;    // a command with a line end in it
inline constexpr int kEmptyProgram = 9618;  // download: {1} path

}  // namespace calyx::link_text
