#include "model/validation/validate.h"

#include <algorithm>
#include <string>

#include "model/language/text.h"

namespace calyx::modValidate {

namespace {

constexpr std::string_view kReserved =
    "|and|array|begin|builtin|constant|database|datetime|else|elsif|end|exit|for|function|handler|if|integer|"
    "is|"
    "loop|mod|not|of|or|program|real|record|return|step|string|then|to|type|var|while|";

// Lower case as 8-bit ANSI text has it: the accented capitals too.
char LowerAnsi(char c) {
    const auto code = static_cast<unsigned char>(c);
    const bool accented = code >= 192 && code <= 222 && code != 215;
    return (c >= 'A' && c <= 'Z') || accented ? static_cast<char>(code + 32) : c;
}

std::string LowerAnsi(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) { return LowerAnsi(c); });
    return lower;
}

bool IsIdentifierCharacter(char c) {
    return c == '_' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

}  // namespace

bool ValidateAlias(std::string_view alias) {
    if (alias.empty() || alias.size() > 8 || alias.find(' ') != std::string_view::npos) return false;
    const std::string lower = LowerAnsi(alias);
    const auto first = static_cast<unsigned char>(lower[0]);
    const bool letter = (first >= 'a' && first <= 'z') || first >= 224;
    bool valid = lower[0] == '_';
    if (letter) valid = kReserved.find("|" + lower + "|") == std::string_view::npos;
    // An accented first letter passes as a letter above and fails here: on purpose.
    return valid && std::all_of(alias.begin(), alias.end(), IsIdentifierCharacter);
}

bool EmailIsInvalid(std::string_view address) {
    const std::size_t at = address.find('@');
    const std::size_t lastDot = address.rfind('.');
    if (at == std::string_view::npos || lastDot == std::string_view::npos || address.size() < 6) return true;
    // A name before the one "@", and a domain with an inner dot behind it.
    if (at == 0 || address.find('@', at + 1) != std::string_view::npos) return true;
    if (address.front() == '.' || lastDot < at + 2 || lastDot + 1 == address.size() ||
        address[at + 1] == '.' || address[at - 1] == '.') {
        return true;
    }
    if (address.find('"') != std::string_view::npos) return true;
    if (address.find_first_of("!#$%^&*()=+{}[]|\\;:'/?>,< ") != std::string_view::npos) return true;
    return address.find("..") != std::string_view::npos;
}

bool IsValidIP(std::string_view address) {
    address = Trim(address);
    if (address.size() < 7 || address.ends_with('.')) return false;
    const auto parts = Split(address, '.');
    return parts.size() == 4 && std::all_of(parts.begin(), parts.end(), [](std::string_view part) {
               const bool digits =
                   !part.empty() && part.size() <= 3 && part.find_first_not_of("0123456789") == part.npos;
               return digits && ReadInteger(part)->value <= 255;
           });
}

}  // namespace calyx::modValidate
