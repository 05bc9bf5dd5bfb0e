#include "comm/calibration/calibration.h"

#include "comm/link_texts.h"
#include "model/language/error.h"
#include "model/language/text.h"

namespace calyx {

namespace {

constexpr int kCommandMs = 10'000;
constexpr int kScales = 32;

// Numbers of the status texts.
constexpr int kSpanning = 18530, kSpanned = 18531, kSpanFailed = 18532;
constexpr int kZeroing = 18533, kZeroed = 18534, kZeroFailed = 18535;
constexpr int kLinear = 18536, kLinearDone = 18537, kLinearFailed = 18541;
constexpr int kRezeroing = 18538, kRezeroed = 18539, kRezeroFailed = 18540;
constexpr int kReading = 18542, kRead = 18543, kNoLink = 18544, kReadFailed = 18545;
constexpr int kReadingNew = 18546, kRestoring = 18547;

std::string Set(const std::string& command, const std::string& value) {
    return command + "=" + value;
}

}  // namespace

bool CanCalibrate(std::int32_t kind) {
    return kind == 2 || kind == 5 || kind == 7;
}

std::vector<int> ScalesToCalibrate(const CIndicator& document) {
    std::vector<int> numbers;
    for (int n = 1; n <= kScales; ++n) {
        if (CanCalibrate(document.Scales().Scale(n).ScaleType())) numbers.push_back(n);
    }
    return numbers;
}

bool CCalibration::Status(int number, bool success) {
    events_.WriteStatusMessage(number, context_.texts.Text(number));
    return success;
}

bool CCalibration::Connected() {
    try {
        if (!link_.Connected()) link_.Connect();
        return true;
    } catch (const Error&) {
        return Status(kNoLink, false);
    }
}

std::string CCalibration::Version() {
    return StripEcho(link_.GetLine("VERSION").value_or(std::string()), "VERSION");
}

// An indicator that says nothing at all is told from one that is in another mode.
bool CCalibration::InSetupMode() {
    const SendResult result = link_.AskForSetupMode();
    if (result == SendResult::Accepted) return true;
    const bool there = result == SendResult::Refused || link_.StillAnswers();
    return Status(there ? link_text::kNotInSetupMode : kNoLink, false);
}

bool CCalibration::GetCurrentCalibration(int scale) {
    state_ = State::Idle;
    record_ = {.scale = scale, .where = {}, .version = {}, .old = {}};
    if (!Connected() || !InSetupMode()) return false;
    Status(kReading);
    try {
        record_.where = link_.Where();
        record_.version = Version();
    } catch (const Error&) {
        return Status(kReadFailed, false);
    }
    if (!ReadAll(record_.old)) return Status(kReadFailed, false);
    new_ = record_.old;
    return Status(kRead);
}

bool CCalibration::Begin(int scale) {
    if (journal_.Find()) return Status(link_text::kCalibrationWaits, false);
    if (!GetCurrentCalibration(scale)) return false;
    journal_.Keep(record_);
    state_ = State::Ready;
    return true;
}

bool CCalibration::Acknowledged(const std::string& command) {
    state_ = State::Changed;
    last_ = link_.Send(command, kCommandMs).result;
    return last_ == SendResult::Accepted;
}

// What a person broke off has not failed, and nothing is to be said about it.
bool CCalibration::Failed(int number) {
    return last_ == SendResult::Cancelled ? false : Status(number, false);
}

bool CCalibration::Step(std::initializer_list<std::string> commands, int begun, int done, int failed) {
    if (state_ == State::Idle) return Status(failed, false);
    Status(begun);
    for (const std::string& command : commands) {
        if (!Acknowledged(command)) return Failed(failed);
    }
    return Status(done);
}

bool CCalibration::SetTestWeight(const std::string& weight) {
    const int scale = record_.scale;
    return state_ != State::Idle && Acknowledged(Set(GetWeightValueCommand(scale), weight));
}

bool CCalibration::Zero(const std::string& testWeight) {
    const int scale = record_.scale;
    const std::string zero = GetDoZeroCalCommand(scale);
    if (testWeight.empty()) return Step({zero}, kZeroing, kZeroed, kZeroFailed);
    return Step({Set(GetWeightValueCommand(scale), testWeight), zero}, kZeroing, kZeroed, kZeroFailed);
}

bool CCalibration::Span() {
    return Step({GetDoSpanCalCommand(record_.scale)}, kSpanning, kSpanned, kSpanFailed);
}

bool CCalibration::Rezero() {
    return Step({GetDoReZeroCommand(record_.scale)}, kRezeroing, kRezeroed, kRezeroFailed);
}

bool CCalibration::Linear(int point, const std::string& weight) {
    const int scale = record_.scale;
    if (point < 1 || point > CalibrationValues::kPoints || state_ == State::Idle)
        return Status(kLinearFailed, false);
    Status(kLinear);
    bool done = Acknowledged(Set(GetLinearWeightCalCommand(point, scale), weight)) &&
                Acknowledged(GetDoLinearCalCommand(point, scale));
    const auto count = done ? GetCalData(GetLinearCountsCalCommand(point, scale)) : std::nullopt;
    if (!count) return Failed(kLinearFailed);
    new_.linearWeights[static_cast<std::size_t>(point - 1)] = weight;
    new_.linearCounts[static_cast<std::size_t>(point - 1)] = *count;
    return Status(kLinearDone);
}

std::optional<std::string> CCalibration::GetCalData(const std::string& command) {
    try {
        const auto reply = link_.GetLine(command);
        std::string value = reply ? StripEcho(*reply, command) : std::string();
        if (value.empty()) return std::nullopt;
        return value;
    } catch (const Error&) {
        return std::nullopt;  // the link is gone
    }
}

bool CCalibration::ReadAll(CalibrationValues& values) {
    std::vector<KeyValue> lines = values.Lines(record_.scale);
    for (KeyValue& line : lines) {
        const auto value = GetCalData(line.key);
        if (!value) return false;
        line.value = *value;
    }
    return CalibrationValues::Read(lines, record_.scale, values);
}

bool CCalibration::GetNewCalibration() {
    if (state_ == State::Idle) return Status(kReadFailed, false);
    Status(kReadingNew);
    if (!ReadAll(new_)) return Status(kReadFailed, false);
    state_ = State::Read;
    return Status(kRead);
}

bool CCalibration::Finish() {
    if (state_ == State::Idle || (state_ != State::Read && !GetNewCalibration())) return false;
    journal_.Remove();
    state_ = State::Idle;
    return true;
}

std::optional<CIndicator::Taken> CCalibration::Finish(CIndicator& document) {
    if (!Finish()) return std::nullopt;
    return document.Import(new_.Lines(record_.scale));
}

bool CCalibration::Cancel() {
    if (state_ == State::Idle) return true;
    // Before the first command there is nothing to put back.
    if (state_ != State::Ready && !RestoreOld()) return false;
    journal_.Remove();
    state_ = State::Idle;
    return true;
}

// Every line is tried, whatever became of the one before. Only what is read back counts.
bool CCalibration::RestoreOld() {
    if (!Connected()) return false;
    Status(kRestoring);
    for (const KeyValue& line : record_.old.Lines(record_.scale)) {
        if (!link_.SendData(Set(line.key, line.value), kCommandMs) && !link_.StillAnswers())
            return Status(kNoLink, false);
    }
    CalibrationValues held;
    if (!ReadAll(held)) return Status(kReadFailed, false);
    const bool back = held == record_.old;
    return Status(back ? link_text::kCalibrationBack : link_text::kCalibrationNotBack, back);
}

bool CCalibration::RestorePending() {
    const auto pending = journal_.Find();
    if (!pending) return true;
    record_ = *pending;
    if (!Connected()) return false;
    try {
        if (Version() != record_.version) return Status(link_text::kOtherIndicator, false);
    } catch (const Error&) {
        return Status(kNoLink, false);
    }
    if (!InSetupMode() || !RestoreOld()) return false;
    journal_.Remove();
    state_ = State::Idle;
    return true;
}

}  // namespace calyx
