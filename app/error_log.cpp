#include "app/error_log.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <system_error>

#include "platform/paths.h"

namespace calyx {

namespace {

template <class... Arguments>
std::string Formatted(const char* pattern, Arguments... arguments) {
    char text[64];
    const int size = std::snprintf(text, sizeof text, pattern, arguments...);
    return std::string(text, static_cast<std::size_t>(size));
}

std::string TimeText(std::chrono::system_clock::time_point time) {
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const auto day = std::chrono::floor<std::chrono::days>(seconds);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(seconds - day);
    return Formatted("%04d-%02u-%02u %02d:%02d:%02dZ", static_cast<int>(date.year()),
                     static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                     static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                     static_cast<int>(clock.seconds().count()));
}

}  // namespace

std::string ErrorLine(const Error& error) {
    std::string line = "error " + std::to_string(error.Code()) +
                       Formatted(" (0x%08X) in ", static_cast<unsigned>(error.Number())) + error.Source() +
                       Formatted(", line %d of ", error.Line().number) + error.Line().file + ": " +
                       error.Description();
    for (char& c : line) {
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    }
    return line;
}

bool ErrorLog::Write(const Error& error) const {
    std::error_code noFolder;
    std::filesystem::create_directories(PathOf(folder_), noFolder);
    std::string line = TimeText(clock_()) + ' ' + ErrorLine(error);
    for (const std::string& operation : error.Chain()) {
        line += (&operation == &error.Chain().front() ? " [passed on by " : ", ") + operation;
    }
    line += error.Chain().empty() ? "\r\n" : "]\r\n";
    std::ofstream log(PathOf(file_), std::ios::binary | std::ios::app);
    log << line << std::flush;
    return log.good();
}

void ErrorLog::DeleteWhenLarge() const {
    std::error_code failure;
    const std::uintmax_t size = std::filesystem::file_size(PathOf(file_), failure);
    // One that cannot be deleted goes on growing; that is no reason not to start.
    if (!failure && size > kLargest) std::filesystem::remove(PathOf(file_), failure);
}

}  // namespace calyx
