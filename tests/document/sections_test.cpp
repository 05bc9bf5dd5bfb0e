// The promises that every section keeps.

#include "tests/support/section_suite.h"

#include "model/document/indicator.h"

namespace calyx::test {
namespace {

template <class S>
SectionCase Case(const char* name, std::string base = {}, std::map<std::string, std::string> others = {}) {
    return {
        name,
        [](const ModelContext& context) -> std::unique_ptr<Section> { return std::make_unique<S>(context); },
        std::move(base), std::move(others)};
}

class EverySection : public testing::TestWithParam<SectionCase> {
  protected:
    TestContext context{CALYX_DATA_DIR};

    // The section as its base lines make it, with further ones.
    std::unique_ptr<Section> Read(const std::vector<KeyValue>& further, ReadReport& report) const {
        auto section = GetParam().make(context);
        section->Initialize();
        std::string text;
        for (const auto& [key, value] : further) text += key + "=" + value + "\r\n";
        Dictionary lines(text + GetParam().base);
        section->RestoreState(lines, report);
        return section;
    }
    std::unique_ptr<Section> Fresh() const {
        ReadReport report;
        return Read({}, report);
    }
};

// Notes about the values themselves; that a line is not written again may come on top.
std::ptrdiff_t Oddities(const ReadReport& report) {
    return std::count_if(report.Notes().begin(), report.Notes().end(),
                         [](const ReadNote& note) { return note.kind != ReadNote::Kind::NotWritten; });
}

// Runs `check` for every row that can be written and read, of the first item of every kind.
template <class Check>
void ForEveryLine(Section& section, Check&& check) {
    std::set<const RowInfo*> kinds;
    for (Item* item : section.Items()) {
        if (item->RowCount() == 0 || !kinds.insert(&item->Info(0)).second) continue;
        for (std::size_t row = 0; row < item->RowCount(); ++row) {
            const More& more = item->Info(row).more;
            if (more.use == Use::Line && more.readAs.empty()) check(*item, row);
        }
    }
}

TEST_P(EverySection, InitialTextsParseAndStandInTheirLists) {
    const auto section = GetParam().make(context);
    section->Initialize();
    std::set<std::string> keys;
    ForEveryLine(*section, [&](Item& item, std::size_t row) {
        EXPECT_TRUE(keys.insert(item.Key(row)).second) << item.Key(row) << " twice";
        EXPECT_EQ(item.Text(row), item.InitialText(row)) << item.Key(row);
        EXPECT_EQ(item.Info(row).HasList(), item.List(row) != nullptr)
            << item.Key(row) << ": its list is not in the catalogue";
        if (item.List(row) != nullptr) {
            EXPECT_TRUE(item.List(row)->ValidateItem(item.Text(row))) << item.Key(row);
        }
        if (item.Info(row).more.label != 0) {
            EXPECT_TRUE(context.texts.Has(item.Info(row).more.label)) << item.Key(row);
            EXPECT_TRUE(context.texts.Has(item.Info(row).more.help)) << item.Key(row);
        }
    });
    EXPECT_EQ(section->BrokenRules().Count(), 0u);
    EXPECT_FALSE(section->IsDirty());
}

TEST_P(EverySection, EveryParameterIsSetWrittenAndReadBackEqual) {
    const auto section = Fresh();
    std::vector<std::pair<std::string, std::string>> wanted;
    ForEveryLine(*section, [&](Item& item, std::size_t row) {
        wanted.emplace_back(item.Key(row), OtherText(GetParam(), item, row));
    });
    for (const auto& [key, text] : wanted) {
        const auto edited = Fresh();
        ASSERT_FALSE(text.empty()) << key;
        EXPECT_TRUE(edited->Take({{key, std::nullopt, text}}, Section::Check::Strict).empty()) << key;
        EXPECT_TRUE(edited->IsDirty()) << key;

        ReadReport report;
        const auto read = Read({{key, text}}, report);
        EXPECT_EQ(Oddities(report), 0) << key;
        EXPECT_FALSE(read->IsDirty()) << key;
        EXPECT_EQ(read->State(), edited->State()) << key;

        // All lines of it, through a file: nothing that is written is lost.
        Dictionary file(edited->StoreState() + GetParam().base);
        const auto again = GetParam().make(context);
        again->Initialize();
        again->RestoreState(file, report);
        EXPECT_EQ(again->StoreState(), edited->StoreState()) << key;
    }
}

TEST_P(EverySection, ValuesOutsideListAndRangeAreReportedOnReadingAndRefusedOnSetting) {
    const auto section = Fresh();
    ForEveryLine(*section, [&](Item& item, std::size_t row) {
        const RowInfo& info = item.Info(row);
        if (!info.IsHeldToList() && info.kind == ValueKind::Text) return;
        ReadReport report;
        const auto read = Read({{item.Key(row), "?"}}, report);
        EXPECT_EQ(Oddities(report), 1) << item.Key(row);
        EXPECT_EQ(read->Items().size(), section->Items().size()) << item.Key(row);

        std::vector<std::string> bad{"?"};
        if (info.more.HasRange()) {
            bad.push_back(std::to_string(static_cast<long long>(info.more.max) + 1));
            bad.push_back(std::to_string(static_cast<long long>(info.more.min) - 1));
        }
        for (const std::string& text : bad) {
            const auto set = Fresh();
            EXPECT_EQ(set->Take({{item.Key(row), std::nullopt, text}}, Section::Check::Strict).size(), 1u)
                << item.Key(row) << "=" << text;
            EXPECT_FALSE(set->IsDirty()) << item.Key(row) << "=" << text;
        }
    });
}

TEST_P(EverySection, AnAbsentLineLeavesTheDefaultAndKeysAreReadInAnyCase) {
    const auto section = Fresh();
    ReadReport report;
    Dictionary base(GetParam().base);
    section->RestoreState(base, report);
    EXPECT_EQ(section->StoreState(), Fresh()->StoreState());
    EXPECT_TRUE(report.Empty());

    ForEveryLine(*section, [&](Item& item, std::size_t row) {
        std::string key = item.Key(row);
        for (char& c : key) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        const auto read = Read({{key, OtherText(GetParam(), item, row)}}, report);
        EXPECT_NE(read->State(), Fresh()->State()) << key;
    });
}

TEST_P(EverySection, AChangeSetGoesForwardsAndBack) {
    const auto section = Fresh();
    const auto before = section->State();
    ForEveryLine(*section, [&](Item& item, std::size_t row) {
        const auto edited = Fresh();
        edited->Take({{item.Key(row), std::nullopt, OtherText(GetParam(), item, row)}},
                     Section::Check::Strict);
        const auto after = edited->State();
        const ChangeSet changes = Difference(before, after);
        edited->Take(changes.Inverse().Changes(), Section::Check::None);
        EXPECT_EQ(edited->State(), before) << item.Key(row);
        EXPECT_FALSE(edited->IsDirty()) << item.Key(row);
        edited->Take(changes.Changes(), Section::Check::None);
        EXPECT_EQ(edited->State(), after) << item.Key(row);
    });
}

// A port that streams, a card of every kind that brings something.
constexpr const char* kHardwareLines =
    "HARDWARE=1,4,5,0,0,0,0,0,0,0,0,0,0,0\r\nEDP.SOURCE#1=SCALE1\r\nEDP.STREAM#1=CONT\r\nEDP.FORMAT#1="
    "CUSTOM\r\n";

INSTANTIATE_TEST_SUITE_P(
    Sections, EverySection,
    testing::Values(Case<CGeneral>("general"),
                    Case<CHardware>("hardware", kHardwareLines,
                                    {{"HARDWARE", "1,4,5,2,0,0,0,0,0,0,0,0,0,0"},
                                     {"EDP.SOURCE#1", "SCALE2"},
                                     {"EDP.INPUT#1", "PROG"}}),
                    Case<CFieldbusCards>("fieldbuscards", "FB.SIZE#3=64\r\nFB.BYTESWAP#3=BOTH\r\n"),
                    Case<CPrompts>("prompts"), Case<CTickets>("tickets"),
                    Case<CSetpoints>("setpoints", "", {{"SP.TIME#1", "1830"}, {"SP.DURATION#1", "000130"}}),
                    Case<CJunctionBoxes>("junctionboxes", "EDP.INPUT#3=VEXAL\r\n")),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace calyx::test
