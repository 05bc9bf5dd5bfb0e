#pragma once

#include <string_view>

// The shared rules for names and addresses (modValidate). They answer; they never raise errors.
namespace calyx::modValidate {

// 1 to 8 characters, a letter or "_" first, then letters, digits and "_"; no keyword of the
// indicator's programming language. An alias becomes a constant of that language.
bool ValidateAlias(std::string_view alias);

// True when the address is NOT acceptable.
bool EmailIsInvalid(std::string_view address);

// Four decimal parts of 0 to 255 separated by ".".
bool IsValidIP(std::string_view address);

}  // namespace calyx::modValidate
