#include "ui/mod_main.h"

int main(int argc, char** argv) {
    return calyx::ui::modMain::Run(argc, argv);
}
