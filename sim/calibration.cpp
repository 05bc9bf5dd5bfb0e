#include "sim/calibration.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "sim/reply.h"
#include "sim/text.h"

namespace calyx::sim {

namespace {

constexpr int kScales = 32;
constexpr int kPoints = 5;
constexpr long kHungWeight = 212;  // counts of the chains that a rezero takes out again

std::string Key(std::string_view stem, int scale) {
    return "SC." + std::string(stem) + "#" + std::to_string(scale);
}

std::optional<int> ReadScale(std::string_view text) {
    int scale = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), scale);
    if (error != std::errc() || end != text.data() + text.size()) return {};
    return scale;
}

// 0: none there.
double WeightAt(const Store& store, const std::string& key) {
    const std::string* text = store.Find(key);
    double weight = 0;
    if (text != nullptr) std::from_chars(text->data(), text->data() + text->size(), weight);
    return weight;
}

bool Add(Store& store, const std::string& key, long counts) {
    const auto present = std::lround(WeightAt(store, key));
    return present == 0 || store.Set(key, std::to_string(present + counts));
}

}  // namespace

std::optional<std::string> LoadCells::Answer(Store& store, std::string_view line) {
    const auto mark = line.find('#');
    if (mark == std::string_view::npos || line.find('=') != std::string_view::npos) return {};
    const std::string command = UpperCase(line.substr(0, mark));
    const bool linear = command.size() == 10 && command.starts_with("SC.WLIN.C");
    if (!linear && command != "SC.WZERO" && command != "SC.WSPAN" && command != "SC.REZERO") return {};
    const auto scale = ReadScale(line.substr(mark + 1));
    bool done = scale && *scale >= 1 && *scale <= kScales;
    if (done && linear) done = Linear(store, *scale, command.back() - '0');
    if (done && command == "SC.WZERO") done = Zero(store, *scale);
    if (done && command == "SC.WSPAN") done = Span(store, *scale);
    if (done && command == "SC.REZERO") done = Rezero(store, *scale);
    return std::string(done ? kAccepted : kRefused);
}

std::optional<std::string> LoadCells::Initial(std::string_view key) {
    const auto mark = key.find('#');
    const auto scale = ReadScale(key.substr(std::min(mark, key.size() - 1) + 1));
    if (mark == std::string_view::npos || !scale || *scale < 1 || *scale > kScales) return {};
    const std::string_view stem = key.substr(0, mark);
    for (const auto* known : {"SC.WVAL", "SC.LC.CD", "SC.LC.CW", "SC.WLIN.V?", "SC.WLIN.F?"}) {
        if (FitsPattern(stem, known)) return "0";
    }
    return {};
}

long LoadCells::Read(int scale, double weight) {
    const double zero = 81'000.0 + 1'350.0 * scale;
    const double slope = 36.0 + 0.75 * scale;  // counts a unit of weight
    const int drift = readings_++ * 7 % 5 - 2;
    return std::lround(zero + slope * weight - 0.000'02 * weight * weight) + drift;
}

bool LoadCells::Zero(Store& store, int scale) {
    return store.Set(Key("LC.CD", scale), std::to_string(Read(scale, 0)));
}

bool LoadCells::Span(Store& store, int scale) {
    const double weight = WeightAt(store, Key("WVAL", scale));
    return weight > 0 && store.Set(Key("LC.CW", scale), std::to_string(Read(scale, weight)));
}

// The weight was hung on something: all counts go down by what that weighed.
bool LoadCells::Rezero(Store& store, int scale) {
    bool done =
        Add(store, Key("LC.CD", scale), -kHungWeight) && Add(store, Key("LC.CW", scale), -kHungWeight);
    for (int point = 1; point <= kPoints; ++point)
        done = Add(store, Key("WLIN.F" + std::to_string(point), scale), -kHungWeight) && done;
    return done;
}

bool LoadCells::Linear(Store& store, int scale, int point) {
    if (point < 1 || point > kPoints) return false;
    const double weight = WeightAt(store, Key("WLIN.V" + std::to_string(point), scale));
    return weight > 0 &&
           store.Set(Key("WLIN.F" + std::to_string(point), scale), std::to_string(Read(scale, weight)));
}

}  // namespace calyx::sim
