#include <iostream>

#include "cli/run.h"
#include "cli/terminal/output_buffer.h"
#include "cli/terminal/terminal.h"

int main(int argc, char** argv) {
    using namespace calyx::cli;
    terminal::Prepare();
    OutputBuffer buffer(stdout);
    std::ostream out(&buffer);
    Console console{out,
                    std::cerr,
                    std::cin,
                    terminal::IsTerminal(stderr),
                    terminal::IsTerminal(stdin),
                    terminal::WatchInterrupt,
                    [&buffer] { return buffer.Failure(); }};
    return RunCli({argv + 1, argv + argc}, console);
}
