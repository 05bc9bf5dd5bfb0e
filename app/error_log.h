#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

#include "model/language/error.h"

namespace calyx {

// "errorlog.txt" in the user data folder: one line an error, which is its time in UTC, ErrorLine and,
// in brackets, the operations that passed the error on.
class ErrorLog {
  public:
    using Clock = std::function<std::chrono::system_clock::time_point()>;

    ErrorLog(const std::string& userDataDir, Clock clock)
        : file_(userDataDir + "errorlog.txt"), folder_(userDataDir), clock_(std::move(clock)) {}

    // Appends the error and makes the folder if need be. False when that fails: an error report must
    // not fail itself, so the log then lacks it, on purpose.
    bool Write(const Error& error) const;

    // Start-up only: a log that has grown beyond kLargest is deleted and starts afresh.
    static constexpr std::uintmax_t kLargest = 50000;  // bytes; a log of exactly this size stays
    void DeleteWhenLarge() const;

    const std::string& File() const { return file_; }

  private:
    std::string file_;
    std::string folder_;
    Clock clock_;
};

// An error in one line, "error 10005 (0x80042715) in Calyx.CIndicator.Load, line 47 of indicator_file.cpp:
// description"; line ends and other control characters become blanks.
std::string ErrorLine(const Error& error);

}  // namespace calyx
