// The table machinery, on a table of its own with what later sections need of it.

#include <gtest/gtest.h>

#include "model/language/error.h"
#include "model/language/item.h"
#include "tests/support/model_fixture.h"

namespace calyx {
namespace {

struct Fields {
    std::int32_t kind = 1;
    std::int32_t count = 0;
    FixedText<8> alias;
    std::array<FixedText<10>, 2> filter;
    FixedText<10> rate, mode, parity;
    bool echo = false;
    float band = 0;
    FixedText<8> token;
    friend bool operator==(const Fields&, const Fields&) = default;
};
using F = Fields;

std::string RateOf(int item, const CTextList*) {
    return item == 2 ? "115200" : "9600";
}
std::string_view RateList(int item) {
    return item == 1 ? "A.RATE" : "B.RATE";
}

std::string_view OldRate(std::string_view word, const CTextList&) {
    return word == "FAST" ? "115200" : word;
}

// "OFF" for no band before 3.01, the number with "D" since.
inline constexpr Codec<float> kBand{
    ValueKind::Decimal, 8,
    [](std::string& out, const float& value, const Target& target) {
        if (value == 0 && !target.Opens(Since("3.01."))) {
            out += "OFF";
        } else {
            kSingleWith<'D'>.write(out, value, target);
        }
    },
    [](float& value, std::string_view text) { return kSingleWith<'D'>.take(value, text); }};

constexpr Row<F> kRows[] = {
    row<&F::kind, kInteger>("KIND", "1"),
    row<&F::count, kInteger>("COUNT", "3", {.min = 1, .max = 9, .absent = Absent::Initial}),
    row<&F::alias, kFixed8>("ALIAS", "Port{n}", {.absentValue = "Com{n}", .absent = Absent::Value}),
    row<&F::filter, kFixed10, 0>("FLT1", "4"),
    row<&F::filter, kFixed10, 1>("FLT2", "4"),
    row<&F::rate, kFixed10>(
        "RATE", "", {.listOf = RateList, .unknown = Unknown::First, .older = OldRate, .initialOf = RateOf}),
    row<&F::mode, kFixed10>("MODE", "MED", {.list = "C.MODE", .unknown = Unknown::Initial}),
    row<&F::parity, kFixed10>("PARITY", "", {.list = "C.MODE"}),
    row<&F::echo, kUnlessOff>("ECHO", "ON"),
    row<&F::band, kBand>("BAND", "0D"),
    // Written with "#", looked up without.
    row<&F::token, kFixed8>("TOKEN", "Z", {.readAs = "X.TOKEN{n}"}),
};
constexpr Lines lines{kRows};
constexpr auto kPlain = Join(lines("KIND", "ALIAS"),
                             Gated(Since("3.01."), When(
                                                       +[](const F& f) { return f.echo; }, lines("ECHO"))),
                             lines("BAND", "TOKEN"));
constexpr auto kTwice = Join(lines("KIND", "FLT1"),
                             Gated(Since("2.00."), Gated(Only({"2.00.", "3.10."}), lines("FLT1", "FLT2"))));
void Settle(F& f) {
    if (f.count == 9) f.echo = false;
}
constexpr RowTable<F> kTable{
    kRows, [](const F& f) { return f.kind == 2 ? Layout<F>(kTwice) : Layout<F>(kPlain); }, "X.", Settle};

class Rows : public testing::Test {
  protected:
    ModelContext context;
    ReadReport report;
    void SetUp() override {
        context.lists.Read(
            "[C.MODE]\ntexts=1,2,3\nkeys=LOW,MED,HIGH\ndefault=HIGH\n[A.RATE]\ntexts=1,2\nkeys=300,"
            "9600\ndefault=9600\n[B.RATE]\ntexts=1,2\nkeys=1200,"
            "115200\ndefault=1200\n",
            context.texts);
    }
    RowItem<F> Fresh(int number) {
        RowItem<F> item(kTable, context, number, "#" + std::to_string(number));
        item.Initialize();
        return item;
    }
    static std::string Text(const RowItem<F>& item, Target target) {
        std::string out;
        item.Append(out, target);
        return out;
    }
};

TEST_F(Rows, InitialAbsentAndUnknownValuesAreTheirOwn) {
    auto item = Fresh(2);
    EXPECT_EQ(item.fields.alias.View(), "Port2");
    EXPECT_EQ(item.fields.rate.View(), "115200");
    item.fields.count = 7;
    item.fields.kind = 5;
    Dictionary file("X.RATE#2=77\r\nX.TOKEN#2=C\r\nX.COUNT#1=9\r\nX.MODE#2=FULL\r\nX.PARITY#2=FULL\r\n");
    item.Restore(file, report);
    EXPECT_EQ(item.fields.alias.View(), "Com2");   // absent: a value of its own
    EXPECT_EQ(item.fields.count, 3);               // absent: initial
    EXPECT_EQ(item.fields.kind, 5);                // absent: kept
    EXPECT_EQ(item.fields.rate.View(), "1200");    // unknown: the list of this number, first entry
    EXPECT_EQ(item.fields.token.View(), "Z");      // looked up elsewhere
    EXPECT_EQ(item.fields.mode.View(), "MED");     // unknown: initial
    EXPECT_EQ(item.fields.parity.View(), "HIGH");  // unknown: the list's default
    // Three words replaced, one line passed over, and three that this layout does not write.
    EXPECT_EQ(report.Count(), 7u);
    EXPECT_FALSE(item.IsDirty());
}

TEST_F(Rows, OtherKeysOlderWordsAndWhatSettles) {
    auto item = Fresh(2);
    Dictionary file("X.TOKEN2=C\r\nX.RATE#2=FAST\r\nX.COUNT#2=9\r\nX.ECHO#2=ON\r\n");
    item.Restore(file, report);
    EXPECT_EQ(item.fields.token.View(), "C");
    EXPECT_EQ(item.fields.rate.View(), "115200");
    EXPECT_FALSE(item.fields.echo);  // nine of them settle it
    EXPECT_TRUE(std::none_of(report.Notes().begin(), report.Notes().end(),
                             [](const ReadNote& note) { return note.kind == ReadNote::Kind::ListValue; }));
}

TEST_F(Rows, AListThatTheCatalogueLacksIsAnError) {
    const ModelContext empty;
    try {
        RowItem<F>(kTable, empty, 1, "#1");
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Code(), code::kNoList);
    }
}

TEST_F(Rows, LayoutsAreSequencesByKindGateAndCondition) {
    auto item = Fresh(1);
    const Target old{.version = VersionBit("3.00.")};
    EXPECT_EQ(Text(item, old), "X.KIND#1=1\r\nX.ALIAS#1=Port1\r\nX.BAND#1=OFF\r\nX.TOKEN#1=Z\r\n");
    EXPECT_EQ(Text(item, Target{}),
              "X.KIND#1=1\r\nX.ALIAS#1=Port1\r\nX.ECHO#1=ON\r\nX.BAND#1=0D\r\nX.TOKEN#1=Z\r\n");
    item.fields.echo = false;
    EXPECT_EQ(Text(item, Target::Everything()).find("ECHO"), std::string::npos);
    item.fields.kind = 2;
    EXPECT_EQ(Text(item, Target{}), "X.KIND#1=2\r\nX.FLT1#1=4\r\nX.FLT1#1=4\r\nX.FLT2#1=4\r\n");
    EXPECT_EQ(Text(item, old), "X.KIND#1=2\r\nX.FLT1#1=4\r\n");
    EXPECT_EQ(item.GateOf(*item.Find("x.flt2#1")), Only({"2.00.", "3.10."}));
    EXPECT_TRUE(item.GateOf(*item.Find("X.FLT1#1")).Ungated());
}

TEST_F(Rows, KeysBelongToTheirItem) {
    const auto item = Fresh(12);
    EXPECT_TRUE(item.Find("X.KIND#12"));
    for (const char* other : {"X.KIND#1", "X.KIND#2", "X.KIND", "KIND#12", "Y.KIND#12", "X.#12", "#12", ""}) {
        EXPECT_FALSE(item.Find(other)) << other;
    }
}

}  // namespace
}  // namespace calyx
