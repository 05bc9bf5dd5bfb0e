#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace calyx {

// Error codes. The number shown to users is the object error base plus the code; the words for a
// code stand in the resource texts under the code itself.
namespace code {
inline constexpr int kTextTooLong = 10001;
inline constexpr int kOutOfRange = 10002;
inline constexpr int kFileNotFound = 10004;
inline constexpr int kChecksum = 10005;
inline constexpr int kNotInitialised = 10006;
inline constexpr int kKindRefused = 10008;
inline constexpr int kAliasRefused = 10010;
inline constexpr int kNoChecksum = 10012;
inline constexpr int kLink = 12801;
inline constexpr int kFileRevision = 15000;
inline constexpr int kIndicatorRevision = 15001;
inline constexpr int kFileNotReadable = 20001;
inline constexpr int kFileNotWritten = 20002;
inline constexpr int kIsFolder = 20003;
inline constexpr int kSetting = 20004;
inline constexpr int kNoList = 20005;
inline constexpr int kFileChanged = 42600;  // by another program, since it was read
inline constexpr int kFileGone = 42601;
inline constexpr int kFileUnknown = 42602;  // cannot be read any more
}  // namespace code

inline constexpr std::uint32_t kObjectErrorBase = 0x80040000u;

// A line of the program's own text. The built-ins stand here because std::source_location is not in every
// library that we build with.
struct CodeLine {
    constexpr CodeLine(const char* path = __builtin_FILE(), int inFile = __builtin_LINE())
        : file(path), number(inFile) {
        for (const char* c = path; *c != '\0'; ++c) {
            if (*c == '/' || *c == '\\') file = c + 1;
        }
    }
    const char* file;  // without its folder
    int number;
};

// A numbered error. Source() is the operation that raised it ("Calyx.CIndicator.Load"), Line() where in
// the program's text that was; Chain() are the operations that passed it on, innermost first.
class Error : public std::exception {
  public:
    Error(int errorCode, std::string source, std::string description, CodeLine line = {})
        : code_(errorCode), source_(std::move(source)), description_(std::move(description)), line_(line) {}

    int Code() const { return code_; }
    std::uint32_t Number() const { return kObjectErrorBase + static_cast<std::uint32_t>(code_); }
    const std::string& Source() const { return source_; }
    const std::string& Description() const { return description_; }
    const CodeLine& Line() const { return line_; }
    const std::vector<std::string>& Chain() const { return chain_; }
    const char* what() const noexcept override { return description_.c_str(); }

    void PassedOnBy(std::string_view operation) {
        if (operation != source_) chain_.emplace_back(operation);
    }

  private:
    int code_;
    std::string source_;
    std::string description_;
    CodeLine line_;
    std::vector<std::string> chain_;
};

// Runs the body of an operation; an error that leaves it carries the operation's name on its way.
template <class Body>
decltype(auto) As(std::string_view operation, Body&& body) {
    try {
        return std::forward<Body>(body)();
    } catch (Error& error) {
        error.PassedOnBy(operation);
        throw;
    }
}

}  // namespace calyx
