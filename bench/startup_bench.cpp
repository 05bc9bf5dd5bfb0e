// Start of the programs, against the emptiest ones of their kind.
//   calyx-bench-startup --empty PROGRAM [--cli PROGRAM] [--empty-window PROGRAM --ui PROGRAM] [--rounds N]

#include <unistd.h>

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "bench/child.h"
#include "bench/measure.h"

namespace {

using namespace calyx::bench;

using Command = std::vector<std::string>;
constexpr double kAim = 3;

// Settings, logs and files of recovery go here, and not to the user's own.
class Folder {
  public:
    Folder() : path_(std::filesystem::temp_directory_path() / ("calyx-bench-" + std::to_string(getpid()))) {
        std::filesystem::create_directories(path_);
    }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    std::string Text() const { return path_.string(); }

  private:
    std::filesystem::path path_;
};

struct Starts {
    Time time;
    long peakKilobytes = 0;  // median
};

Starts Summarise(const std::vector<Outcome>& outcomes) {
    std::vector<double> times, peaks;
    for (const Outcome& outcome : outcomes) {
        times.push_back(outcome.microseconds);
        peaks.push_back(static_cast<double>(outcome.peakKilobytes));
    }
    return {Summary(times), static_cast<long>(Summary(peaks).median)};
}

void Measure(Table& table, const std::string& what, const Command& floor, const Command& ours, int rounds) {
    if (ours.front().empty() || floor.front().empty()) {
        table.Row({what, "not built"});
        return;
    }
    // The first start of each only fills the system's cache.
    RunProgram(floor), RunProgram(ours);
    std::vector<Outcome> floors, own;
    for (int round = 0; round < rounds; ++round) {
        floors.push_back(RunProgram(floor));
        own.push_back(RunProgram(ours));
    }
    const Starts least = Summarise(floors), calyx = Summarise(own);
    const double ratio = calyx.time.median / least.time.median, best = calyx.time.best / least.time.best;
    table.Row({what, Microseconds(least.time.median), Microseconds(calyx.time.median), Fixed(ratio, 2),
               Fixed(best, 2), "within " + Fixed(kAim, 0), ratio <= kAim ? "met" : "missed",
               Megabytes(least.peakKilobytes), Megabytes(calyx.peakKilobytes)});
}

}  // namespace

int main(int count, char** arguments) {
    CLI::App app("Start of the programs, against the emptiest ones of their kind");
    std::string empty, cli, emptyWindow, ui;
    int rounds = 40;
    app.add_option("--empty", empty, "the empty program")->required()->check(CLI::ExistingFile);
    app.add_option("--cli", cli, "the command line program")->check(CLI::ExistingFile);
    app.add_option("--ui", ui, "the desktop program")->check(CLI::ExistingFile);
    app.add_option("--empty-window", emptyWindow, "the empty desktop program")->check(CLI::ExistingFile);
    app.add_option("--rounds", rounds, "rounds of each measurement")->check(CLI::Range(5, 10000));
    CLI11_PARSE(app, count, arguments);
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    try {
        const Folder folder;
        Table table(
            "Start to end, medians of " + std::to_string(rounds) + " rounds in turn, files in the cache",
            {"", "empty", "Calyx", "times empty", "fastest", "aim", "", "peak, empty", "peak, Calyx"});
        Measure(table, "calyx-cli --version", {empty}, {cli, "--version"}, rounds);
        Measure(table, "calyx, first paint, offscreen", {emptyWindow},
                {ui, "--quit-after-first-paint", "--user-dir", folder.Text(), "--data-dir", CALYX_DATA_DIR},
                rounds);
        table.Print();
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "calyx-bench-startup: " << error.what() << '\n';
        return 1;
    }
}
