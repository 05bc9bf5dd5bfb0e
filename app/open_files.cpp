#include "app/open_files.h"

#include <charconv>
#include <system_error>
#include <thread>
#include <utility>

#include "model/language/text.h"
#include "platform/file_store.h"

namespace calyx {

namespace {

// 64 bits of FNV-1a: two of a user's files share a lock with a chance that needs no thought.
std::string Hashed(std::string_view text) {
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3u;
    std::string digits(16, '0');
    for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit, hash >>= 4)
        *digit = "0123456789abcdef"[hash & 15u];
    return digits;
}

template <class Number>
Number NumberOf(std::string_view text) {
    Number number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

}  // namespace

std::unique_ptr<FileLock> TakeTurn(const std::string& userDataDir, const std::string& path,
                                   std::chrono::milliseconds most) {
    constexpr std::chrono::milliseconds kStep(5);
    const std::string file = userDataDir + "write-" + Hashed(FileIdentity(path)) + ".lock";
    try {
        for (auto waited = std::chrono::milliseconds::zero(); waited <= most; waited += kStep) {
            if (auto turn = FileLock::Take(file, {})) return turn;
            std::this_thread::sleep_for(kStep);
        }
    } catch (const std::system_error&) {
        // As for open files: no lock is no reason to keep anyone from a file.
    }
    return nullptr;
}

std::string OpenFiles::LockFile(const std::string& identity) const {
    return folder_ + "open-" + Hashed(identity) + ".lock";
}

OpenFiles::Claim OpenFiles::Ask(const std::string& path) const {
    return AskFor(FileIdentity(path));
}

OpenFiles::Claim OpenFiles::AskFor(std::string identity) const {
    Claim claim{std::move(identity), nullptr, std::nullopt};
    if (kept_.lock != nullptr && claim.identity == kept_.identity) return claim;
    const auto now = std::chrono::duration_cast<std::chrono::seconds>(clock_().time_since_epoch()).count();
    const std::string file = LockFile(claim.identity);
    try {
        claim.lock =
            FileLock::Take(file, std::to_string(ProcessNumber()) + "\n" + std::to_string(now) + "\n");
        if (claim.lock == nullptr) claim.other = HolderOf(file);
    } catch (const std::system_error&) {
        // No lock is no reason to keep anyone from a file; saving looks at what it holds all the same.
    }
    return claim;
}

OpenFiles::Holder OpenFiles::HolderOf(const std::string& lockFile) const {
    try {
        const std::string words = FileStore().Read(lockFile);
        const auto lines = Split(words, '\n');
        if (lines.size() < 2) return {};
        return {NumberOf<std::uint32_t>(lines[0]), NumberOf<std::int64_t>(lines[1])};
    } catch (const std::system_error&) {
        return {};  // it ends just now
    }
}

void OpenFiles::Keep(Claim claim) {
    const bool held = kept_.lock != nullptr && claim.lock == nullptr && claim.identity == kept_.identity;
    if (!held) kept_ = std::move(claim);
}

void OpenFiles::AskAgain() {
    if (kept_.other) kept_ = AskFor(kept_.identity);
}

}  // namespace calyx
