#include "model/language/reason.h"

namespace calyx {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// What the libraries that we build with say where the system has no words.
bool SaysNothing(std::string_view words) {
    return words.empty() || words == "Unknown error" || words == "Unknown error code" ||
           words == "asio.system error";
}

}  // namespace

std::string ReasonIn(std::string_view words) {
    while (!words.empty() && (IsBlank(words.back()) || words.back() == '.')) words.remove_suffix(1);
    std::string reason;
    for (const char c : words) {
        if (!IsBlank(c)) {
            reason += c;
        } else if (!reason.empty() && reason.back() != ' ') {
            reason += ' ';
        }
    }
    return reason;
}

std::string Reason(const std::error_code& error) {
    std::string words = ReasonIn(error.message());
    if (SaysNothing(words)) words = "error " + std::to_string(error.value()) + " of the system";
    return words;
}

}  // namespace calyx
