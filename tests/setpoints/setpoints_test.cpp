// The 100 setpoints: lines, reading, edits, checks.

#include "model/setpoints/setpoints.h"

#include <set>

#include "model/language/error.h"
#include "model/setpoints/setpoint_checks.h"
#include "tests/setpoints/setpoints_fixture.h"
#include "tests/support/golden.h"
#include "tests/support/members.h"

namespace calyx::test {
namespace {

constexpr const char* kAction = "BRANCH CLRACCM CLRTARE PSHTARE ALARM PSHACCM PSHPRINT ACCESS NAME ";

struct KindLines {
    const char* kind;
    std::string own;  // with everything that a condition may leave out
};

TEST_F(Setpoints, EveryKindWritesItsOwnLinesInOrder) {
    const std::string action = kAction, tail = "DSLOT DIGOUT SENSE";
    const std::string weight =
        "BATCH TRIP HYSTER PREACT PREVAL PREADJ PCOUNT PRESTAB TOLBAND TOLCNT " + action + tail;
    const std::string push = "CLRACCM CLRTARE PSHTARE PSHACCM PSHPRINT ACCESS NAME ";
    const KindLines kinds[] = {
        {"GROSS", "VALUE SOURCE " + weight},
        {"NET", "VALUE SOURCE " + weight},
        {"-GROSS", "VALUE SOURCE " + weight},
        {"-NET", "VALUE SOURCE " + weight},
        {"ACCUM", "VALUE SOURCE BATCH TRIP TOLBAND TOLCNT " + action + tail},
        {"DIGIN", "BATCH " + action + "DSLOT DIGOUT DISLOT MASK SENSE"},
        {"+REL", "VALUE SOURCE RELNUM " + weight},
        {"-REL", "VALUE SOURCE RELNUM " + weight},
        {"%REL", "VALUE SOURCE RELNUM " + weight},
        {"RESREL", "VALUE SOURCE RELNUM " + weight},
        {"WAITSS", "SOURCE " + push + tail},
        {"DELAY", "VALUE SOURCE " + push + tail},
        {"COUNTER", "VALUE BRANCH ACCESS NAME " + tail},
        {"PAUSE", "ACCESS NAME " + tail},
        {"AUTOJOG", "VALUE " + push + tail},
        {"ALWAYS", ""},
        {"COZ", "SOURCE ACCESS NAME " + tail},
        {"INMOTON", "SOURCE ACCESS NAME " + tail},
        {"INRANGE", "SOURCE ACCESS NAME " + tail},
        {"BATCHPR", "ACCESS NAME " + tail},
        {"TIMER", "VALUE START END ACCESS NAME " + tail},
        {"CONCUR", "VALUE START END ACCESS NAME " + tail},
        {"TOD", "SOURCE BATCH " + push + "DSLOT DIGOUT TIME DURATION SENSE"},
        {"DELTA", "VALUE SOURCE " + push + tail},
        {"AVG",
         "VALUE SOURCE BATCH TRIP HYSTER TOLBAND TOLCNT BANDVAL " + action + "DSLOT DIGOUT NSAMPLE SENSE"},
        {"CHKWEI", "SOURCE VUNDER VOVER ACCESS NAME DSLOT DUNDER DOVER DACCEPT"},
        {"ROC", "VALUE SOURCE BATCH TRIP " + action + tail},
        {"PLSCNT", "BATCH VALUE SOURCE COAST ACCESS NAME DSLOT DIGOUT PSHPRINT BRANCH SENSE"},
        {"PLSRAT", "VALUE SOURCE ACCESS NAME DSLOT DIGOUT TRIP BANDVAL PSHPRINT SENSE"},
        {"NEVER", "BRANCH"},
        {"DINCNT", "ACCESS BATCH DSLOT DIGOUT DISLOT MASK NAME SENSE VALUE"},
    };
    Read("KIND=OFF");
    EXPECT_EQ(Stems(), "KIND");
    int number = 1;
    for (const KindLines& kind : kinds) {
        Read("KIND=" + std::string(kind.kind) + " PREACT=LEARN TOLBAND=1 DSLOT=SLOT2 DIGOUT=BIT1");
        EXPECT_EQ(setpoints.Item(1).Kind(), ++number) << kind.kind;
        EXPECT_EQ(Stems(), "KIND ALIAS ENABLE" + (kind.own.empty() ? "" : " " + kind.own)) << kind.kind;
    }
    EXPECT_EQ(number, kLastSetpointKind);
}

TEST_F(Setpoints, ValuesDecideWhichLinesAreWritten) {
    const struct {
        const char* lines;
        std::string own;
    } cases[] = {
        {"KIND=GROSS",
         "VALUE SOURCE BATCH TRIP HYSTER PREACT PREVAL " + std::string(kAction) + "DSLOT SENSE"},
        {"KIND=NET TRIP=LOWER PREACT=FLOW TOLCNT=1 DSLOT=NONE DIGOUT=BIT4",
         "VALUE SOURCE BATCH TRIP HYSTER PREACT PREVAL PREADJ PCOUNT PRESTAB TOLBAND TOLCNT " +
             std::string(kAction) + "DSLOT SENSE"},
        {"KIND=+REL TRIP=INBAND PREACT=LEARN TOLBAND=1 DSLOT=SLOT1",
         "VALUE SOURCE RELNUM BATCH TRIP BANDVAL " + std::string(kAction) + "DSLOT DIGOUT SENSE"},
        {"KIND=ACCUM TRIP=OUTBAND TOLBAND=1",
         "VALUE SOURCE BATCH TRIP BANDVAL " + std::string(kAction) + "DSLOT SENSE"},
        {"KIND=ROC TRIP=OUTBAND", "VALUE SOURCE BATCH TRIP BANDVAL " + std::string(kAction) + "DSLOT SENSE"},
        {"KIND=AVG",
         "VALUE SOURCE BATCH TRIP HYSTER BANDVAL " + std::string(kAction) + "DSLOT NSAMPLE SENSE"},
    };
    for (const auto& one : cases) {
        Read(one.lines);
        EXPECT_EQ(Stems(), "KIND ALIAS ENABLE " + one.own) << one.lines;
    }
}

TEST_F(Setpoints, LinesByVersion) {
    Read("KIND=GROSS KIND#2=DINCNT DSLOT#2=SLOT1 KIND#3=CHKWEI KIND#4=ALWAYS KIND#5=PLSRAT");
    const std::string matrix = VersionMatrix(setpoints);
    ExpectGolden("setpoints-versions.txt", matrix.substr(0, matrix.find("SP.KIND#6 ")));
}

TEST_F(Setpoints, NewOnesAreOff) {
    std::string all;
    for (int n = 1; n <= 100; ++n) all += "SP.KIND#" + std::to_string(n) + "=OFF\r\n";
    EXPECT_EQ(setpoints.StoreState(), all);
    EXPECT_EQ(setpoints.GetPrintOutput(), "");
    EXPECT_EQ(setpoints.GetIWriteImportDef(), "-- Setpoint Aliases\r\n");
}

TEST_F(Setpoints, ValuesAreReadByTheirLength) {
    const struct {
        const char* line;
        const char* written;
        bool told;  // that something was passed over
    } cases[] = {
        {"SOURCE=SCALE2", "SCALE2", false},
        {"SOURCE=2", "SCALE2", false},
        {"SOURCE=PULSE12", "SCALE12", false},
        {"SOURCE=123456", "SCALE6", true},
        {"SOURCE=SCALE", "SCALE0", true},
        {"SOURCE=scale3", "SCALE3", false},
        {"DSLOT=NONE", "NONE", false},
        {"DSLOT=SLOT14", "SLOT14", false},
        {"DSLOT=3", "SLOT3", false},
        {"DSLOT=SLOT0", "NONE", true},
        {"DSLOT=CARD3", "SLOT3", true},
        {"DIGOUT=BIT3", "BIT3", false},
        {"DIGOUT=3", "BIT3", false},
        {"DIGOUT=NONE", "BIT0", false},
        {"DIGOUT=1234", "BIT4", true},
        {"DISLOT=SLOT2", "SLOT2", false},
        {"DISLOT=NONE", "SLOT0", false},
        {"DISLOT=0", "SLOT0", false},
        {"DUNDER=BIT0", "NONE", true},
        {"DUNDER=BIT5", "BIT5", false},
        {"VALUE=1.5", "1.5", false},
        {"VALUE=1,5", "1", true},
        {"VALUE=123456.789", "123456.789", false},
        {"VALUE=-0.1", "-0.1", false},
        {"TIME=1830", "1830", false},
        {"TIME=930", "0930", false},
        {"TIME=18:30", "1830", false},
        {"TIME=9:05:00", "0905", false},
        {"TIME=18:30:15", "1830", true},  // its line has no seconds
        {"TIME=18:", "0000", true},
        {"TIME=18:3a", "0000", true},
        {"TIME=2400", "0000", true},
        {"TIME=183000", "1830", false},
        {"TIME=93059", "0930", true},
        {"TIME=1830000", "0000", true},
        {"DURATION=000010", "000010", false},
        {"DURATION=00:01:30", "000130", false},
        {"DURATION=1:30", "013000", false},
        {"DURATION=1:2:3:4", "000000", true},
        {"DURATION=006000", "000000", true},
        {"ENABLE=on", "OFF", true},
        {"TRIP=SIDEWAYS", "HIGHER", true},
    };
    for (const auto& one : cases) {
        const std::string line = one.line;
        Read("KIND=GROSS " + line);
        EXPECT_EQ(Text(line.substr(0, line.find('='))), one.written) << line;
        const auto& notes = report.Notes();
        EXPECT_EQ(std::any_of(notes.begin(), notes.end(),
                              [](const ReadNote& note) { return note.kind != ReadNote::Kind::NotWritten; }),
                  one.told)
            << line;
    }
}

TEST_F(Setpoints, ThePulseKindsNameAPulseInputAndAPulseRateTripsInABand) {
    Read(
        "KIND=PLSCNT SOURCE=PULSE2 KIND#2=PLSRAT SOURCE#2=1 KIND#3=PLSRAT TRIP#3=OUTBAND KIND#4=PLSRAT "
        "TRIP#4=LOWER");
    EXPECT_EQ(Text("SOURCE"), "PULSE2");
    EXPECT_EQ(Text("SOURCE", 2), "PULSE1");
    EXPECT_EQ(Text("TRIP", 2), "INBAND");
    EXPECT_EQ(Text("TRIP", 3), "OUTBAND");
    EXPECT_EQ(Text("TRIP", 4), "INBAND");
}

TEST_F(Setpoints, AMissingLineReadsAsItsDefaultOrLeavesTheValue) {
    Read(
        "KIND=GROSS ALIAS=a VALUE=7 RELNUM=4 BRANCH=3 HYSTER=2 BANDVAL=9 TIME=1830 TRIP=LOWER ENABLE=OFF "
        "PCOUNT=5 SENSE=INVERT SOURCE=2 KIND#2=NET VALUE#2=8");
    Dictionary kinds("SP.KIND#1=NET\r\nSP.KIND#3=OFF\r\n");
    setpoints.RestoreState(kinds, report);
    std::string now;
    for (const char* stem : {"KIND", "ALIAS", "VALUE", "RELNUM", "BRANCH", "HYSTER", "BANDVAL", "TIME"})
        now += Text(stem) + " ";
    EXPECT_EQ(now, "NET a 7 4 3 2 9 1830 ");
    now.clear();
    for (const char* stem : {"TRIP", "ENABLE", "PCOUNT", "SENSE", "SOURCE"}) now += Text(stem) + " ";
    EXPECT_EQ(now, "HIGHER ON 1 NORMAL SCALE0 ");
    EXPECT_EQ(Text("KIND", 2) + " " + Text("VALUE", 2), "OFF 8");
    EXPECT_FALSE(setpoints.IsDirty());
    for (const Dictionary::Entry& entry : kinds.Entries()) EXPECT_TRUE(entry.asked) << entry.key;
    Read("KIND=NOSUCH");
    EXPECT_EQ(setpoints.Item(1).Kind(), 1);
    EXPECT_EQ(report.Count(), 1u);
}

TEST_F(Setpoints, TheLinesOfTheSamplesComeBackAndBreakNoRule) {
    for (const char* name : {"batching-plant", "checkweigher-line", "silo", "truck-scale"}) {
        Dictionary file(ReadFile(std::string(CALYX_DATA_DIR) + "/samples/" + name + ".mrn"));
        report = {};
        setpoints.Initialize();
        setpoints.RestoreState(file, report);
        EXPECT_TRUE(report.Empty()) << name;
        Dictionary written(setpoints.StoreState());
        int compared = 0;
        for (const Dictionary::Entry& entry : file.Entries()) {
            if (!entry.key.starts_with("SP.")) continue;
            const Dictionary::Entry* back = written.Find(entry.key);
            ASSERT_NE(back, nullptr) << name << " " << entry.key;
            EXPECT_EQ(back->value, entry.value) << name << " " << entry.key;
            ++compared;
        }
        EXPECT_GT(compared, 15) << name;
        for (const BrokenRule& rule : setpoints.BrokenRules()) ADD_FAILURE() << name << " " << rule.text;
    }
}

TEST_F(Setpoints, AChangeOfKindKeepsWhatTheLinesCanHold) {
    Read("KIND=GROSS ALIAS=Fill VALUE=12.5 HYSTER=3 TRIP=LOWER");
    const auto before = setpoints.State();
    EXPECT_TRUE(Set("KIND=OFF").empty());
    EXPECT_EQ(Text("ALIAS"), "");
    EXPECT_EQ(Text("VALUE"), "12.5");
    EXPECT_TRUE(Set("KIND=PLSRAT").empty());
    EXPECT_EQ(Text("TRIP"), "INBAND");
    EXPECT_TRUE(Set("KIND=GROSS TRIP=LOWER").empty());
    EXPECT_EQ(Text("HYSTER"), "3");
    EXPECT_EQ(Set("KIND=PLSRAT TRIP=HIGHER").size(), 1u);
    // Undo: as they were, without anything that follows.
    setpoints.Take(Difference(setpoints.State(), before).Changes(), Section::Check::None);
    EXPECT_EQ(setpoints.State(), before);
    EXPECT_FALSE(setpoints.IsDirty());
    EXPECT_TRUE(Set("KIND=OFF ALIAS=x", Section::Check::None).empty());
    EXPECT_EQ(Text("ALIAS"), "x");
    // An indicator's own line goes by the same rule.
    EXPECT_TRUE(Set("KIND=GROSS").empty());
    EXPECT_TRUE(Set("KIND=OFF", Section::Check::Lenient).empty());
    EXPECT_EQ(Text("ALIAS"), "");
}

TEST_F(Setpoints, OneSetpointByItself) {
    CSetpoint one(context);
    std::string source;
    const auto codeOf = [&source](auto&& operation) {
        try {
            operation();
        } catch (const Error& error) {
            source = error.Source();
            return error.Code();
        }
        return 0;
    };
    EXPECT_EQ(codeOf([&] { static_cast<void>(one.GetTextOutput(true)); }), code::kNotInitialised);
    EXPECT_EQ(source, "Calyx.CSetpoint.GetTextOutput");
    EXPECT_EQ(codeOf([&] { one.SetKind(2); }), code::kNotInitialised);
    EXPECT_EQ(source, "Calyx.CSetpoint.Kind");
    EXPECT_EQ(codeOf([&] { one.Initialize(101); }), code::kOutOfRange);
    one.Initialize(7);
    EXPECT_EQ(codeOf([&] { one.SetKind(0); }), code::kOutOfRange);
    EXPECT_EQ(codeOf([&] { one.SetKind(33); }), code::kOutOfRange);
    EXPECT_EQ(codeOf([&] { one.SetAlias("nine_char"); }), code::kTextTooLong);
    EXPECT_EQ(codeOf([&] { one.SetAlias("while"); }), code::kAliasRefused);
    EXPECT_FALSE(one.IsDirty());
    one.SetKind(30);
    one.SetAlias("Flow");
    EXPECT_TRUE(one.IsDirty());
    EXPECT_TRUE(one.IsValid());
    CSetpoint copy = one.Clone();
    copy.SetKind(1);
    EXPECT_EQ(copy.GetTextOutput(true), "SP.KIND#7=OFF\r\n");
    EXPECT_TRUE(
        one.GetTextOutput(true).starts_with("SP.KIND#7=PLSRAT\r\nSP.ALIAS#7=Flow\r\nSP.ENABLE#7=ON\r\n"));
    EXPECT_EQ(one.Parameters().Text(7), "INBAND");

    EXPECT_EQ(&setpoints.Item("K100"), &setpoints.Item(100));
    for (const char* key : {"K0", "K101", "100", "K", "K1x", "K01"})
        EXPECT_EQ(codeOf([&] { setpoints.Item(key); }), code::kOutOfRange) << key;
    EXPECT_TRUE(setpoints.Owns("sp.value#100"));
    for (const char* key : {"SP.VALUE#0", "SP.VALUE#101", "SP.NOSUCH#1", "SP.VALUE", "SPPWD"})
        EXPECT_FALSE(setpoints.Owns(key)) << key;
}

TEST_F(Setpoints, ListingAndImportDefinitions) {
    Read(
        "KIND#12=TOD ALIAS#12=DayTotal SOURCE#12=SCALE1 PSHPRINT#12=ON TIME#12=1830 DURATION#12=000010 "
        "KIND#3=ROC TRIP#3=OUTBAND ENABLE#3=OFF KIND#2=PAUSE ALIAS#2=Ask");
    EXPECT_EQ(
        setpoints.GetIWriteImportDef(),
        "-- Setpoint Aliases\r\nAsk : constant integer := 2;\r\nDayTotal : constant integer := 12;\r\n");
    const std::string listing = setpoints.GetPrintOutput();
    EXPECT_TRUE(listing.starts_with("Setpoints\r\nSetpoint 2: Pause, Ask\r\n  Enable: ON\r\n  Access: "));
    for (const char* text : {"\r\nSetpoint 3: Rate of change\r\n  Enable: OFF\r\n", "  Trip: OUTBAND\r\n",
                             "  Sense: Normal\r\n", "\r\nSetpoint 12: Time of day, DayTotal\r\n",
                             "  Time of day: 6:30:00 PM\r\n", "  Duration: 00:00:10\r\n"})
        EXPECT_NE(listing.find(text), std::string::npos) << text << "\n" << listing;
    EXPECT_EQ(listing.find("Setpoint 1:"), std::string::npos);
    EXPECT_NE(setpoints.GetPrintOutput(true).find("Setpoint 100: Off\r\n"), std::string::npos);
}

std::string Keys(const CBrokenRules& rules) {
    std::string keys;
    for (const BrokenRule& rule : rules) {
        EXPECT_EQ(rule.section, "setpoints");
        EXPECT_TRUE(rule.key.ends_with("#" + std::to_string(rule.item))) << rule.key;
        EXPECT_EQ(rule.text.find('{'), std::string::npos) << rule.text;
        EXPECT_FALSE(rule.text.starts_with('#')) << rule.key << rule.text;
        keys += (keys.empty() ? "" : " ") + rule.key.substr(3);
    }
    return keys;
}

TEST_F(Setpoints, RulesBrokenBetweenThem) {
    const struct {
        const char* lines;
        const char* broken;
    } cases[] = {
        {"KIND=GROSS SOURCE=1", ""},
        {"KIND=GROSS", "SOURCE#1"},
        {"KIND=DELAY KIND#2=TOD KIND#3=PLSCNT", "SOURCE#3"},
        {"KIND=PAUSE ALIAS=1a", "ALIAS#1"},
        {"KIND=PAUSE ALIAS=Run KIND#2=PAUSE ALIAS#2=RUN", "ALIAS#2"},
        {"KIND=OFF ALIAS=Run KIND#2=PAUSE ALIAS#2=RUN", "ALIAS#1"},
        {"KIND=+REL SOURCE=1", "RELNUM#1"},
        {"KIND=+REL SOURCE=1 RELNUM=2", "RELNUM#1"},
        {"KIND=+REL SOURCE=1 RELNUM=1", "RELNUM#1"},
        {"KIND=+REL SOURCE=1 RELNUM=101", "RELNUM#1"},
        {"KIND=+REL SOURCE=1 RELNUM=2 KIND#2=GROSS SOURCE#2=1", ""},
        {"KIND=COUNTER BRANCH=2", "BRANCH#1"},
        {"KIND=COUNTER BRANCH=2 KIND#2=GROSS SOURCE#2=1", "BRANCH#1"},
        {"KIND=COUNTER BRANCH=2 KIND#2=GROSS SOURCE#2=1 BATCH#2=ON", ""},
        {"KIND=COUNTER BRANCH=2 KIND#2=COZ SOURCE#2=1 BATCH#2=ON", "BRANCH#1"},
        {"KIND=COUNTER BRANCH=1", ""},
        {"KIND=PAUSE BRANCH=2", ""},  // a pause has no such line
        {"KIND=TIMER START=2 END=1", "START#1"},
        {"KIND=TIMER START=1 END=0", "END#1"},
        {"KIND=CONCUR START=1.5 END=1", "START#1"},
        {"KIND=TIMER START=1 END=101", "END#1"},
        {"KIND=PAUSE DSLOT=1", "DIGOUT#1"},
        {"KIND=PAUSE DSLOT=1 DIGOUT=4 KIND#2=PAUSE DSLOT#2=1 DIGOUT#2=4 KIND#3=PAUSE DSLOT#3=2 DIGOUT#3=4",
         "DIGOUT#2"},
        {"KIND=CHKWEI SOURCE=1 DOVER=2", "DSLOT#1"},
        {"KIND=DIGIN", "MASK#1"},
        {"KIND=CHKWEI SOURCE=1 DSLOT=1 DUNDER=1 DOVER=2 DACCEPT=1 KIND#2=PAUSE DSLOT#2=1 DIGOUT#2=2",
         "DACCEPT#1 DIGOUT#2"},
    };
    for (const auto& one : cases) {
        Read(one.lines);
        EXPECT_EQ(Keys(setpoints.BrokenRules()), one.broken) << one.lines;
        EXPECT_EQ(setpoints.IsValid(), one.broken[0] == '\0') << one.lines;
    }
}

TEST_F(Setpoints, WhatTheyNeedOfOtherSections) {
    Read(
        "KIND=GROSS SOURCE=4 DSLOT=5 DIGOUT=1 KIND#2=PLSCNT SOURCE#2=4 KIND#3=DINCNT DISLOT#3=6 MASK#3=1 "
        "KIND#4=DIGIN KIND#5=PAUSE SOURCE#5=9 DISLOT#5=9");
    CBrokenRules rules;
    CheckSetpointSurroundings(setpoints, {}, context.texts, rules);
    EXPECT_EQ(rules.Count(), 0u);
    const auto only = [](int there) { return [there](int number) { return number == there; }; };
    const auto points = [](int slot) { return [slot](int of) { return of == slot ? 8 : 0; }; };
    CheckSetpointSurroundings(setpoints, {only(4), only(4), points(0), {}}, context.texts, rules);
    EXPECT_EQ(Keys(rules), "DSLOT#1 DISLOT#3");
    rules = {};
    CheckSetpointSurroundings(setpoints, {only(1), only(1), points(5), {}}, context.texts, rules);
    EXPECT_EQ(Keys(rules), "SOURCE#1 SOURCE#2 DISLOT#3 DISLOT#4");
}

TEST_F(Setpoints, PointsThatTheCardDoesNotHave) {
    const SetpointSurroundings surroundings{.scaleExists = {},
                                            .pulseInputExists = {},
                                            .digitalPoints = [](int slot) { return slot == 0 ? 8 : 24; },
                                            .isOutput = [](int slot, int point) { return slot == point; }};
    const struct {
        const char* lines;
        const char* broken;
    } cases[] = {
        {"KIND=PAUSE DSLOT=1 DIGOUT=24", ""},
        {"KIND=PAUSE DSLOT=1 DIGOUT=25", "DIGOUT#1"},
        {"KIND=PAUSE DSLOT=NONE DIGOUT=25", ""},
        {"KIND=CHKWEI DSLOT=2 DUNDER=1 DOVER=30 DACCEPT=24", "DOVER#1"},
        {"KIND=DIGIN DISLOT=0 MASK=128", ""},
        {"KIND=DIGIN DISLOT=0 MASK=256", "MASK#1"},
        {"KIND=DINCNT DISLOT=3 MASK=16777216", "MASK#1"},
        {"KIND=DINCNT DISLOT=3 MASK=4", "MASK#1"},  // an output
        {"KIND=DINCNT DISLOT=3 MASK=8", ""},
    };
    for (const auto& one : cases) {
        Read(one.lines);
        CBrokenRules rules;
        CheckSetpointSurroundings(setpoints, surroundings, context.texts, rules);
        EXPECT_EQ(Keys(rules), one.broken) << one.lines;
    }
}

TEST_F(Setpoints, EveryRowHasAMemberAndItsTexts) {
    ExpectARowForEveryMember(kSetpointTable);
    for (const auto& row : kSetpointTable.rows) {
        for (const int text : {row.more.label, row.more.group, row.more.help})
            EXPECT_TRUE(context.texts.Has(text)) << row.stem << " " << text;
        if (!row.more.list.empty()) {
            EXPECT_NE(context.lists.List(row.more.list), nullptr) << row.stem;
        }
    }
    const CTextList& kinds = setpoints.Lists().Kinds();
    ASSERT_EQ(kinds.Count(), 32u);
    int number = 0;
    for (const auto& entry : kinds) {
        EXPECT_EQ(FindKindByCommand(entry.key), ++number);
        EXPECT_EQ(CommandOf(static_cast<SetpointKind>(number)), entry.key);
    }
    EXPECT_EQ(FindKindByCommand("gross"), 1);
}

}  // namespace
}  // namespace calyx::test
