#pragma once

#include <QString>
#include <string_view>

#include "model/language/resource_texts.h"
#include "ui/form/bytes.h"

// The resource texts of the editor forms.
namespace calyx::ui::form {

inline constexpr int kTipKey = 20200, kTipFirmware = 20201, kTipRange = 20202, kTipDefault = 20203,
                     kEmpty = 20204;
inline constexpr int kMarkChanged = 20205, kMarkNew = 20206, kMarkDiffers = 20207, kMarkProblem = 20208,
                     kNotKnown = 20209;
inline constexpr int kAllowed = 20210, kWholeNumber = 20211, kDecimalNumber = 20212, kDatePattern = 20213,
                     kTooLong = 20214, kTooLongBytes = 20215;
inline constexpr int kNoDate = 20220, kChooseDay = 20221, kToday = 20222, kPrevious = 20223, kNext = 20224;
inline constexpr int kCut = 20225, kCopy = 20226, kPaste = 20227, kSelectAll = 20228;
inline constexpr int kMenuDefault = 20230, kMenuRevert = 20231, kMenuCopy = 20232, kMenuLines = 20233,
                     kMenuFirmware = 20234, kIsDefault = 20235, kIsUnchanged = 20236, kNeverInLines = 20237,
                     kMenuHelp = 20238;
inline constexpr int kFirmwareTitle = 20240, kFirmwareNotSent = 20242, kClose = 20243, kFirmwareIntro = 20244;
// References: {1} number, {2} name, {3} kind.
inline constexpr int kChooseReference = 42500, kNothingToChoose = 42501, kNumberAndName = 42502,
                     kNumberNameAndKind = 42503, kNoScale = 42504, kByProgram = 42505, kNoBranch = 42506,
                     kNoOutput = 42507, kMainBoard = 42508, kSlotPoints = 42509;  // {1} slot, {2} points

// A text with its arguments filled in.
template <class... Argument>
QString Say(const ResourceTexts& texts, int number, const Argument&... arguments) {
    if constexpr (sizeof...(Argument) == 0) {
        return ToShown(texts.Text(number));
    } else {
        return ToShown(texts.Format(number, {std::string_view(QString(arguments).toStdString())...}));
    }
}

}  // namespace calyx::ui::form
