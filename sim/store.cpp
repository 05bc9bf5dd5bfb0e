#include "sim/store.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

#include "sim/text.h"

namespace calyx::sim {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kHeading = "; State of a simulated Merrin indicator";

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsKeyCharacter(char c) {
    return IsLetter(c) || (c >= '0' && c <= '9') ||
           std::string_view("._%+-#").find(c) != std::string_view::npos;
}

std::size_t LineBytes(std::string_view key, std::string_view value) {
    return key.size() + 1 + value.size() + kLineEnd.size();
}

std::optional<std::pair<std::string_view, std::string_view>> ReadParameterLine(std::string_view line) {
    const auto equals = line.find('=');
    if (equals == std::string_view::npos || !Store::IsPlausibleKey(line.substr(0, equals))) return {};
    return std::pair(line.substr(0, equals), line.substr(equals + 1));
}

// The next line without its end. "\r\n" counts as two line ends, the second one of an empty line.
std::string_view TakeLine(std::string_view& text) {
    const auto end = std::min(text.find_first_of(kLineEnd), text.size());
    const auto line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

using Doing = StateFileError::Doing;

[[noreturn]] void FailFile(Doing doing, const std::filesystem::path& file, std::error_code why) {
    const std::string what = doing == Doing::kReading ? "cannot read" : "cannot write";
    throw StateFileError(doing, what + " the state file \"" + file.string() + "\": " + why.message());
}

std::error_code LastFileError() {
    return errno != 0 ? std::error_code(errno, std::generic_category())
                      : std::make_error_code(std::errc::io_error);
}

[[noreturn]] void FailNotState(const std::filesystem::path& file) {
    throw StateFileError(
        Doing::kReading,
        "\"" + file.string() +
            "\" is not the state of a simulated indicator; give a new name or a file that the "
            "simulated indicator has written");
}

// Nothing for an absent file.
std::string ReadStateFile(const std::filesystem::path& file) {
    std::error_code failure;
    const auto status = std::filesystem::status(file, failure);
    if (status.type() == std::filesystem::file_type::not_found) return {};
    if (failure) FailFile(Doing::kReading, file, failure);
    if (!std::filesystem::is_regular_file(status)) FailNotState(file);
    if (std::filesystem::file_size(file) > Store::kMaxBytes + kHeading.size() + kLineEnd.size())
        FailNotState(file);
    errno = 0;
    std::ifstream in(file, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (!in) FailFile(Doing::kReading, file, LastFileError());
    return text;
}

}  // namespace

bool Store::IsPlausibleKey(std::string_view key) {
    return !key.empty() && key.size() <= kMaxKey && IsLetter(key.front()) &&
           std::all_of(key.begin(), key.end(), IsKeyCharacter);
}

bool Store::Set(std::string_view key, std::string_view value) {
    auto upper = UpperCase(key);
    const auto found = index_.find(upper);
    const auto before = found == index_.end() ? 0 : LineBytes(key, lines_[found->second].value);
    const auto after = LineBytes(key, value);
    if (bytes_ - before + after > kMaxBytes) return false;

    if (found == index_.end()) {
        index_.emplace(upper, lines_.size());
        lines_.push_back({std::move(upper), std::string(value)});
    } else if (lines_[found->second].value == value) {
        return true;
    } else {
        lines_[found->second].value = value;
    }
    bytes_ += after - before;
    ++changes_;
    return true;
}

const std::string* Store::Find(std::string_view key) const {
    const auto found = index_.find(UpperCase(key));
    return found == index_.end() ? nullptr : &lines_[found->second].value;
}

void Store::Remove(std::string_view key) {
    RemoveLines([key](const Line& line) { return EqualsNoCase(line.key, key); });
}

void Store::RemoveKeysBeginning(std::string_view beginning) {
    RemoveLines([beginning](const Line& line) { return BeginsNoCase(line.key, beginning); });
}

template <class Condition>
void Store::RemoveLines(Condition condition) {
    if (std::erase_if(lines_, condition) == 0) return;
    index_.clear();
    bytes_ = 0;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        index_.emplace(lines_[i].key, i);
        bytes_ += LineBytes(lines_[i].key, lines_[i].value);
    }
    ++changes_;
}

void Store::TakeLines(std::string_view text) {
    while (!text.empty()) {
        if (const auto line = ReadParameterLine(TakeLine(text))) Set(line->first, line->second);
    }
}

std::string Store::Text() const {
    std::string text;
    text.reserve(bytes_);
    for (const auto& line : lines_) text.append(line.key).append("=").append(line.value).append(kLineEnd);
    return text;
}

void Store::Save(const std::filesystem::path& file) const {
    // Not a name that anybody gives a file of his own, which would be lost.
    std::filesystem::path name = ".";
    name += file.filename();
    name += ".calyx-new";
    const auto fresh = file.parent_path() / name;
    errno = 0;
    std::ofstream out(fresh, std::ios::binary | std::ios::trunc);
    out << kHeading << kLineEnd << Text();
    out.close();
    std::error_code failure;
    if (out) {
        std::filesystem::rename(fresh, file, failure);
    } else {
        failure = LastFileError();
    }
    if (!failure) return;
    std::error_code ignored;
    std::filesystem::remove(fresh, ignored);
    FailFile(Doing::kWriting, file, failure);
}

std::optional<Store> Store::Load(const std::filesystem::path& file) {
    const auto content = ReadStateFile(file);
    std::string_view rest = content;
    if (rest.empty()) return {};
    if (TakeLine(rest) != kHeading) FailNotState(file);
    Store store;
    while (!rest.empty()) {
        const auto line = TakeLine(rest);
        if (line.empty()) continue;
        const auto parameter = ReadParameterLine(line);
        if (!parameter || !store.Set(parameter->first, parameter->second)) FailNotState(file);
    }
    return store;
}

}  // namespace calyx::sim
