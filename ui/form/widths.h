#pragma once

namespace calyx::ui::form {

// Widths of controls come in steps, so that those of about one length end in one line; long ones in
// finer steps, so that they leave room for a second column.
constexpr int InSteps(int width) {
    const int step = width <= 160 ? 32 : 16;
    return (width + step - 1) / step * step;
}

}  // namespace calyx::ui::form
