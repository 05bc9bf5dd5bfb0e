// The database tables of a memory card: lines, changes, declarations, checks.

#include "model/database/memory_card.h"

#include <gtest/gtest.h>

#include "tests/support/golden.h"
#include "tests/support/members.h"
#include "tests/support/section_suite.h"

namespace calyx::test {
namespace {

// A section that has nothing but one memory card.
class CardAlone final : public Section {
  public:
    explicit CardAlone(const ModelContext& context, int slot = 7) : Section(context), card(context) {
        card.Initialize(slot);
    }
    CMemoryCard card;

    std::string_view Name() const override { return "hardware"; }
    int Title() const override { return 2121; }
    std::vector<Item*> Items() override { return card.Items(); }
    void RestoreState(Dictionary& lines, ReadReport& report) override { card.RestoreState(lines, report); }
    bool Owns(std::string_view key) const override { return card.Owns(key); }
    bool IsDirty() const override { return card.IsDirty(); }
    void MarkSaved() override { card.MarkSaved(); }

  protected:
    void Prepare(std::vector<Change>& changes, Check check, const ValueOf&) override {
        card.Prepare(changes, check);
    }
    void AddBrokenRules(CBrokenRules& rules) const override {
        std::set<std::string> names;
        card.AddBrokenRules(rules, Name(), names);
    }
};

class MemoryCard : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CardAlone section{context};
    CMemoryCard& card = section.card;
    ReadReport report;

    void Read(const std::string& text) {
        Dictionary lines(text);
        report = {};
        section.RestoreState(lines, report);
    }
    std::string Broken() {
        std::string keys;
        for (const BrokenRule& rule : section.BrokenRules()) {
            keys += rule.key + " ";
            EXPECT_EQ(rule.item, SchemaKey::Of(rule.key)->table) << rule.key;
        }
        return keys;
    }
};

constexpr const char* kTwoTables =
    "DB.NAME.1#7=Truck\r\n"
    "DB.FIELD.1.1#7=ID\r\nDB.TYPE.1.1#7=STRING\r\nDB.KEYED.1.1#7=ON\r\n"
    "DB.FIELD.2.1#7=Tare\r\nDB.TYPE.2.1#7=LONG\r\nDB.KEYED.2.1#7=OFF\r\n"
    "DB.NAME.16#7=Log\r\n"
    "DB.FIELD.1.16#7=At\r\nDB.TYPE.1.16#7=DATETIME\r\nDB.KEYED.1.16#7=OFF\r\n";

TEST_F(MemoryCard, LinesComeBackAsTheyStand) {
    Read(kTwoTables);
    EXPECT_EQ(card.StoreState(), kTwoTables);
    EXPECT_EQ(card.Schemas(), (std::vector{1, 16}));
    EXPECT_TRUE(report.Empty());
    EXPECT_FALSE(section.IsDirty());
    EXPECT_TRUE(section.IsValid());
    EXPECT_EQ(section.GetTextOutput(false), kTwoTables);
}

TEST_F(MemoryCard, ReadingTakesItsSlotAndTheTablesThatHaveANameLine) {
    Dictionary lines(
        "db.name.2#7= Wgt \r\nDB.FIELD.1.2#7=A\r\nDB.TYPE.1.2#7=BLOB\r\nDB.FIELD.3.2#7=C\r\n"
        "DB.NAME.3#8=Other\r\nDB.FIELD.1.4#7=Lost\r\nDB.NAME.17#7=Far\r\nDB.NAME.05#7=No\r\nDB.TYPE.9.2#7="
        "REAL\r\n");
    section.RestoreState(lines, report);
    EXPECT_EQ(card.Schemas(), std::vector{2});
    EXPECT_EQ(
        card.Schema(2).AllFields(),
        (std::vector<SchemaField>{{"A", "STRING", false}, {"", "STRING", false}, {"C", "STRING", false}}));
    // A type that is not in the list, and a type of a field that is not there.
    ASSERT_EQ(report.Count(), 2u);
    EXPECT_EQ(report.Notes()[0].kind, ReadNote::Kind::ListValue);
    EXPECT_EQ(report.Notes()[1].kind, ReadNote::Kind::NotWritten);
    for (const char* key : {"DB.NAME.3#8", "DB.FIELD.1.4#7", "DB.NAME.17#7", "DB.NAME.05#7"})
        EXPECT_FALSE(lines.Peek(key)->asked) << key;
    EXPECT_EQ(Broken(), "DB.FIELD.2.2#7 ");
}

TEST_F(MemoryCard, EveryParameterIsSetWrittenAndReadBack) {
    Read(kTwoTables);
    const Item& item = card.Schema(16).Parameters();
    std::vector<std::pair<std::string, std::string>> wanted;
    for (std::size_t row = 0; row < item.RowCount(); ++row) {
        wanted.emplace_back(item.Key(row), OtherText({}, item, row));
        for (const int text :
             {item.Info(row).more.label, item.Info(row).more.help, item.Info(row).more.group})
            EXPECT_TRUE(context.texts.Has(text)) << item.Key(row);
    }
    for (const auto& [key, text] : wanted) {
        Read(kTwoTables);
        const auto before = section.State();
        EXPECT_TRUE(section.Take({{key, std::nullopt, text}}, Section::Check::Strict).empty()) << key;
        EXPECT_TRUE(section.IsDirty()) << key;
        const auto after = section.State();
        const std::string lines = card.StoreState();
        section.Take(Difference(after, before).Changes(), Section::Check::None);
        EXPECT_EQ(section.State(), before) << key;
        EXPECT_FALSE(section.IsDirty()) << key;
        Read(lines);
        EXPECT_EQ(card.StoreState(), lines) << key;
    }
}

TEST_F(MemoryCard, TablesComeAndGoWithTheirNames) {
    Read(kTwoTables);
    const auto before = section.State();
    CardAlone edited = section;
    edited.card.Remove(1);
    EXPECT_EQ(edited.card.Add("Loads"), 1);
    edited.card.Schema(1).InsertField(1, {"Wgt", "REAL", true});
    edited.card.Remove(16);
    edited.card.AddSample();
    const ChangeSet changes = Difference(before, edited.State());

    section.Take(changes.Changes(), Section::Check::None);
    EXPECT_EQ(section.State(), edited.State());
    EXPECT_TRUE(section.IsDirty());
    section.Take(changes.Inverse().Changes(), Section::Check::None);
    EXPECT_EQ(section.State(), before);
    EXPECT_FALSE(section.IsDirty());

    // Lines from elsewhere: a table needs its name.
    EXPECT_EQ(section.Take({{"DB.FIELD.1.5#7", {}, "A"}}, Section::Check::Strict).size(), 1u);
    EXPECT_EQ(
        section.Take({{"DB.TYPE.1.5#7", {}, "REAL"}, {"DB.NAME.5#7", {}, "New"}}, Section::Check::Strict)
            .size(),
        0u);
    EXPECT_EQ(section.Take({{"DB.TYPE.1.5#7", {}, "BLOB"}}, Section::Check::Strict).size(), 1u);
    EXPECT_EQ(card.Schemas(), (std::vector{1, 5, 16}));
    section.Take({{"DB.NAME.5#7", {}, std::nullopt}}, Section::Check::Strict);
    EXPECT_EQ(card.StoreState(), kTwoTables);
}

TEST_F(MemoryCard, FieldsOfATable) {
    CSchema& schema = card.Schema(card.Add("T"));
    schema.InsertField(1, {"B", "REAL", false});
    schema.InsertField(1, {"A", "SHORT", true});
    schema.InsertField(3, {"C", "LONG", false});
    schema.MoveField(3, 1);
    EXPECT_EQ(schema.AllFields(),
              (std::vector<SchemaField>{{"C", "LONG", false}, {"A", "SHORT", true}, {"B", "REAL", false}}));
    schema.RemoveField(2);
    EXPECT_EQ(schema.FieldCount(), 2);
    const auto left = schema.AllFields();
    const auto code = [&](auto&& operation) {
        try {
            operation();
        } catch (const Error& error) {
            return error.Code();
        }
        return 0;
    };
    EXPECT_EQ(code([&] { schema.RemoveField(3); }), code::kOutOfRange);
    EXPECT_EQ(code([&] { schema.InsertField(4, {}); }), code::kOutOfRange);
    EXPECT_EQ(code([&] { schema.InsertField(1, {"X", "BLOB", false}); }), code::kOutOfRange);
    EXPECT_EQ(code([&] { schema.InsertField(1, {"ninechars", "REAL", false}); }), code::kTextTooLong);
    EXPECT_EQ(code([&] {
                  schema.SetFields(std::vector<SchemaField>(33, {"A", "REAL", false}));
              }),
              code::kOutOfRange);
    EXPECT_EQ(code([&] { schema.SetName("ninechars"); }), code::kTextTooLong);
    EXPECT_EQ(code([&] { card.Add("ninechars"); }), code::kTextTooLong);
    EXPECT_EQ(code([&] { card.Schema(2); }), code::kOutOfRange);
    EXPECT_EQ(schema.AllFields(), left);

    CMemoryCard raw(context);
    EXPECT_EQ(code([&] { raw.Add("T"); }), code::kNotInitialised);
    EXPECT_EQ(code([&] { raw.Initialize(15); }), code::kOutOfRange);
}

TEST_F(MemoryCard, TheSampleAndItsDeclarations) {
    EXPECT_EQ(card.AddSample(), 1);
    EXPECT_EQ(card.AddSample(), 2);
    EXPECT_EQ(card.Schema(2).Name(), "Truck2");
    EXPECT_TRUE(section.IsValid());
    card.Remove(2);
    // A table without a name and a field without one are left out.
    card.Schema(card.Add("")).InsertField(1, {"A", "REAL", false});
    card.Schema(card.Add("Log"))
        .SetFields({{"At", "DATETIME", false}, {"", "REAL", false}, {"N", "LONG", true}});
    ExpectGolden("database-declarations.txt", card.GetIWriteImportDef());
}

TEST_F(MemoryCard, CopiesBecomeNewTables) {
    Read(kTwoTables);
    const std::string clipboard = card.CopyText({16, 1});
    CardAlone other(context, 3);
    EXPECT_EQ(other.card.Paste("Our tables:\n" + clipboard), (std::vector{1, 2}));
    EXPECT_EQ(other.card.Paste(clipboard), (std::vector{3, 4}));
    EXPECT_EQ(other.card.Schema(1).Name(), "Log");
    EXPECT_EQ(other.card.Schema(4).Name(), "Truck2");
    EXPECT_EQ(other.card.Schema(4).AllFields(), card.Schema(1).AllFields());
    for (int i = 0; i < 5; ++i) other.card.Paste(clipboard);
    EXPECT_EQ(other.card.Schemas().size(), 14u);
    other.card.Add("X");
    EXPECT_THROW(other.card.Paste(clipboard), Error);
    EXPECT_EQ(other.card.Schemas().size(), 15u);
}

TEST_F(MemoryCard, WhatIsWrong) {
    const struct {
        const char *lines, *broken;
    } rows[] = {
        {"DB.NAME.1#7=T\r\n", "DB.NAME.1#7 "},
        {"DB.NAME.1#7=\r\nDB.FIELD.1.1#7=A\r\n", "DB.NAME.1#7 "},
        {"DB.NAME.1#7=type\r\nDB.FIELD.1.1#7=A B\r\n", "DB.NAME.1#7 DB.FIELD.1.1#7 "},
        {"DB.NAME.1#7=T\r\nDB.FIELD.1.1#7=A\r\nDB.FIELD.3.1#7=a\r\n", "DB.FIELD.2.1#7 DB.FIELD.3.1#7 "},
        {"DB.NAME.1#7=T\r\nDB.FIELD.1.1#7=A\r\nDB.NAME.2#7=t\r\nDB.FIELD.1.2#7=A\r\n", "DB.NAME.2#7 "},
    };
    for (const auto& row : rows) {
        Read(row.lines);
        EXPECT_EQ(Broken(), row.broken) << row.lines;
    }
}

TEST_F(MemoryCard, EveryMemberHasARow) {
    ExpectARowForEveryMember(kSchemaTable);
}

}  // namespace
}  // namespace calyx::test
