// Edits of whole setpoints: copies, other numbers, places changed.

#include "model/setpoints/setpoint_edits.h"

#include "model/language/error.h"
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
    }
}

}  // namespace
}  // namespace calyx::test
