// Edits of whole setpoints: copies, other numbers, places changed.

#include "model/setpoints/setpoint_edits.h"

#include "model/language/error.h"
#include "model/setpoints/setpoint_batch.h"
#include "tests/setpoints/setpoints_fixture.h"

namespace calyx::test {
namespace {

class SetpointEdits : public Setpoints {
  protected:
    // The kind of each setpoint up to the tenth with what it refers to: "NET COUNTER>1 +REL>2 OFF ..."
    std::string Sequence() const {
        std::string sequence;
        for (int n = 1; n <= 10; ++n) {
            const SetpointFields& fields = setpoints.Item(n).Values();
            sequence += (n == 1 ? "" : " ") + std::string(CommandOf(fields.kind));
            if (fields.relNum != 0) sequence += ">" + std::to_string(fields.relNum);
            if (fields.branch != 0) sequence += ">" + std::to_string(fields.branch);
            if (fields.end != 0) sequence += ">" + Text("START", n) + "-" + Text("END", n);
        }
        return sequence.substr(0, sequence.find(" OFF OFF OFF"));
    }
    // Takes the changes, compares, and takes them back.
    void Expect(const std::vector<Change>& changes, const std::string& sequence) {
        const auto before = setpoints.State();
        EXPECT_TRUE(setpoints.Take(changes, Section::Check::None).empty());
        EXPECT_EQ(Sequence(), sequence);
        // Exactly what changes, in the order of the lines.
        EXPECT_TRUE(Difference(before, setpoints.State()).Changes() == changes);
        ChangeSet set;
        for (const Change& change : changes) set.Add(change);
        setpoints.Take(set.Inverse().Changes(), Section::Check::None);
        EXPECT_EQ(setpoints.State(), before);
    }
    void SetUp() override {
        Read(
            "KIND=GROSS ALIAS=First VALUE=5 KIND#2=COUNTER BRANCH#2=1 KIND#3=+REL RELNUM#3=1 ALIAS#3=Rel "
            "KIND#4=NEVER BRANCH#4=4 KIND#5=TIMER START#5=1 END#5=4 KIND#6=PLSRAT SOURCE#6=3 DSLOT#6=2 "
            "DIGOUT#6=7");
        ASSERT_EQ(Sequence(), "GROSS COUNTER>1 +REL>1 NEVER>4 TIMER>1-4 PLSRAT");
    }
};

TEST_F(SetpointEdits, ReferencesFollowTheirSetpoint) {
    Expect(SwapSetpoints(setpoints, 1, 4), "NEVER>1 COUNTER>4 +REL>4 GROSS TIMER>4-1 PLSRAT");
    Expect(MoveSetpoint(setpoints, 1, 3), "COUNTER>3 +REL>3 GROSS NEVER>4 TIMER>3-4 PLSRAT");
    Expect(MoveSetpoint(setpoints, 4, 2), "GROSS NEVER>2 COUNTER>1 +REL>1 TIMER>1-2 PLSRAT");
    Expect(RenumberSetpoint(setpoints, 1, 7), "OFF COUNTER>7 +REL>7 NEVER>4 TIMER>7-4 PLSRAT GROSS");
    Expect(RenumberSetpoint(setpoints, 6, 4), "GROSS COUNTER>1 +REL>1 PLSRAT TIMER>1-4");
}

TEST_F(SetpointEdits, CopiesAndClearedOnes) {
    Expect(DuplicateSetpoint(setpoints, 3, 7), "GROSS COUNTER>1 +REL>1 NEVER>4 TIMER>1-4 PLSRAT +REL>1");
    Expect(DuplicateSetpoint(setpoints, 4, 1), "NEVER>1 COUNTER>1 +REL>1 NEVER>4 TIMER>1-4 PLSRAT");
    Expect(ClearSetpoint(setpoints, 2), "GROSS OFF +REL>1 NEVER>4 TIMER>1-4 PLSRAT");
    for (const Change& change : DuplicateSetpoint(setpoints, 3, 7)) EXPECT_NE(change.key, "SP.ALIAS#7");
    // An edit in the strict form brings the same about: the kind decides the lists first.
    EXPECT_TRUE(setpoints.Take(DuplicateSetpoint(setpoints, 6, 1), Section::Check::Strict).empty());
    EXPECT_TRUE(setpoints.Take(DuplicateSetpoint(setpoints, 3, 6), Section::Check::Strict).empty());
    EXPECT_EQ(Sequence(), "PLSRAT COUNTER>1 +REL>1 NEVER>4 TIMER>1-4 +REL>1");
    EXPECT_EQ(Text("SOURCE"), "PULSE3");
}

TEST_F(SetpointEdits, LinesThatWereCopiedComeInElsewhere) {
    const auto paste = [&](const std::string& lines, int first) {
        return PasteSetpoints(setpoints, lines, first).changes;
    };
    const std::string rest = " COUNTER>1 +REL>1 NEVER>4 TIMER>1-4 PLSRAT";
    // The counter refers to the first, which comes along; the third to one that does not.
    const std::string two = CopySetpoints(setpoints, {1, 2});
    Expect(paste(two, 7), "GROSS" + rest + " GROSS COUNTER>7 OFF OFF");
    Expect(paste(CopySetpoints(setpoints, {3, 4}), 8), "GROSS" + rest + " OFF +REL>1 NEVER>9 OFF");
    Expect(paste(CopySetpoints(setpoints, {6, 5}), 1), "TIMER>1-4 PLSRAT +REL>1 NEVER>4 TIMER>1-4 PLSRAT");
    // In order, whatever the order of the lines; what was there is as new first.
    Expect(paste("SP.KIND#9=NET\r\nSP.KIND#2=PAUSE\r\n", 5), "GROSS COUNTER>1 +REL>1 NEVER>4 PAUSE NET");
    // An alias goes to a new place only where nobody else has it.
    const auto alias = [&](const std::string& lines, int first) {
        for (const Change& change : paste(lines, first)) {
            if (change.key == SetpointKey("ALIAS", first)) return change.after.value_or("");
        }
        return std::string("as it was");
    };
    EXPECT_EQ(alias("SP.KIND#9=NET\r\nSP.ALIAS#9=FIRST\r\n", 7), "as it was");
    EXPECT_EQ(alias("SP.KIND#9=NET\r\nSP.ALIAS#9=FIRST\r\n", 1), "FIRST");
    EXPECT_EQ(alias("SP.KIND#9=NET\r\nSP.ALIAS#9=Other\r\n", 3), "Other");

    const auto beyond = PasteSetpoints(setpoints, two, 100);
    EXPECT_EQ(beyond.count, 2);
    EXPECT_TRUE(beyond.changes.empty());
    EXPECT_EQ(PasteSetpoints(setpoints, "Hello\r\nSP.VALUE#3=5\r\n", 1).count, 0);
    EXPECT_EQ(PasteSetpoints(setpoints, "SP.KIND#1=NET\r\nSP.VALUE#1=1x\r\n", 1).report.Count(), 1u);
}

TEST_F(SetpointEdits, TheBatchInItsOrder) {
    Read(
        "KIND#2=GROSS BATCH#2=ON KIND#3=GROSS KIND#4=CONCUR START#4=9 END#4=2 KIND#9=PAUSE KIND#10=TIMER "
        "START#10=3 END#10=9 KIND#11=TIMER START#11=2 END#11=9 KIND#12=CONCUR START#12=2.5 KIND#13=DINCNT "
        "BATCH#13=ON");
    std::string order;
    for (const BatchPlace& place : BatchOrder(setpoints)) {
        order += std::to_string(place.number) + (place.isStep ? ":" : "|") + std::to_string(place.first) +
                 "-" + std::to_string(place.last) + " ";
    }
    EXPECT_EQ(order, "2:1-1 11|1-2 9:2-2 4|2-1 13:3-3 10|0-2 12|0-0 ");
}

TEST_F(SetpointEdits, NothingToDoAndNumbersThatAreNone) {
    EXPECT_TRUE(MoveSetpoint(setpoints, 3, 3).empty());
    EXPECT_TRUE(RenumberSetpoint(setpoints, 3, 3).empty());
    EXPECT_TRUE(SwapSetpoints(setpoints, 3, 3).empty());
    EXPECT_TRUE(DuplicateSetpoint(setpoints, 3, 3).empty());
    EXPECT_TRUE(ClearSetpoint(setpoints, 9).empty());
    for (const int number : {0, 101, -1}) {
        EXPECT_THROW(MoveSetpoint(setpoints, 1, number), Error);
        EXPECT_THROW(RenumberSetpoint(setpoints, number, 1), Error);
        EXPECT_THROW(SwapSetpoints(setpoints, 1, number), Error);
        EXPECT_THROW(DuplicateSetpoint(setpoints, 1, number), Error);
        EXPECT_THROW(ClearSetpoint(setpoints, number), Error);
        EXPECT_THROW(PasteSetpoints(setpoints, "", number), Error);
    }
}

}  // namespace
}  // namespace calyx::test
