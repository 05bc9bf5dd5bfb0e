#pragma once

#include "model/language/error.h"

namespace calyx::code {

// Codes of the program around the documents. As everywhere, the words stand in the resource texts
// under the code.
inline constexpr int kProgramFile = 20100;      // a file that belongs to the program; {1} path, {2} reason
inline constexpr int kNoLanguage = 20101;       // {1} language code, {2} path
inline constexpr int kUserFolder = 20102;       // {1} path, {2} reason
inline constexpr int kSettingsUnread = 20103;   // {1} reason
inline constexpr int kSettingsUnsaved = 20104;  // {1} reason
inline constexpr int kMachineWide = 20105;      // such a reason
inline constexpr int kNoTicketTokens = 40800;   // {1} path, {2} reason

}  // namespace calyx::code
