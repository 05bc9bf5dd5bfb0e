#pragma once

// The resource texts of the screen editor: 40600 to 40799.
namespace calyx::ui::widget_text {

// What a widget is called.
inline constexpr int kNamed = 40600;       // {1} kind, {2} name
inline constexpr int kNumbered = 40601;    // {1} kind, {2} number of the widget
inline constexpr int kScaleNamed = 40602;  // {1} kind, {2} number of the scale
inline constexpr int kSeveral = 40603;     // {1} count
inline constexpr int kHidden = 40604;      // {1} what it is called
inline constexpr int kPlaceWords = 40605;  // {1} what it is called, {2} left, {3} top, {4} width, {5} height
inline constexpr int kPastLimit = 40606;   // {1} what it is called

// Screens
inline constexpr int kScreensName = 40610;
inline constexpr int kScreenWords = 40611;     // {1} screen, {2} count
inline constexpr int kScreenWordsOne = 40612;  // {1} screen
inline constexpr int kScreenEmpty = 40613;     // {1} screen
inline constexpr int kCanvasName = 40614;      // {1} screen
inline constexpr int kCanvasHelp = 40615;
inline constexpr int kEmptyHeading = 40616;  // {1} screen
inline constexpr int kEmptyHint = 40617;
inline constexpr int kScreenName = 40608;  // {1} screen
inline constexpr int kListName = 40618;    // {1} screen

// Palette
inline constexpr int kPaletteName = 40620;
inline constexpr int kPaletteTip = 40621;  // {1} kind
inline constexpr int kPlacing = 40622;     // {1} kind
// Help of the kinds, by their codes 1 to 6 behind this number.
inline constexpr int kKindHelp = 40622;

// Gauge
inline constexpr int kGaugeName = 40630;
inline constexpr int kGauge = 40631;         // {1} used, {2} limit
inline constexpr int kGaugeOver = 40633;     // {1} beyond the limit
inline constexpr int kGaugeTip = 40634;      // {1} limit
inline constexpr int kGaugeOverTip = 40635;  // {1} limit, {2} widgets beyond it, in words

// Bar below the screen
inline constexpr int kSnap = 40640;
inline constexpr int kSnapTip = 40641;
inline constexpr int kGridWidth = 40642;
inline constexpr int kGridHeight = 40643;
inline constexpr int kLock = 40644;
inline constexpr int kLockTip = 40645;
inline constexpr int kZoomIn = 40646;
inline constexpr int kZoomOut = 40647;
inline constexpr int kZoomFit = 40648;
inline constexpr int kZoomFitTip = 40649;
inline constexpr int kZoomName = 40650;
inline constexpr int kPercent = 40651;  // {1} number
inline constexpr int kBy = 40652;

// Properties
inline constexpr int kPropertiesName = 40655;
inline constexpr int kNothingChosen = 40656;
inline constexpr int kDifferent = 40657;
inline constexpr int kAlphabetic = 40658;
inline constexpr int kAlphabeticTip = 40659;
inline constexpr int kDescription = 40660;
inline constexpr int kDescriptionTip = 40661;
inline constexpr int kAllowedText = 40663;  // {1} help, {2} least, {3} most
inline constexpr int kNoCommon = 40664;

// Commands; a tip follows its caption by 40.
inline constexpr int kCut = 40670;
inline constexpr int kCopy = 40671;
inline constexpr int kPaste = 40672;
inline constexpr int kDuplicate = 40673;
inline constexpr int kDelete = 40674;
inline constexpr int kSelectAll = 40675;
inline constexpr int kToFront = 40676;
inline constexpr int kForward = 40677;
inline constexpr int kBackward = 40678;
inline constexpr int kToBack = 40679;
inline constexpr int kAlignLeft = 40680;
inline constexpr int kAlignCentre = 40681;
inline constexpr int kAlignRight = 40682;
inline constexpr int kAlignTop = 40683;
inline constexpr int kAlignMiddle = 40684;
inline constexpr int kAlignBottom = 40685;
inline constexpr int kSpreadAcross = 40686;
inline constexpr int kSpreadDown = 40687;
inline constexpr int kSameWidth = 40688;
inline constexpr int kSameHeight = 40689;
inline constexpr int kImport = 40690;
inline constexpr int kTipOf = 40;

inline constexpr int kOrderMenu = 40695;
inline constexpr int kAlignMenu = 40696;
inline constexpr int kSizeMenu = 40697;
inline constexpr int kToolsName = 40698;

// Steps of undo; {1} the widgets.
inline constexpr int kStepAdd = 40740;  // {2} screen
inline constexpr int kStepMove = 40741;
inline constexpr int kStepResize = 40742;
inline constexpr int kStepAlign = 40743;
inline constexpr int kStepSpread = 40744;
inline constexpr int kStepSize = 40745;
inline constexpr int kStepOrder = 40746;
inline constexpr int kStepCut = 40747;
inline constexpr int kStepPaste = 40748;  // {2} screen
inline constexpr int kStepDuplicate = 40749;
inline constexpr int kStepDelete = 40750;
inline constexpr int kStepProperty = 40751;  // {2} property
inline constexpr int kStepImport = 40752;    // {2} screen

// Told when a command cannot run, and what it has done.
inline constexpr int kChooseFirst = 40755;
inline constexpr int kNeedTwo = 40756;
inline constexpr int kNeedThree = 40757;
inline constexpr int kNoPlace = 40758;
inline constexpr int kNoSize = 40759;
inline constexpr int kLocked = 40760;
inline constexpr int kAtEdge = 40761;
inline constexpr int kAlreadySo = 40762;
inline constexpr int kClipboardEmpty = 40763;
inline constexpr int kCopied = 40764;       // {1} count
inline constexpr int kPasted = 40765;       // {1} count
inline constexpr int kNothingHere = 40766;  // {1} screen
inline constexpr int kArrayFull = 40767;

// Import of a screen
inline constexpr int kImportTitle = 40770;
inline constexpr int kImportFilter = 40771;
inline constexpr int kImportAll = 40772;
inline constexpr int kImportFrom = 40773;
inline constexpr int kImportTo = 40774;
inline constexpr int kImportAdd = 40775;
inline constexpr int kImportCancel = 40776;
inline constexpr int kImportNone = 40777;  // {1} file
inline constexpr int kImportFailed = 40778;
inline constexpr int kImported = 40779;       // {1} count, {2} screen
inline constexpr int kImportFile = 40780;     // {1} file
inline constexpr int kImportPreview = 40781;  // {1} screen
inline constexpr int kImportKeeps = 40782;

}  // namespace calyx::ui::widget_text
