#pragma once

// The resource texts of tables of items.
namespace calyx::ui::say {

inline constexpr int kOpenPage = 40110;
inline constexpr int kCopyItems = 40111;
inline constexpr int kPasteItems = 40112;
inline constexpr int kClearItems = 40113;
inline constexpr int kOpenTip = 40114;
inline constexpr int kCopyTip = 40115;
inline constexpr int kPasteTip = 40116;
inline constexpr int kClearItemsTip = 40117;

}  // namespace calyx::ui::say
