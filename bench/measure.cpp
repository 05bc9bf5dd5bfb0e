#include "bench/measure.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <iostream>

namespace calyx::bench {

Time Summary(std::vector<double> microseconds) {
    std::sort(microseconds.begin(), microseconds.end());
    return {microseconds[microseconds.size() / 2], microseconds.front()};
}

std::vector<Time> Interleaved(const std::vector<Contender>& contenders, int rounds) {
    using Clock = std::chrono::steady_clock;
    std::vector<std::vector<double>> times(contenders.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t i = 0; i < contenders.size(); ++i) {
            // Every other round backwards: nobody always comes after the same one.
            const std::size_t turn = round % 2 == 0 ? i : contenders.size() - 1 - i;
            const Contender& contender = contenders[turn];
            contender.prepare();
            const auto begin = Clock::now();
            contender.run();
            const auto end = Clock::now();
            contender.clean();
            times[turn].push_back(std::chrono::duration<double, std::micro>(end - begin).count());
        }
    }
    std::vector<Time> summaries;
    for (auto& own : times) summaries.push_back(Summary(std::move(own)));
    return summaries;
}

Table::Table(std::string title, std::vector<std::string> heading) : title_(std::move(title)) {
    rows_.push_back(std::move(heading));
}

void Table::Print() const {
    std::vector<std::size_t> widths;
    for (const auto& row : rows_) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) widths[i] = std::max(widths[i], row[i].size());
    }
    std::cout << '\n' << title_ << '\n';
    for (const auto& row : rows_) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            const std::string fill(widths[i] - row[i].size(), ' ');
            std::cout << "  " << (i == 0 ? row[i] + fill : fill + row[i]);
        }
        std::cout << '\n';
    }
    std::cout << std::flush;
}

std::string Fixed(double value, int decimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

std::string Microseconds(double value) {
    return value < 10000 ? Fixed(value, 0) + " us" : Fixed(value / 1000, 2) + " ms";
}

std::string Megabytes(long kilobytes) {
    return Fixed(static_cast<double>(kilobytes) / 1024, 1) + " MB";
}

}  // namespace calyx::bench
