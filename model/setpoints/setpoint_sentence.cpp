#include "model/setpoints/setpoint_sentence.h"

#include <cstdint>
#include <string_view>
#include <vector>

#include "model/setpoints/setpoint_codecs.h"

namespace calyx {

namespace {

// Numbers of the resource texts that the sentence is put together from.
namespace say {
// What happens at the output: {1} point, {2} slot.
constexpr int kCloses = 3801, kOpens = 3802, kTrips = 3803;
constexpr int kWithOutput = 3804, kWithInverted = 3805;  // {1} sentence, {2} point, {3} slot
// What is watched.
constexpr int kGross = 3811, kNet = 3812, kNegativeGross = 3813, kNegativeNet = 3814, kAccumulated = 3815,
              kAverage = 3816, kRate = 3817, kWeight = 3818;
constexpr int kScale = 3820, kNoScale = 3821, kPulse = 3822, kNoPulse = 3823;  // {1} number
constexpr int kOf = 3824;                                                      // {1} quantity, {2} source
// The target of a relative setpoint: {1} value, {2} setpoint.
constexpr int kAbove = 3825, kBelow = 3826, kPercentOf = 3827, kResettable = 3828;
// The trip: {1} action, {2} what is watched, {3} target, {4} band.
constexpr int kHigher = 3831, kLower = 3832, kInBand = 3833, kOutBand = 3834;
// Qualifiers.
constexpr int kPreact = 3841, kPreactFlow = 3842, kPreactLearn = 3843;  // {1} value, {2} trips
constexpr int kHysteresis = 3844, kSamples = 3845, kTolerance = 3846, kCoast = 3847;
// One kind each; {1} the action or the one value there is, unless said.
constexpr int kOff = 3851, kWaits = 3852, kDelay = 3853, kCounter = 3854, kPause = 3855, kJog = 3856,
              kAlways = 3857, kNever = 3858, kBatchPrint = 3859, kDelta = 3860 /* {2} value */;
constexpr int kAtZero = 3861, kMoves = 3862, kInRange = 3863;          // {2} scale
constexpr int kTimer = 3864;                                           // {1} time, {2} start, {3} end
constexpr int kConcurrent = 3865, kConcurrentTimed = 3866;             // {2} start, {3} end, {4} time
constexpr int kDaily = 3867, kDailyFor = 3868;                         // {2} time, {3} duration
constexpr int kInputOn = 3869, kInputsOn = 3870, kAfterCounts = 3871;  // {2} inputs, {3} count
constexpr int kWeigher = 3872;                                         // {2} under, {3} over
constexpr int kWeigherOutput = 3873;                                   // {1} output, {2} what it says
constexpr int kUnder = 3874, kOver = 3875, kAccept = 3876;
constexpr int kInput = 3877, kInputs = 3878, kNoInput = 3879;  // {1} numbers, {2} where
constexpr int kMainBoard = 3880, kSlot = 3881;
// What follows.
constexpr int kThen = 3883, kComma = 3884, kAnd = 3885;
constexpr int kClearAccum = 3886, kClearTare = 3887, kPushTare = 3888, kAccumulate = 3889,
              kAccumulateQuietly = 3890, kPrint = 3891, kPrintAtRest = 3892, kAlarm = 3893, kBranch = 3894;
constexpr int kEnd = 3895, kIsStep = 3896, kNotEnabled = 3897;
}  // namespace say

std::string Number(double value) {
    std::string text;
    AppendNumber(text, value);
    return text;
}

std::string Clock(DayTime time) {
    std::string text;
    AppendDayTime(text, time, DayTimeForm::HourMinuteSecond, ":");
    return text;
}

class Sentence {
  public:
    Sentence(const SetpointFields& fields, const ResourceTexts& texts) : f_(fields), texts_(texts) {}

    std::string Write() const {
        if (f_.IsOff()) return Text(say::kOff);
        std::string sentence = Clause() + Qualifiers() + Then() + Text(say::kEnd);
        if (Has("BATCH") && f_.batch) sentence += Text(say::kIsStep);
        if (!f_.enabled) sentence += Text(say::kNotEnabled);
        return sentence;
    }

  private:
    bool Has(std::string_view stem) const { return HasSetpointLine(f_, stem); }
    std::string Text(int number) const { return texts_.Text(number); }
    std::string Format(int number, std::initializer_list<std::string_view> words) const {
        return texts_.Format(number, words);
    }

    bool HasOutput() const { return Has("DIGOUT") && f_.digOutCard != 0; }
    bool Inverted() const { return Has("SENSE") && f_.sense.Trimmed() == "INVERT"; }

    // "Closes output 3 of slot 1"
    std::string Action() const {
        if (!HasOutput()) return Text(say::kTrips);
        return Format(Inverted() ? say::kOpens : say::kCloses, {Number(f_.digOutPos), Number(f_.digOutCard)});
    }
    // A step of the batch has its output beside what it does.
    std::string WithOutput(std::string step) const {
        if (!HasOutput()) return step;
        return Format(Inverted() ? say::kWithInverted : say::kWithOutput,
                      {step, Number(f_.digOutPos), Number(f_.digOutCard)});
    }
    std::string Source() const {
        const bool pulses = WatchesPulses(f_.kind);
        if (f_.source == 0) return Text(pulses ? say::kNoPulse : say::kNoScale);
        return Format(pulses ? say::kPulse : say::kScale, {Number(f_.source)});
    }
    std::string Subject(int quantity) const { return Format(say::kOf, {Text(quantity), Source()}); }

    // The target may be worded by the setpoint that it is relative to.
    std::string Target(int relative = 0) const {
        if (relative == 0) return Number(f_.value);
        return Format(relative, {Number(f_.value), Number(f_.relNum)});
    }
    std::string Trip(int quantity, int relative = 0) const {
        const std::string_view word = f_.trip.Trimmed();
        const int trip = word == "HIGHER"   ? say::kHigher
                         : word == "LOWER"  ? say::kLower
                         : word == "INBAND" ? say::kInBand
                                            : say::kOutBand;
        return Format(trip, {Action(), Subject(quantity), Target(relative), Number(f_.bandValue)});
    }

    // "inputs 17, 18 of slot 2"; point n is bit n - 1.
    std::string Inputs() const {
        std::string points;
        for (int point = 1; point <= 31; ++point) {
            if ((static_cast<std::uint32_t>(f_.inputMask) >> (point - 1) & 1u) == 0) continue;
            points += (points.empty() ? "" : ", ") + std::to_string(point);
        }
        const std::string where =
            f_.digInCard == 0 ? Text(say::kMainBoard) : Format(say::kSlot, {Number(f_.digInCard)});
        if (points.empty()) return Format(say::kNoInput, {{}, where});
        return Format(SeveralInputs() ? say::kInputs : say::kInput, {points, where});
    }
    bool SeveralInputs() const { return (f_.inputMask & (f_.inputMask - 1)) != 0; }

    std::string CheckWeigher() const {
        std::string text =
            Format(say::kWeigher, {Subject(say::kWeight), Number(f_.chVUnder), Number(f_.chVOver)});
        const std::pair<int, int> outputs[] = {
            {f_.chDUnder, say::kUnder}, {f_.chDOver, say::kOver}, {f_.chDAccept, say::kAccept}};
        for (const auto& [point, meaning] : outputs) {
            if (point == 0 || f_.digOutCard == 0) continue;
            text += Format(say::kWeigherOutput, {Number(point), Number(f_.digOutCard), Text(meaning)});
        }
        return text;
    }

    std::string Concurrent() const {
        return Format(f_.value == 0 ? say::kConcurrent : say::kConcurrentTimed,
                      {Action(), Number(f_.start), Number(f_.end), Number(f_.value)});
    }
    std::string TimeOfDay() const {
        return Format(f_.duration == DayTime{} ? say::kDaily : say::kDailyFor,
                      {Action(), Clock(f_.time), Clock(f_.duration)});
    }

    std::string Clause() const {
        using Kind = SetpointKind;
        switch (f_.kind) {
            case Kind::Off:
                break;
            case Kind::Gross:
                return Trip(say::kGross);
            case Kind::Net:
                return Trip(say::kNet);
            case Kind::NegativeGross:
                return Trip(say::kNegativeGross);
            case Kind::NegativeNet:
                return Trip(say::kNegativeNet);
            case Kind::Accumulator:
                return Trip(say::kAccumulated);
            case Kind::RelativeAbove:
                return Trip(say::kWeight, say::kAbove);
            case Kind::RelativeBelow:
                return Trip(say::kWeight, say::kBelow);
            case Kind::RelativePercent:
                return Trip(say::kWeight, say::kPercentOf);
            case Kind::RelativeResettable:
                return Trip(say::kWeight, say::kResettable);
            case Kind::Average:
                return Trip(say::kAverage);
            case Kind::RateOfChange:
                return Trip(say::kRate);
            case Kind::PulseRate:
                return Trip(say::kRate);
            default:
                return OtherClause();
        }
        return {};
    }
    // The kinds that trip at no level.
    std::string OtherClause() const {
        using Kind = SetpointKind;
        switch (f_.kind) {
            case Kind::DigitalInput:
                return Format(SeveralInputs() ? say::kInputsOn : say::kInputOn, {Action(), Inputs()});
            case Kind::InputCount:
                return Format(say::kAfterCounts, {Action(), Inputs(), Number(f_.value)});
            case Kind::PulseCount:
                return Format(say::kAfterCounts, {Action(), Source(), Number(f_.value)});
            case Kind::CentreOfZero:
                return Format(say::kAtZero, {Action(), Source()});
            case Kind::InMotion:
                return Format(say::kMoves, {Action(), Source()});
            case Kind::InRange:
                return Format(say::kInRange, {Action(), Source()});
            case Kind::Concurrent:
                return Concurrent();
            case Kind::TimeOfDay:
                return TimeOfDay();
            case Kind::CheckWeigher:
                return CheckWeigher();
            default:
                return WithOutput(Step());
        }
    }
    // The steps of a batch that do nothing but steer it.
    std::string Step() const {
        using Kind = SetpointKind;
        switch (f_.kind) {
            case Kind::WaitStandstill:
                return Format(say::kWaits, {Source()});
            case Kind::Delay:
                return Format(say::kDelay, {Number(f_.value)});
            case Kind::Counter:
                return Format(say::kCounter, {Number(f_.value)});
            case Kind::Pause:
                return Text(say::kPause);
            case Kind::AutoJog:
                return Format(say::kJog, {Number(f_.value)});
            case Kind::Always:
                return Text(say::kAlways);
            case Kind::Never:
                return Text(say::kNever);
            case Kind::BatchPrint:
                return Text(say::kBatchPrint);
            case Kind::Timer:
                return Format(say::kTimer, {Number(f_.value), Number(f_.start), Number(f_.end)});
            default:
                return Format(say::kDelta, {Subject(say::kWeight), Number(f_.value)});
        }
    }

    std::string Preact() const {
        const std::string_view word = f_.preact.Trimmed();
        if (!Has("PREACT") || word == "OFF") return {};
        const int text = word == "LEARN"  ? say::kPreactLearn
                         : word == "FLOW" ? say::kPreactFlow
                                          : say::kPreact;
        return Format(text, {Number(f_.preValue), Number(f_.preCount)});
    }
    std::string Qualifiers() const {
        std::string text = Preact();
        if (Has("HYSTER") && f_.hysteresis != 0) text += Format(say::kHysteresis, {Number(f_.hysteresis)});
        if (Has("TOLBAND")) text += Format(say::kTolerance, {Number(f_.tolBand), Number(f_.tolCount)});
        if (Has("NSAMPLE") && f_.nSample > 1) text += Format(say::kSamples, {Number(f_.nSample)});
        if (Has("COAST") && f_.coastTime != 0) text += Format(say::kCoast, {Number(f_.coastTime)});
        return text;
    }

    // "; then clears the tare, prints and branches to setpoint 4"
    std::string Then() const {
        std::vector<std::string> deeds;
        const auto add = [&](bool does, std::string_view stem, int text) {
            if (does && Has(stem)) deeds.push_back(Text(text));
        };
        add(f_.clearAccum, "CLRACCM", say::kClearAccum);
        add(f_.clearTare, "CLRTARE", say::kClearTare);
        add(f_.pushTare, "PSHTARE", say::kPushTare);
        const auto accumulates = f_.pushAccum.Trimmed(), prints = f_.pushPrint.Trimmed();
        add(accumulates != "OFF", "PSHACCM",
            accumulates == "QUIET" ? say::kAccumulateQuietly : say::kAccumulate);
        add(prints != "OFF", "PSHPRINT", prints == "WAITSS" ? say::kPrintAtRest : say::kPrint);
        add(f_.alarm, "ALARM", say::kAlarm);
        if (Has("BRANCH") && f_.branch != 0) deeds.push_back(Format(say::kBranch, {Number(f_.branch)}));
        if (deeds.empty()) return {};
        std::string list = deeds.front();
        for (std::size_t i = 1; i < deeds.size(); ++i)
            list = Format(i + 1 == deeds.size() ? say::kAnd : say::kComma, {list, deeds[i]});
        return Format(say::kThen, {list});
    }

    const SetpointFields& f_;
    const ResourceTexts& texts_;
};

}  // namespace

std::string SetpointSentence(const CSetpoint& setpoint, const ResourceTexts& texts) {
    return Sentence(setpoint.Values(), texts).Write();
}

}  // namespace calyx
