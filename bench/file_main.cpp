// Writes the full-size configuration that the benchmarks use: calyx-bench-file OUT

#include <fstream>
#include <iostream>

#include "bench/generator.h"

int main(int count, char** arguments) {
    if (count != 2) {
        std::cerr << "usage: calyx-bench-file OUT\n";
        return 2;
    }
    std::ofstream out(arguments[1], std::ios::binary);
    out << calyx::bench::FullSizeFile() << std::flush;
    if (out) return 0;
    std::cerr << "calyx-bench-file: cannot write " << arguments[1] << "\n";
    return 3;
}
