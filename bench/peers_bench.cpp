// Loading and saving the lines of a full-size configuration, by Calyx and by general libraries, each in
// its own form.
//   calyx-bench-peers [--rounds N] [--folder DIR]

#include <CLI/CLI.hpp>
#include <filesystem>
#include <iostream>
#include <optional>
#include <set>

#include "bench/child.h"
#include "bench/floor.h"
#include "bench/generator.h"
#include "bench/measure.h"
#include "bench/peers/peer.h"
#include "model/document/indicator.h"
#include "platform/file_store.h"
#include "tests/support/model_fixture.h"

namespace {

using namespace calyx;
using namespace calyx::bench;

class CalyxPeer final : public Peer {
  public:
    CalyxPeer() : context_(CALYX_DATA_DIR) { context_.files = &store_; }

    void Make(const std::vector<KeyValue>&, const std::string& path) override {
        store_.Replace(path, FullSizeFile());
    }
    void Load(const std::string& path) override { document_.emplace(context_).Load(path, false); }
    std::size_t Count() const override { return document_->Lines().size(); }
    void Save(const std::string& path) override { document_->Save(path, false); }
    void Clear() override { document_.reset(); }

  private:
    test::TestContext context_;
    FileStore store_;
    std::optional<CIndicator> document_;
};

struct Named {
    std::string name;
    std::unique_ptr<Peer> peer;
};

std::vector<Named> MakePeers() {
    std::vector<Named> peers;
    peers.push_back({"Calyx", std::make_unique<CalyxPeer>()});
    peers.push_back({"QSettings", MakeQSettingsPeer()});
    peers.push_back({"SimpleIni", MakeSimpleIniPeer()});
    peers.push_back({"Boost property_tree", MakePropertyTreePeer()});
    return peers;
}

struct Result {
    Time load, save;
    long peakKilobytes = 0;
    std::uintmax_t bytes = 0;
};

// Measures the peers in turn. Every round has file names of its own: QSettings would know a file again
// by its name and not read it.
class Measurement {
  public:
    Measurement(const std::vector<Named>& peers, const std::string& folder) : folder_(folder) {
        for (const Named& named : peers) {
            if (!named.peer) continue;
            peers_.push_back({named.peer.get(), Name("made")});
            // In a process of its own: memory that this one has used once would hide in the peaks.
            InChild([&] { MakeAndCheck(named, peers_.back().made); });
        }
    }
    ~Measurement() {
        for (const Made& made : peers_) Remove(made.made);
    }
    Measurement(const Measurement&) = delete;
    Measurement& operator=(const Measurement&) = delete;

    std::vector<Result> Run(int rounds) {
        std::vector<Result> results(peers_.size());
        const long none = InChild([] {}).peakKilobytes;
        for (std::size_t i = 0; i < peers_.size(); ++i) {
            results[i].bytes = std::filesystem::file_size(peers_[i].made);
            results[i].peakKilobytes = Peak(peers_[i]) - none;
        }
        const auto loads = Interleaved(Contenders(&Measurement::Loading), rounds);
        const auto saves = Interleaved(Contenders(&Measurement::Saving), rounds);
        for (std::size_t i = 0; i < peers_.size(); ++i) {
            results[i].load = loads[i];
            results[i].save = saves[i];
        }
        return results;
    }

  private:
    struct Made {
        Peer* peer;
        std::string made;  // file in the peer's form
    };

    // Everyone holds the lines that Calyx has of the configuration: no indicator has room for all its cards.
    static std::vector<KeyValue> LinesHeld() {
        const test::TestContext context(CALYX_DATA_DIR);
        CIndicator document(context);
        document.LoadText(FullSizeFile(), "full size");
        std::vector<KeyValue> lines;
        std::set<std::string> keys;
        for (KeyValue& line : document.Lines()) {  // a scale of kind 5 writes some lines twice
            if (keys.insert(line.key).second) lines.push_back(std::move(line));
        }
        return lines;
    }
    static void MakeAndCheck(const Named& named, const std::string& path) {
        const auto lines = LinesHeld();
        named.peer->Make(lines, path);
        named.peer->Load(path);
        if (named.peer->Count() < lines.size())
            throw std::runtime_error(named.name + " has " + std::to_string(named.peer->Count()) + " of " +
                                     std::to_string(lines.size()) + " values");
    }
    std::string Name(const char* what) {
        return folder_ + "/calyx-bench-" + what + "-" + std::to_string(++names_) + ".ini";
    }
    static void Remove(const std::string& path) {
        std::error_code ignored;
        std::filesystem::remove(path, ignored);
    }

    std::vector<Contender> Contenders(Contender (Measurement::*make)(const Made&)) {
        std::vector<Contender> contenders;
        for (const Made& made : peers_) contenders.push_back((this->*make)(made));
        return contenders;
    }
    Contender Loading(const Made& made) {
        return {{},
                [this, &made] { made.peer->Load(path_); },
                [this, &made] {
                    path_ = Name("load");
                    std::filesystem::copy_file(made.made, path_);
                },
                [this, &made] {
                    made.peer->Clear();
                    Remove(path_);
                }};
    }
    Contender Saving(const Made& made) {
        return {{},
                [this, &made] { made.peer->Save(path_); },
                [this, &made] {
                    Loading(made).prepare();
                    made.peer->Load(path_);
                    Remove(path_);
                    path_ = Name("save");
                },
                [this, &made] {
                    made.peer->Clear();
                    Remove(path_);
                }};
    }
    long Peak(const Made& made) {
        const std::string source = Name("load"), saved = Name("save");
        std::filesystem::copy_file(made.made, source);
        const Outcome outcome = InChild([&] {
            made.peer->Load(source);
            made.peer->Save(saved);
        });
        Remove(source);
        Remove(saved);
        return outcome.peakKilobytes;
    }

    std::string folder_;
    std::vector<Made> peers_;
    std::string path_;  // of the present round
    int names_ = 0;
};

void Run(int rounds, const std::string& folder) {
    const auto peers = MakePeers();
    const auto results = Measurement(peers, folder).Run(rounds);
    Table table("The same lines by other means, medians of " + std::to_string(rounds) +
                    " rounds in turn, files in " + folder,
                {"", "load", "times Calyx", "save", "times Calyx", "peak memory", "file"});
    auto result = results.begin();
    for (const Named& named : peers) {
        if (!named.peer) {
            table.Row({named.name, "not built"});
            continue;
        }
        table.Row({named.name, Microseconds(result->load.median),
                   Fixed(result->load.median / results[0].load.median, 1), Microseconds(result->save.median),
                   Fixed(result->save.median / results[0].save.median, 1), Megabytes(result->peakKilobytes),
                   std::to_string(result->bytes) + " B"});
        ++result;
    }
    table.Print();
    std::cout << "  Calyx also checks the checksum, sorts the lines into sections and saves atomically; the\n"
                 "  others only hold texts by key.\n";
}

}  // namespace

int main(int count, char** arguments) {
    CLI::App app("Loading and saving the same lines by Calyx and by general libraries");
    int rounds = 60;
    std::string folder = std::filesystem::temp_directory_path().string();
    app.add_option("--rounds", rounds, "rounds of each measurement")->check(CLI::Range(5, 10000));
    app.add_option("--folder", folder, "where files are written")->check(CLI::ExistingDirectory);
    CLI11_PARSE(app, count, arguments);
    try {
        Run(rounds, folder);
        return 0;
    } catch (const std::exception& error) {
        std::cerr << "calyx-bench-peers: " << error.what() << '\n';
        return 1;
    }
}
