#include "ui/theme/tokens.h"

#include <algorithm>
#include <cmath>

namespace calyx::ui {

const Tokens& LightTokens() {
    static const Tokens tokens{
        {"#ffffff", "#f5f6f7", "#e9ecee", "#d5dade", "#848d95", "#57616a", "#333b43", "#12171c"},
        "#0b6484",
        "#ffffff",
        "#d9dee2",
        "#b3261e",
        1};
    return tokens;
}

const Tokens& DarkTokens() {
    static const Tokens tokens{
        {"#12161a", "#1b2025", "#282e35", "#39414a", "#6f7a85", "#a4aeb8", "#c9d1d8", "#f0f3f5"},
        "#63c1de",
        "#06222c",
        "#39414a",
        "#ff9b8f",
        1};
    return tokens;
}

const Tokens& HighContrastTokens() {
    static const Tokens tokens{
        {"#ffffff", "#ffffff", "#efefef", "#5c5c5c", "#000000", "#2b2b2b", "#000000", "#000000"},
        "#00406b",
        "#ffffff",
        "#c9dbe8",
        "#8a0000",
        2};
    return tokens;
}

QPalette PaletteOf(const Tokens& tokens) {
    const auto& grey = tokens.grey;
    QPalette palette;
    palette.setColor(role::kField, grey[0]);
    palette.setColor(role::kWindow, grey[1]);
    palette.setColor(role::kRaised, grey[2]);
    palette.setColor(QPalette::Button, grey[2]);
    palette.setColor(role::kDivider, grey[3]);
    palette.setColor(role::kHeld, tokens.held);
    palette.setColor(QPalette::Light, grey[2]);
    palette.setColor(role::kBorder, grey[4]);
    palette.setColor(role::kQuietText, grey[5]);
    palette.setColor(role::kIcon, grey[6]);
    palette.setColor(role::kText, grey[7]);
    palette.setColor(QPalette::Text, grey[7]);
    palette.setColor(QPalette::ButtonText, grey[7]);
    palette.setColor(QPalette::ToolTipBase, grey[0]);
    palette.setColor(QPalette::ToolTipText, grey[7]);
    palette.setColor(role::kAccent, tokens.accent);
    palette.setColor(role::kOnAccent, tokens.onAccent);
    palette.setColor(QPalette::Link, tokens.accent);
    palette.setColor(QPalette::LinkVisited, tokens.accent);
    palette.setColor(role::kProblem, tokens.problem);
    for (const auto part : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, part, grey[5]);
    }
    return palette;
}

double ContrastRatio(const QColor& a, const QColor& b) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const auto luminance = [&](const QColor& colour) {
        return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
               0.0722 * linear(colour.blueF());
    };
    const double one = luminance(a), other = luminance(b);
    return (std::max(one, other) + 0.05) / (std::min(one, other) + 0.05);
}

}  // namespace calyx::ui
