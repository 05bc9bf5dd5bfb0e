// Opening and saving a full-size configuration, against floors measured in the same run.
//   calyx-bench-open-save [--rounds N] [--folder DIR]

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>

#include "bench/child.h"
#include "bench/floor.h"
#include "bench/generator.h"
#include "bench/measure.h"
#include "model/document/indicator.h"
#include "platform/file_store.h"
#include "tests/support/model_fixture.h"

namespace {

using namespace calyx;
using namespace calyx::bench;

constexpr const char* kInMemory = "plant.mrn";
constexpr double kWarmAim = 5, kColdAim = 3, kSaveAim = 2;
constexpr int kColdShare = 4, kFileShare = 4;  // of the rounds, for what waits for the disk

// What the measurements share: the configuration in memory and on disk, and who holds it.
struct Bench {
    explicit Bench(const std::string& where)
        : text(AsSaved(memory, FullSizeFile())),
          folder(where),
          path(where + "/calyx-bench-full-size.mrn"),
          out(where + "/calyx-bench-saved.mrn") {
        memory.memory.files[kInMemory] = text;
        disk.files = &store;
        FloorWrite(path, text);
    }
    ~Bench() {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
        std::filesystem::remove(out, ignored);
    }
    Bench(const Bench&) = delete;
    Bench& operator=(const Bench&) = delete;

    // The generated lines as the program itself writes them.
    static std::string AsSaved(const ModelContext& context, const std::string& generated) {
        CIndicator document(context);
        document.LoadText(generated, kInMemory);
        return document.FileText();
    }

    test::TestContext memory{CALYX_DATA_DIR};
    test::TestContext disk{CALYX_DATA_DIR};
    FileStore store;
    std::string text;
    std::string folder, path, out;
};

void Check(const Bench& bench) {
    CIndicator document(bench.memory);
    const ReadReport report = document.Load(kInMemory, false);
    for (const ReadNote& note : report.Notes()) {
        // What an analog input scale has no line for at present is read all the same.
        if (note.kind == ReadNote::Kind::NotWritten) continue;
        throw std::runtime_error("line " + std::to_string(note.line) +
                                 " is not kept as it stands: " + note.key + "=" + note.value);
    }
    if (document.FileText() != bench.text)
        throw std::runtime_error("the document does not write the file that it was read from");
    std::cout << "Full-size configuration: " << document.Lines().size() << " lines, " << bench.text.size()
              << " bytes" << std::endl;
}

// A row: what, the floor, Calyx, how many times the floor, what it should be within.
void AddRow(Table& table, const std::string& what, double floor, double ours, std::optional<double> aim) {
    const double ratio = ours / floor;
    table.Row({what, Microseconds(floor), Microseconds(ours), Fixed(ratio, 2),
               aim ? "within " + Fixed(*aim, 0) : "",
               !aim            ? ""
               : ratio <= *aim ? "met"
                               : "missed"});
}

template <class Open, class FloorOpen>
void MeasureOpen(
    Table& table, const std::string& what, int rounds, std::optional<double> aim, const FloorOpen& floorOpen,
    const Open& open, const std::function<void()>& before = [] {}) {
    std::string text;
    std::optional<FloorTable> lines;
    std::optional<CIndicator> document;
    const auto times = Interleaved(
        {{"floor", [&] { lines.emplace(text = floorOpen()); }, before, [&] { lines.reset(), text = {}; }},
         {"Calyx", [&] { open(document); }, before, [&] { document.reset(); }}},
        rounds);
    AddRow(table, what, times[0].median, times[1].median, aim);
}

// The first open of a process, so that neither code nor memory has been touched before.
void MeasureFirstOpen(Table& table, const Bench& bench, int rounds, std::optional<double> aim) {
    std::vector<double> floors, ours;
    for (int round = 0; round < rounds; ++round) {
        DropFromCache(bench.path);
        floors.push_back(InChild([&] {
                             const std::string text = FloorRead(bench.path);
                             const FloorTable lines(text);
                         }).microseconds);
        DropFromCache(bench.path);
        ours.push_back(InChild([&] {
                           CIndicator document(bench.disk);
                           document.Load(bench.path, false);
                       }).microseconds);
    }
    AddRow(table, "open, cold file, first of a process", Summary(floors).median, Summary(ours).median, aim);
}

void MeasureOpening(Table& table, const Bench& bench, int rounds, bool dropped) {
    const std::optional<double> coldAim = dropped ? std::optional(kColdAim) : std::nullopt;
    MeasureFirstOpen(table, bench, rounds / kColdShare, coldAim);
    const auto load = [](const ModelContext& context, const std::string& path) {
        return [&context, path](std::optional<CIndicator>& document) {
            document.emplace(context).Load(path, false);
        };
    };
    MeasureOpen(
        table, "open, warm, text in memory", rounds, kWarmAim,
        [&] { return bench.memory.memory.Read(kInMemory); }, load(bench.memory, kInMemory));
    MeasureOpen(
        table, "open, warm, file in the cache", rounds, kWarmAim, [&] { return FloorRead(bench.path); },
        load(bench.disk, bench.path));
    MeasureOpen(
        table, "open, cold file", rounds / kColdShare, coldAim, [&] { return FloorRead(bench.path); },
        load(bench.disk, bench.path), [&] { DropFromCache(bench.path); });
}

void MeasureSaving(Table& table, const Bench& bench, int rounds) {
    CIndicator document(bench.disk);
    document.Load(bench.path, false);
    const FloorTable lines(bench.text);
    std::string text;
    const auto dropText = [&] { text = {}; };
    const auto texts = Interleaved({{"floor", [&] { text = lines.Text(); }, [] {}, dropText},
                                    {"Calyx", [&] { text = document.FileText(); }, [] {}, dropText}},
                                   rounds);
    AddRow(table, "save, to text in memory", texts[0].median, texts[1].median, std::nullopt);

    // Calyx flushes the folder too, so that the new name lasts as well as the bytes.
    const auto gone = [&] { std::filesystem::remove(bench.out); };
    const auto floor = [&] { FloorWrite(bench.out, bench.text); };
    const auto files = Interleaved({{"floor", floor, gone},
                                    {"floor, folder too", [&] { floor(), FlushFolder(bench.folder); }, gone},
                                    {"Calyx", [&] { document.Save(bench.out, false); }, gone}},
                                   rounds / kFileShare);
    AddRow(table, "save, to a new file; floor: file flushed", files[0].median, files[2].median, kSaveAim);
    AddRow(table, "save, to a new file; floor: file and folder", files[1].median, files[2].median,
           std::nullopt);
}

void MeasureMemory(const Bench& bench) {
    const long none = InChild([] {}).peakKilobytes;
    const long floor = InChild([&] {
                           const std::string text = FloorRead(bench.path);
                           const FloorTable lines(text);
                       }).peakKilobytes;
    const long ours = InChild([&] {
                          CIndicator document(bench.disk);
                          document.Load(bench.path, false);
                          document.Save(bench.out, false);
                      }).peakKilobytes;
    Table table("Peak memory above that of the benchmark itself (" + Megabytes(none) + ")", {"", "peak"});
    table.Row({"floor, open", Megabytes(floor - none)});
    table.Row({"Calyx, open and save", Megabytes(ours - none)});
    table.Print();
}

void Run(int rounds, const std::string& folder) {
    const Bench bench(folder);
    // In a process of its own: memory that this one has used once would hide in the peaks.
    InChild([&] { Check(bench); });
    const bool dropped = DropFromCache(bench.path) == 0;
    std::cout << "Cold: "
              << (dropped ? "the file is dropped from the system's cache before every round"
                          : "the system keeps the file in its cache here, so nothing is cold")
              << '\n';
    MeasureMemory(bench);
    Table table("Open and save, medians of " + std::to_string(rounds) + " rounds in turn (cold " +
                    std::to_string(rounds / kColdShare) + ", files " + std::to_string(rounds / kFileShare) +
                    ")",
                {"", "floor", "Calyx", "times floor", "aim", ""});
    MeasureOpening(table, bench, rounds, dropped);
    MeasureSaving(table, bench, rounds);
    table.Print();
}

}  // namespace

int main(int count, char** arguments) {
    CLI::App app("Opening and saving a full-size configuration, against floors measured in the same run");
    int rounds = 400;
    std::string folder = std::filesystem::temp_directory_path().string();
    app.add_option("--rounds", rounds, "rounds of each measurement")->check(CLI::Range(40, 100000));
    app.add_option("--folder", folder, "where files are written")->check(CLI::ExistingDirectory);
    CLI11_PARSE(app, count, arguments);
    try {
        Run(rounds, folder);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "calyx-bench-open-save: " << error.what() << '\n';
        return 1;
    }
}
