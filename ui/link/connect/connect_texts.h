#pragma once

// Numbers of the resource texts of the connect dialog: 41600 to 41659.
namespace calyx::ui::connect_text {

inline constexpr int kSerial = 41600;
inline constexpr int kTcp = 41601;
inline constexpr int kPort = 41602;
inline constexpr int kPortTip = 41603;
inline constexpr int kRefresh = 41604;
inline constexpr int kRefreshTip = 41605;
inline constexpr int kNoPorts = 41606;
inline constexpr int kBaud = 41607;
inline constexpr int kParity = 41608;
inline constexpr int kParityNone = 41609;
inline constexpr int kParityEven = 41610;
inline constexpr int kParityOdd = 41611;
inline constexpr int kDataBits = 41612;
inline constexpr int kStopBits = 41613;
inline constexpr int kHandshake = 41614;
inline constexpr int kNoHandshake = 41615;
inline constexpr int kAddressed = 41616;
inline constexpr int kAddressTip = 41617;
inline constexpr int kEveryTime = 41618;
inline constexpr int kEveryTimeTip = 41619;
inline constexpr int kStoredFirst = 41620;
inline constexpr int kStoredFirstTip = 41621;
inline constexpr int kDetect = 41622;
inline constexpr int kDetectTip = 41623;
inline constexpr int kTrying = 41624;  // {1} settings, {2} seconds
inline constexpr int kFound = 41625;   // {1} settings
inline constexpr int kNotFound = 41626;
inline constexpr int kDetectGivenUp = 41627;
inline constexpr int kNeedPort = 41628;
inline constexpr int kSerialHint = 41629;
inline constexpr int kPortWithWords = 41631;  // {1} port, {2} what it is
inline constexpr int kAddressName = 41633;

}  // namespace calyx::ui::connect_text
