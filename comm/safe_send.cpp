#include "comm/safe_send.h"

#include <algorithm>
#include <system_error>
#include <unordered_set>

#include "comm/calibration/commands.h"
#include "comm/link_texts.h"
#include "model/language/error.h"
#include "model/language/reason.h"
#include "model/language/text.h"

namespace calyx {

namespace {

using Fate = PlannedLine::Fate;

template <class Take>
void EachLine(const std::vector<DownloadStep>& steps, Take&& take) {
    for (const DownloadStep& step : steps) {
        ForEachLine(step.lines, [&](std::string_view line) {
            if (!Trim(line).empty()) take(step, line);
        });
    }
}

std::optional<KeyValue> Parameter(const DownloadStep& step, std::string_view line) {
    const std::size_t equals = line.find('=');
    if (!step.parameters || equals == std::string_view::npos) return std::nullopt;
    return KeyValue{std::string(line.substr(0, equals)), std::string(line.substr(equals + 1))};
}

// What an indicator answers to the key alone. Blanks belong to the value, and so would "??".
std::optional<std::string> ValueIn(const std::string& reply, const std::string& key) {
    std::optional<std::string> value;
    ForEachLine(reply, [&](std::string_view line) {
        const bool keyed = StartsNoCase(line, key) && line.substr(key.size()).starts_with('=');
        if (keyed && !value) value = std::string(line.substr(key.size() + 1));
    });
    if (value) return value;
    std::string bare = StripEcho(reply, key);
    return bare.empty() ? std::nullopt : std::optional(std::move(bare));
}

}  // namespace

std::string SendCounts::InWords(const ResourceTexts& texts) const {
    return texts.Format(link_text::kCounts,
                        {std::to_string(sent), std::to_string(refused), std::to_string(unanswered),
                         std::to_string(unchanged), std::to_string(notKnown), std::to_string(notReadBack)});
}

bool SafeSendReport::Success() const {
    return download.end == DownloadReport::End::Complete && readBack &&
           std::all_of(lines.begin(), lines.end(), [](const Line& line) { return line.green; });
}

std::string SafeSendReport::InWords(const ResourceTexts& texts) const {
    if (!trouble.empty()) return trouble + " " + counts.InWords(texts);
    int end = link_text::kNotAllReadBack;
    if (Success()) end = restores ? link_text::kRestored : link_text::kAllReadBack;
    if (lines.empty()) end = link_text::kNothingToSend;
    return texts.Text(end) + " " + counts.InWords(texts);
}

CSafeSend::CSafeSend(CIndicatorComm& link, const ModelContext& context, const CancelFlag& cancel,
                     IDownloadEvents& download, IUploadEvents& upload, Places places)
    : link_(link),
      context_(context),
      cancel_(cancel),
      download_(download),
      upload_(upload),
      places_(std::move(places)),
      journal_(*context.files, context.texts, places_.journal) {}

std::optional<Held> CSafeSend::ReadIndicator() {
    UploadReport read = Upload(link_, context_, upload_);
    if (read.end == UploadReport::End::Cancelled) return std::nullopt;
    if (read.end != UploadReport::End::Complete)
        throw Error(code::kLink, "Calyx.CSafeSend.ReadIndicator", read.notice);
    return Held(context_, std::move(read.text), link_.Where());
}

const Held* CSafeSend::Prepare(std::string_view stamp) {
    before_.reset();
    last_.reset();
    auto held = ReadIndicator();
    if (!held) return nullptr;
    backup_ = places_.backupFolder + "indicator " + std::string(stamp) + ".mrn";
    WriteUpload(*context_.files, context_.texts, backup_, held->text);
    before_ = std::make_unique<Held>(std::move(*held));
    return before_.get();
}

SendPlan CSafeSend::Preview(const CIndicator& document, const DownloadOptions& options) const {
    return SendPlan(document, *before_, options, context_.target.Gated());
}

SafeSendReport CSafeSend::Send(const SendPlan& plan, const DownloadOptions& options,
                               const std::string& documentName) {
    SendRecord record{.where = link_.Where(),
                      .document = documentName,
                      .backup = backup_,
                      .target = context_.target,
                      .timeoutMs = options.timeoutMs,
                      .haltOnError = options.haltOnError,
                      .unchanged = plan.Count(Fate::Same),
                      .notKnown = plan.Count(Fate::NotKnown),
                      .steps = plan.Steps(),
                      .fates = {}};
    std::erase_if(record.steps, [](const DownloadStep& step) { return step.lines.empty(); });
    if (!record.steps.empty()) journal_.Begin(record);
    return Work(std::move(record));
}

SafeSendReport CSafeSend::Resume() {
    auto record = journal_.Find();
    if (!record) return {};
    journal_.GoOn();
    backup_ = record->backup;
    return Work(std::move(*record));
}

SafeSendReport CSafeSend::Work(SendRecord record) {
    SafeSendReport report;
    report.restores = record.restores;
    report.counts.unchanged = record.unchanged;
    report.counts.notKnown = record.notKnown;
    report.download = RunSteps(record);
    record.fates = report.download.fates;
    report.trouble = report.download.reason;
    if (report.download.end == DownloadReport::End::Aborted) report.trouble = report.download.status;
    if (report.Paused()) {
        report.trouble = context_.texts.Format(
            link_text::kPaused,
            {std::to_string(
                 report.download.total -
                 static_cast<int>(std::count(record.fates.begin(), record.fates.end(), LineFate::Waiting))),
             std::to_string(report.download.total)});
    } else if (!cancel_ || report.download.end != DownloadReport::End::Aborted) {
        journal_.Remove();  // a program that is being ended leaves it for its next start
    }
    journal_.Rest();
    ReadBack(report, record);
    last_ = std::move(record);
    return report;
}

DownloadReport CSafeSend::RunSteps(const SendRecord& record) {
    JournaledEvents events(journal_, download_);
    CDownload download(link_, cancel_, events);
    struct Running {
        CDownload*& place;
        ~Running() { place = nullptr; }
    };
    const Running running{running_ = &download};
    const DownloadOptions options{.timeoutMs = record.timeoutMs, .haltOnError = record.haltOnError};
    return download.RunSteps(record.steps, options, context_.texts, record.fates);
}

void CSafeSend::ReadBack(SafeSendReport& report, const SendRecord& record) {
    std::optional<Held> held;
    if (!report.Paused() && report.download.accepted > 0 && !cancel_) {
        try {
            held = ReadAgain(record);
        } catch (const Error& error) {
            if (report.trouble.empty()) report.trouble = error.Description();
        }
    }
    const bool nothingSent = report.download.total == 0;
    report.readBack = held.has_value() || nothingSent;
    const Target target = context_.target.Gated();
    std::size_t place = 0;
    EachLine(record.steps, [&](const DownloadStep& step, std::string_view text) {
        SafeSendReport::Line line{.line = std::string(text), .fate = record.fates[place++], .held = {}};
        const auto parameter = Parameter(step, text);
        line.readable = parameter.has_value();
        const bool accepted = line.fate == LineFate::Accepted;
        line.green = accepted && (!parameter || (held && held->Holds(*parameter, target)));
        if (parameter && held) {
            if (const std::string* found = held->Find(parameter->key)) line.held = *found;
        }
        report.counts.sent += accepted ? 1 : 0;
        report.counts.refused += line.fate == LineFate::Refused ? 1 : 0;
        report.counts.unanswered += line.fate == LineFate::Unanswered ? 1 : 0;
        report.counts.notReadBack += accepted && !line.green ? 1 : 0;
        report.lines.push_back(std::move(line));
    });
}

// A few lines are asked for one by one: the whole configuration takes a minute on a slow line.
std::optional<Held> CSafeSend::ReadAgain(const SendRecord& record) {
    if (!before_) return ReadIndicator();
    std::vector<std::string> keys;
    bool cleared = false;
    std::size_t place = 0;
    EachLine(record.steps, [&](const DownloadStep& step, std::string_view line) {
        cleared = cleared || !step.clears.empty();
        if (record.fates[place++] != LineFate::Accepted) return;
        if (auto parameter = Parameter(step, line)) keys.push_back(std::move(parameter->key));
    });
    return cleared || keys.size() > places_.askUpTo ? ReadIndicator() : Ask(keys);
}

// What it held before, with the answers in their places.
std::optional<Held> CSafeSend::Ask(const std::vector<std::string>& keys) {
    std::vector<KeyValue> lines = before_->lines;
    for (const std::string& key : keys) {
        const auto reply = link_.GetLine(key);
        if (!reply) return std::nullopt;
        std::erase_if(lines, [&key](const KeyValue& line) { return EqualNoCase(line.key, key); });
        if (auto value = ValueIn(*reply, key)) lines.push_back({key, std::move(*value)});
    }
    std::string text;
    for (const KeyValue& line : lines) text += line.key + "=" + line.value + "\r\n";
    return Held(context_, std::move(text), link_.Where());
}

SafeSendReport CSafeSend::RestorePending() {
    last_ = journal_.Find();
    if (!last_) return {};
    last_->fates.resize(CountLines(last_->steps), LineFate::Waiting);
    backup_ = last_->backup;
    before_.reset();
    return Restore();
}

SafeSendReport CSafeSend::Restore() {
    if (!last_) return {};
    if (backup_.empty())
        throw Error(code::kFileNotReadable, "Calyx.CSafeSend.Restore",
                    context_.texts.Text(link_text::kNoBackup));
    if (!before_) {
        try {
            before_ = std::make_unique<Held>(context_, context_.files->Read(backup_), backup_);
        } catch (const std::system_error& error) {
            throw Error(code::kFileNotReadable, "Calyx.CSafeSend.Restore",
                        context_.texts.Format(code::kFileNotReadable, {backup_, Reason(error)}));
        }
    }
    std::vector<std::string> cannotGoBack;
    SendRecord record{.where = link_.Where(),
                      .document = last_->document,
                      .backup = backup_,
                      .target = context_.target,
                      .timeoutMs = last_->timeoutMs,
                      .restores = true,
                      .steps = StepsBack(cannotGoBack),
                      .fates = {}};
    const SendRecord undone = *last_;
    if (CountLines(record.steps) > 0) journal_.Begin(record);
    SafeSendReport report = Work(std::move(record));
    report.cannotGoBack = std::move(cannotGoBack);
    last_ = undone;  // can be tried again
    return report;
}

// A line whose answer was lost may have been stored: it goes back as well.
std::vector<DownloadStep> CSafeSend::StepsBack(std::vector<std::string>& cannotGoBack) const {
    std::vector<DownloadStep> back;
    std::unordered_set<std::string> seen;
    std::size_t place = 0;
    bool first = true;
    for (const DownloadStep& step : last_->steps) {
        DownloadStep undo{.status = context_.texts.Text(link_text::kRestoring), .lines = {}};
        undo.clears = step.clears;
        bool touched = false;
        EachLine({step}, [&](const DownloadStep&, std::string_view line) {
            const LineFate fate = place < last_->fates.size() ? last_->fates[place] : LineFate::Waiting;
            const bool sent =
                fate == LineFate::Accepted || fate == LineFate::Unanswered ||
                (fate == LineFate::Waiting && (place == 0 || last_->fates[place - 1] != LineFate::Waiting));
            ++place;
            const auto parameter = Parameter(step, line);
            touched = touched || sent;
            if (!sent || !parameter || !step.clears.empty() || !seen.insert(Upper(parameter->key)).second)
                return;
            const std::string* held = before_->Find(parameter->key);
            if (held == nullptr) return cannotGoBack.push_back(parameter->key);
            undo.lines += parameter->key + "=" + *held + "\r\n";
        });
        if (touched && !step.clears.empty()) {
            undo.lines = step.lines.substr(0, step.lines.find_first_of("\r\n")) + "\r\n";
            undo.needs = DownloadStep::Needs::FirstLine;
            for (const KeyValue& line : before_->lines) {
                if (StartsNoCase(line.key, step.clears)) undo.lines += line.key + "=" + line.value + "\r\n";
            }
        }
        if (undo.lines.empty()) continue;
        undo.probe = std::exchange(first, false);
        back.push_back(std::move(undo));
    }
    return back;
}

void CSafeSend::Abort() {
    if (running_ != nullptr) running_->Abort();
}

}  // namespace calyx
