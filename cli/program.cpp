#include "cli/program.h"

#include "cli/exit.h"

namespace calyx::cli {

void Program::Say(const std::string& message) {
    console_.err << "calyx-cli: " << Printable(message) << '\n';
}

void Program::List(const std::function<Json()>& json, const std::function<void(std::ostream&)>& text) {
    if (!json_) return text(console_.out);
    console_.out << json().dump(2) << '\n';
}

void Program::StopIfCancelled() const {
    if (Cancelled()) throw Interrupted{};
}

std::string Printable(std::string_view text, std::size_t most) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string shown;
    for (const char c : text.substr(0, most)) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x20 && byte != 0x7F) {
            shown += c;
        } else {
            shown.append("\\x").append(1, kDigits[byte >> 4]).append(1, kDigits[byte & 15]);
        }
    }
    return text.size() > most ? shown + "..." : shown;
}

std::string Quoted(std::string_view value, std::size_t most) {
    return '"' + Printable(value, most) + '"';
}

std::string Counted(std::size_t count, std::string_view one, std::string_view many) {
    return std::to_string(count).append(" ").append(count == 1 ? one : many);
}

}  // namespace calyx::cli
