// What a setpoint does, in words.

#include "model/setpoints/setpoint_sentence.h"

#include <set>

#include "tests/setpoints/setpoints_fixture.h"

namespace calyx::test {
namespace {

TEST_F(Setpoints, SentencesSayWhatTheLinesSay) {
    const struct {
        const char* lines;
        const char* sentence;
    } cases[] = {
        {"KIND=OFF VALUE=5", "Off."},
        {"KIND=GROSS VALUE=1200 SOURCE=2 HYSTER=5 PREACT=ON PREVAL=25 PSHPRINT=ON DSLOT=1 DIGOUT=3",
         "Closes output 3 of slot 1 when the gross weight of scale 2 rises to 1200, 25 before it (preact), "
         "with "
         "hysteresis 5; then prints."},
        {"KIND=NET VALUE=2.5 SOURCE=1 TRIP=INBAND BANDVAL=0.5 HYSTER=5 PREACT=ON ALARM=ON ENABLE=OFF",
         "Trips while the net weight of scale 1 stays within 0.5 of 2.5; then sounds the alarm. Not "
         "enabled."},
        {"KIND=+REL VALUE=10 SOURCE=1 RELNUM=3 BATCH=ON TRIP=LOWER PREACT=LEARN PREVAL=2 PCOUNT=4 TOLBAND=1 "
         "TOLCNT=2 "
         "CLRACCM=ON PSHTARE=ON BRANCH=4",
         "Trips when the weight of scale 1 falls to 10 above setpoint 3, 2 before it and learning from 4 "
         "(preact), "
         "with tolerance 1 and tolerance count 2; then clears the accumulator, takes the tare and branches "
         "to "
         "setpoint 4. Step of the batch."},
        {"KIND=AVG VALUE=500 TRIP=OUTBAND BANDVAL=2.5 NSAMPLE=20",
         "Trips while the average weight of a scale that is not chosen yet is more than 2.5 away from 500, "
         "averaged "
         "over 20 samples."},
        {"KIND=DIGIN DISLOT=2 MASK=196608 DSLOT=1 DIGOUT=1 SENSE=INVERT",
         "Opens output 1 of slot 1 when inputs 17, 18 of slot 2 are on."},
        {"KIND=DINCNT MASK=32 VALUE=1000", "Trips after 1000 counts of input 6 of the main board."},
        {"KIND=PLSCNT SOURCE=1 VALUE=180 COAST=2",
         "Trips after 180 counts of pulse input 1, with coast time 2."},
        {"KIND=PLSRAT SOURCE=1 VALUE=9 BANDVAL=1",
         "Trips while the rate of pulse input 1 stays within 1 of 9."},
        {"KIND=CHKWEI SOURCE=1 VUNDER=495 VOVER=512.5 DSLOT=4 DUNDER=1 DOVER=2",
         "Checks the weight of scale 1: underweight below 495, overweight above 512.5, accepted between "
         "them; output "
         "1 of slot 4 tells underweight; output 2 of slot 4 tells overweight."},
        {"KIND=TOD TIME=1830 DURATION=000010 CLRACCM=ON",
         "Trips every day at 18:30:00 for 00:00:10; then clears the accumulator."},
        {"KIND=DELAY VALUE=30 DSLOT=2 DIGOUT=7", "Waits for a delay of 30, with output 7 of slot 2."},
        {"KIND=CONCUR VALUE=50 START=2 END=9 DSLOT=2 DIGOUT=6",
         "Closes output 6 of slot 2 from setpoint 2 to setpoint 9 of the batch, with time 50."},
        {"KIND=COUNTER VALUE=3 BRANCH=1", "Counts up to 3; then branches to setpoint 1."},
    };
    for (const auto& one : cases) {
        Read(one.lines);
        EXPECT_EQ(SetpointSentence(setpoints.Item(1), context.texts), one.sentence) << one.lines;
    }
}

TEST_F(Setpoints, EveryKindHasASentenceOfItsOwn) {
    std::set<std::string> sentences;
    for (int kind = kFirstSetpointKind; kind <= kLastSetpointKind; ++kind) {
        const std::string word(CommandOf(static_cast<SetpointKind>(kind)));
        Read("KIND=" + word + " SOURCE=1 VALUE=5 START=1 END=2 MASK=1");
        const std::string sentence = SetpointSentence(setpoints.Item(1), context.texts);
        EXPECT_TRUE(sentence.ends_with('.')) << sentence;
        EXPECT_EQ(sentence.find_first_of("{}#"), std::string::npos) << sentence;
        EXPECT_TRUE(sentences.insert(sentence).second) << word << ": " << sentence;
    }
}

}  // namespace
}  // namespace calyx::test
