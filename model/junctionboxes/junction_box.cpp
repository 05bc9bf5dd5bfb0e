#include "model/junctionboxes/junction_box.h"

#include <algorithm>
#include <array>

namespace calyx {

namespace {

constexpr int kLastPort = 32;
// What is wrong, in words.
constexpr int kTwoPlatforms = 8410;   // {1} cell, {2} and {3} platforms
constexpr int kNoConnector = 8411;    // {1} platform, {2} cell, {3} hardware configuration
constexpr int kEmptyPlatform = 8412;  // {1} platform

constexpr std::size_t Place(int number) {
    return static_cast<std::size_t>(number - 1);
}

// The cells on each of the four boards.
std::array<int, 4> Boards(const BoxFields& fields) {
    std::array<int, 4> boards{};
    const auto pieces = Split(fields.hardwareConfig.Trimmed(), '/');
    for (std::size_t i = 0; i < boards.size() && i < pieces.size(); ++i) {
        const auto cells = ReadInteger(pieces[i]);
        if (cells) boards[i] = std::clamp(cells->value, 0, BoxFields::kCells);
    }
    return boards;
}

void Insert(std::string& list, int number, int most) {
    std::vector<int> numbers = ReadNumberList(list, most).numbers;
    if (std::find(numbers.begin(), numbers.end(), number) != numbers.end()) return;
    numbers.insert(std::find_if(numbers.begin(), numbers.end(), [&](int other) { return other > number; }),
                   number);
    list = JoinNumbers(numbers);
}

void Erase(std::string& list, int number, int most) {
    std::vector<int> numbers = ReadNumberList(list, most).numbers;
    if (std::erase(numbers, number) != 0) list = JoinNumbers(numbers);
}

}  // namespace

void CJunctionBox::Initialize(int port) {
    Need(port, kLastPort, "Initialize");
    Begin(port, "#" + std::to_string(port));
}

void CJunctionBox::Initialize(int port, const CJunctionBox& like) {
    Need(port, kLastPort, "Initialize");
    BeginLike(like, port, "#" + std::to_string(port));
}

void CJunctionBox::Need(int number, int most, const char* operation) const {
    if (number >= 1 && number <= most) return;
    Fail(code::kOutOfRange, operation, {std::to_string(number), "1 to " + std::to_string(most)});
}

const std::string& CJunctionBox::Cells(int platform) const {
    Need(platform, MaxPlatforms(), "PlatformLoadCellsString");
    return Values().platformCells[Place(platform)];
}
std::string& CJunctionBox::Cells(int platform) {
    Need(platform, MaxPlatforms(), "PlatformLoadCellsString");
    return Fields().platformCells[Place(platform)];
}

int CJunctionBox::CellCount() const {
    int count = 0;
    for (const int cells : Boards(Values())) count += cells;
    return std::min(count, MaxLoadCells());
}

std::vector<int> CJunctionBox::AllowedLoadCells() const {
    std::vector<int> cells;
    for (int cell = 1; cell <= CellCount(); ++cell) cells.push_back(cell);
    return cells;
}

std::string CJunctionBox::LoadCellConnector(int cell) const {
    Need(cell, MaxLoadCells(), "LoadCellConnector");
    int board = 0;
    for (const int cells : Boards(Values())) {
        ++board;
        if (cell <= cells) return std::to_string(board) + "." + std::to_string(cell);
        cell -= cells;
    }
    return {};
}

int CJunctionBox::PlatformOf(int cell) const {
    Need(cell, MaxLoadCells(), "LoadCellUsed");
    for (int platform = 1; platform <= MaxPlatforms(); ++platform) {
        if (ReadNumberList(Cells(platform), MaxLoadCells()).Has(cell)) return platform;
    }
    return 0;
}

std::vector<int> CJunctionBox::PlatformLoadCells(int platform) const {
    return ReadNumberList(Cells(platform), MaxLoadCells()).numbers;
}

std::vector<int> CJunctionBox::SystemPlatforms(int system) const {
    Need(system, MaxSystems(), "SystemPlatformsString");
    return ReadNumberList(Values().systemPlatforms, MaxPlatforms()).numbers;
}

void CJunctionBox::AssignLoadCellToPlatform(int cell, int platform) {
    Need(cell, CellCount(), "AssignLoadCellToPlatform");
    std::string& own = Cells(platform);
    for (int other = 1; other <= MaxPlatforms(); ++other) {
        if (other != platform) Erase(Cells(other), cell, MaxLoadCells());
    }
    Insert(own, cell, MaxLoadCells());
}

void CJunctionBox::UnassignLoadCellFromPlatform(int cell, int platform) {
    Need(cell, MaxLoadCells(), "UnassignLoadCellFromPlatform");
    Erase(Cells(platform), cell, MaxLoadCells());
}

void CJunctionBox::MoveLoadCell(int cell, int from, int to) {
    Need(cell, MaxLoadCells(), "MoveLoadCell");
    Need(to, MaxPlatforms(), "MoveLoadCell");
    if (!ReadNumberList(Cells(from), MaxLoadCells()).Has(cell)) {
        Fail(code::kOutOfRange, "MoveLoadCell", {std::to_string(cell), Cells(from)});
    }
    AssignLoadCellToPlatform(cell, to);
}

void CJunctionBox::AssignPlatformToSystem(int platform, int system) {
    Need(platform, MaxPlatforms(), "AssignPlatformToSystem");
    Need(system, MaxSystems(), "AssignPlatformToSystem");
    Insert(Fields().systemPlatforms, platform, MaxPlatforms());
}

void CJunctionBox::UnAssignPlatformFromSystem(int platform, int system) {
    Need(platform, MaxPlatforms(), "UnAssignPlatformFromSystem");
    Need(system, MaxSystems(), "UnAssignPlatformFromSystem");
    Erase(Fields().systemPlatforms, platform, MaxPlatforms());
}

bool CJunctionBox::IsPlatformValid(int platform) const {
    const NumberList list = ReadNumberList(Cells(platform), MaxLoadCells());
    const auto stands = [&](int cell) {
        if (!HasConnector(cell)) return false;
        for (int other = 1; other <= MaxPlatforms(); ++other) {
            if (other != platform && ReadNumberList(Cells(other), MaxLoadCells()).Has(cell)) return false;
        }
        return true;
    };
    return list.whole && !list.numbers.empty() &&
           std::all_of(list.numbers.begin(), list.numbers.end(), stands);
}

bool CJunctionBox::IsSystemValid(int system) const {
    const std::vector<int> platforms = SystemPlatforms(system);
    return !platforms.empty() && ReadNumberList(Values().systemPlatforms, MaxPlatforms()).whole &&
           std::all_of(platforms.begin(), platforms.end(), [&](int p) { return IsPlatformValid(p); });
}

bool CJunctionBox::IsPlatformUsedInSystem(int platform) const {
    Need(platform, MaxPlatforms(), "IsPlatformUsedInSystem");
    return ReadNumberList(Values().systemPlatforms, MaxPlatforms()).Has(platform);
}

void CJunctionBox::AddBrokenRules(CBrokenRules& rules, std::string_view section) const {
    const ResourceTexts& texts = Context().texts;
    const auto add = [&](const std::string& stem, std::string words) {
        rules.Add({std::string(section), PortNumber(), "SJ." + stem + "#" + std::to_string(PortNumber()),
                   std::move(words)});
    };
    for (int platform = 1; platform <= MaxPlatforms(); ++platform) {
        const std::string number = std::to_string(platform);
        for (const int cell : PlatformLoadCells(platform)) {
            const std::string cellNumber = std::to_string(cell);
            const int first = PlatformOf(cell);
            if (first != platform) {
                add("PLAT.CELLS." + number,
                    texts.Format(kTwoPlatforms, {cellNumber, std::to_string(first), number}));
            }
            if (!HasConnector(cell)) {
                add("PLAT.CELLS." + number,
                    texts.Format(kNoConnector, {number, cellNumber, Values().hardwareConfig.Trimmed()}));
            }
        }
    }
    for (const int platform : SystemPlatforms()) {
        if (PlatformLoadCells(platform).empty()) {
            add("SYS.PLATS.1", texts.Format(kEmptyPlatform, {std::to_string(platform)}));
        }
    }
}

}  // namespace calyx
