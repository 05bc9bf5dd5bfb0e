#pragma once

// The resource texts of the pages of junction boxes.
namespace calyx::ui::boxes_text {

inline constexpr int kNoBoxes = 41200;
inline constexpr int kGoToPort = 41201;  // {1} port

inline constexpr int kTabs[] = {41202, 41203, 41204, 41205};
inline constexpr int kPictureName = 41206;
inline constexpr int kConfiguration = 41207;  // {1} word, {2} cells
inline constexpr int kChange = 41208, kChangeTip = 41209;

// in the picture
inline constexpr int kLanes[] = {41210, 41211, 41212};
inline constexpr int kNotAssigned = 41213;  // {1} how many
inline constexpr int kAllAssigned = 41214;
inline constexpr int kCells = 41215, kOneCell = 41216, kNoCells = 41217;  // {1} how many
inline constexpr int kNotInSystem = 41218;
inline constexpr int kPlatforms = 41219, kOnePlatform = 41220, kNoPlatforms = 41221;  // {1} how many
inline constexpr int kConnector = 41222;                                              // {1} board and place
inline constexpr int kNoConnector = 41223;

inline constexpr int kAssign = 41230, kAssignTip = 41231;
inline constexpr int kUnassign = 41232, kUnassignTip = 41233;
inline constexpr int kInSystem = 41234, kInSystemTip = 41235;
inline constexpr int kAssignTo = 41256;  // {1} platform
inline constexpr int kChooseCell = 41236, kChoosePlatform = 41237, kOnNoPlatform = 41238;
inline constexpr int kHasNoConnector = 41239;  // {1} cell

// steps
inline constexpr int kCellTo = 41240;    // {1} cell, {2} platform
inline constexpr int kCellsTo = 41241;   // {1} how many, {2} platform
inline constexpr int kCellOff = 41242;   // {1} cell
inline constexpr int kCellsOff = 41243;  // {1} how many
inline constexpr int kPlatformIn = 41244, kPlatformOut = 41245, kPlatformIsOut = 41246;  // {1} platform

// as they are spoken
inline constexpr int kCellOn = 41250;          // {1} number, {2} name, {3} platform
inline constexpr int kCellFree = 41251;        // {1} number, {2} name
inline constexpr int kPlatformUsed = 41252;    // {1} name, {2} cells
inline constexpr int kPlatformUnused = 41253;  // {1} name, {2} cells
inline constexpr int kSystemSpoken = 41254;    // {1} name, {2} platforms
inline constexpr int kKeys = 41255;

// grids
inline constexpr int kPlatformColumn = 41260, kParameterColumn = 41261, kCellColumn = 41264;
inline constexpr int kUnassigned = 41262;
inline constexpr int kCellHeadings[] = {41265, 41266, 41267, 41268, 41269, 41270};

}  // namespace calyx::ui::boxes_text
