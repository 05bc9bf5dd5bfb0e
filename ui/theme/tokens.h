#pragma once

#include <QColor>
#include <QPalette>
#include <array>

namespace calyx::ui {

// The colours of one look. All looks have the same tokens, so whatever draws by token draws in each.
struct Tokens {
    // From the background of fields to text: 0 fields, 1 window, 2 raised, 3 dividers, 4 borders of
    // controls, 5 quiet text, 6 icons, 7 text.
    std::array<QColor, 8> grey;
    QColor accent;    // focus, selection, links
    QColor onAccent;  // text and ticks on the accent
    QColor held;      // behind text on what is pressed, chosen or pointed at
    QColor problem;   // text and icons of problems; always with a mark or words beside it
    int stroke = 1;   // borders, in pixels
};

const Tokens& LightTokens();
const Tokens& DarkTokens();
const Tokens& HighContrastTokens();  // for a screen in the sun

QPalette PaletteOf(const Tokens& tokens);

// Where a palette keeps each token, so that widgets follow a change of the look by themselves: give a
// label its colour with setForegroundRole(role::kQuietText).
namespace role {
inline constexpr QPalette::ColorRole kField = QPalette::Base, kWindow = QPalette::Window,
                                     kRaised = QPalette::AlternateBase, kDivider = QPalette::Mid,
                                     kHeld = QPalette::Midlight, kBorder = QPalette::Dark,
                                     kQuietText = QPalette::PlaceholderText, kIcon = QPalette::Shadow,
                                     kText = QPalette::WindowText, kAccent = QPalette::Highlight,
                                     kOnAccent = QPalette::HighlightedText, kProblem = QPalette::BrightText;
}  // namespace role

// Contrast of two colours after WCAG 2: 1 (none) to 21 (black on white).
double ContrastRatio(const QColor& a, const QColor& b);

}  // namespace calyx::ui
