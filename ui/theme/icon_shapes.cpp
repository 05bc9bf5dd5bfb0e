#include "ui/theme/icon_shapes.h"

namespace calyx::ui {

std::string_view IconStrokes(IconName name) {
    switch (name) {
        case IconName::New:  // a sheet
            return "M 3 1 L 9 1 L 13 5 L 13 15 L 3 15 Z M 9 1 L 9 5 L 13 5";
        case IconName::Open:  // a folder
            return "M 1 13 L 1 3 L 6 3 L 8 5 L 14 5 L 14 7 M 1 13 L 4 7 L 15 7 L 13 13 Z";
        case IconName::Save:  // a tray and an arrow into it
            return "M 8 1 L 8 10 M 4 6 L 8 10 L 12 6 M 1 11 L 1 15 L 15 15 L 15 11";
        case IconName::Undo:
            return "M 5 2 L 2 5 L 5 8 M 2 5 L 9 5 Q 14 5 14 9 Q 14 13 9 13 L 6 13";
        case IconName::Redo:
            return "M 11 2 L 14 5 L 11 8 M 14 5 L 7 5 Q 2 5 2 9 Q 2 13 7 13 L 10 13";
        case IconName::Connect:  // a plug
            return "M 5 1 L 5 5 M 11 1 L 11 5 M 3 5 L 13 5 L 13 8 Q 13 11 10 11 L 6 11 Q 3 11 3 8 Z M 8 11 L "
                   "8 15";
        case IconName::Send:  // out to the indicator
            return "M 8 11 L 8 1 M 4 5 L 8 1 L 12 5 M 1 9 L 1 15 L 15 15 L 15 9";
        case IconName::Read:  // from the indicator
            return "M 1 7 L 1 1 L 15 1 L 15 7 M 8 5 L 8 15 M 4 11 L 8 15 L 12 11";
        case IconName::Compare:  // two sheets
            return "M 1 2 L 6 2 L 6 14 L 1 14 Z M 10 2 L 15 2 L 15 14 L 10 14 Z M 3 6 L 4 6 M 12 6 L 13 6 M "
                   "12 9 L 13 9";
        case IconName::Find:
            return "O 6 6 5 M 10 10 L 15 15";
        case IconName::Problem:  // the exclamation in its triangle
            return "M 8 1 L 15 14 L 1 14 Z M 8 6 L 8 9 D 8 11.7 0.9";
        case IconName::Changed:
            return "D 8 8 3.5";
        case IconName::Differs:
            return "M 8 3 L 13 8 L 8 13 L 3 8 Z";
        case IconName::General:  // sliders
            return "M 1 4 L 8 4 M 12 4 L 15 4 O 10 4 2 M 1 12 L 4 12 M 8 12 L 15 12 O 6 12 2";
        case IconName::Hardware:  // a circuit
            return "M 4 4 L 12 4 L 12 12 L 4 12 Z M 6 1 L 6 4 M 10 1 L 10 4 M 6 12 L 6 15 M 10 12 L 10 15 "
                   "M 1 6 L 4 6 M 1 10 L 4 10 M 12 6 L 15 6 M 12 10 L 15 10";
        case IconName::Ports:  // a connector with pins
            return "M 1 4 L 15 4 L 13 12 L 3 12 Z D 5 7 0.9 D 8 7 0.9 D 11 7 0.9 D 6.5 10 0.9 D 9.5 10 0.9";
        case IconName::Scales:  // a platform
            return "M 1 4 L 15 4 M 8 4 L 8 6 M 3 15 L 4 7 L 12 7 L 13 15 Z O 8 11 2";
        case IconName::Setpoints:  // a level and what it switches
            return "M 1 5 L 15 5 M 1 15 Q 5 15 7 9 Q 9 5 15 1";
        case IconName::Tickets:  // a torn slip
            return "M 3 1 L 13 1 L 13 15 L 10 13 L 8 15 L 6 13 L 3 15 Z M 6 5 L 10 5 M 6 8 L 10 8";
        case IconName::Screens:
            return "M 1 2 L 15 2 L 15 11 L 1 11 Z M 8 11 L 8 15 M 4 15 L 12 15";
        case IconName::Prompts:  // a question said
            return "M 1 2 L 15 2 L 15 11 L 8 11 L 4 15 L 4 11 L 1 11 Z M 4 5 L 12 5 M 4 8 L 9 8";
        case IconName::Boxes:  // cells into one box
            return "M 4 8 L 12 8 L 12 15 L 4 15 Z M 2 1 L 2 4 L 6 8 M 8 1 L 8 8 M 14 1 L 14 4 L 10 8";
        case IconName::Fieldbus:  // stations on a line
            return "M 1 8 L 15 8 M 4 8 L 4 5 M 12 8 L 12 5 M 8 8 L 8 11 M 2 1 L 6 1 L 6 5 L 2 5 Z "
                   "M 10 1 L 14 1 L 14 5 L 10 5 Z M 6 11 L 10 11 L 10 15 L 6 15 Z";
        case IconName::Digital:  // on and off
            return "M 1 12 L 4 12 L 4 4 L 8 4 L 8 12 L 12 12 L 12 4 L 15 4";
        case IconName::Analog:  // a wave
            return "M 1 8 Q 4.5 -4 8 8 Q 11.5 20 15 8";
        case IconName::Custom:  // lines of one's own
            return "M 5 4 L 1 8 L 5 12 M 11 4 L 15 8 L 11 12 M 9 2 L 7 14";
        case IconName::SoftKeys:  // keys below a display
            return "M 1 2 L 15 2 L 15 9 L 1 9 Z M 1 12 L 5 12 L 5 15 L 1 15 Z M 6 12 L 10 12 L 10 15 L 6 15 "
                   "Z "
                   "M 11 12 L 15 12 L 15 15 L 11 15 Z";
        case IconName::Lock:
            return "M 3 7 L 13 7 L 13 15 L 3 15 Z M 5 7 L 5 4 Q 5 1 8 1 Q 11 1 11 4 L 11 7 M 8 10 L 8 12";
        case IconName::Database:  // a table
            return "M 1 2 L 15 2 L 15 14 L 1 14 Z M 1 6 L 15 6 M 1 10 L 15 10 M 6 2 L 6 14";
        case IconName::Info:
            return "O 8 8 7 D 8 4.6 1 M 8 7 L 8 12";
        case IconName::Question:
            return "O 8 8 7 M 6 6 Q 6 4 8 4 Q 10 4 10 6 Q 10 8 8 8.4 L 8 9 D 8 11.4 1";
        case IconName::Close:
            return "M 3 3 L 13 13 M 13 3 L 3 13";
        case IconName::Previous:
            return "M 10 3 L 5 8 L 10 13";
        case IconName::Next:
            return "M 6 3 L 11 8 L 6 13";
        case IconName::Calendar:
            return "M 1 3 L 15 3 L 15 15 L 1 15 Z M 1 6 L 15 6 M 5 1 L 5 3 M 11 1 L 11 3 D 5 9 0.9 D 8 9 0.9 "
                   "D 11 9 0.9 "
                   "D 5 12 0.9 D 8 12 0.9";
    }
    return {};
}

}  // namespace calyx::ui
