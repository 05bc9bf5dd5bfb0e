#pragma once

// The 8-pixel grid, in device-independent pixels.
namespace calyx::ui::metrics {

inline constexpr int kHalf = 4;       // inside one control
inline constexpr int kRelated = 8;    // between related controls
inline constexpr int kGroups = 16;    // between groups
inline constexpr int kPageEdge = 24;  // around a page

inline constexpr int kControlHeight = 28;  // whatever takes a click

inline constexpr int kIconSmall = 16, kIconMedium = 24, kIconLarge = 32;

}  // namespace calyx::ui::metrics
