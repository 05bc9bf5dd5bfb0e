#include "cli/safe_transfer.h"

#include <filesystem>

#include "cli/exit.h"
#include "cli/text.h"
#include "cli/transfer.h"
#include "comm/link_texts.h"
#include "platform/paths.h"

namespace calyx::cli {

namespace {

std::string BackupFolder(Program& program) {
    const std::string folder = program.App().folders.userData + "backups";
    std::error_code failure;  // writing into it tells
    std::filesystem::create_directories(PathOf(folder), failure);
    return FolderText(folder);
}

// One run of the safe way, with its progress.
struct Safe {
    Progress progress;
    DownloadProgress download;
    UploadProgress upload;
    CSafeSend sending;

    Safe(Program& program, Link& link)
        : progress(program.Ends()),
          download(program, progress),
          upload(program, progress),
          sending(link.Comm(), program.Model(), program.App().cancel, download, upload,
                  {BackupFolder(program), SendJournalFile(program)}) {}
};

std::string FateText(const SafeSendReport::Line& line, const ResourceTexts& texts) {
    if (line.fate == LineFate::Refused) return texts.Text(link_text::kLineRefused);
    if (line.fate == LineFate::Unanswered) return texts.Text(link_text::kLineUnanswered);
    if (line.fate == LineFate::HeldBack) return texts.Text(link_text::kLineHeldBack);
    if (line.fate == LineFate::Waiting) return "not sent";
    return line.held ? "the indicator holds " + Quoted(*line.held) : "not found in the indicator";
}

Json LineJson(const SafeSendReport::Line& line) {
    return {{"line", Utf8(line.line)},
            {"accepted", line.fate == LineFate::Accepted},
            {"good", line.green},
            {"held", line.held ? Json(Utf8(*line.held)) : Json()}};
}

// One reason often keeps back hundreds of lines: it is said once, above their keys.
void PrintKept(std::ostream& out, const SendPlan& plan) {
    constexpr std::size_t kWidth = 100;
    std::vector<std::pair<std::string, std::string>> reasons;  // with the keys, in rows
    for (const PlannedLine& line : plan.Lines()) {
        if (line.reason.empty()) continue;
        auto found = std::find_if(reasons.begin(), reasons.end(),
                                  [&line](const auto& entry) { return entry.first == line.reason; });
        if (found == reasons.end()) found = reasons.insert(reasons.end(), {line.reason, {}});
        std::string& keys = found->second;
        const std::string key = Printable(line.key);
        const bool fits = keys.size() - (keys.rfind('\n') + 1) + key.size() < kWidth;
        keys += (keys.empty() ? "  " : fits ? ", " : ",\n  ") + key;
    }
    for (const auto& [reason, keys] : reasons) out << reason << '\n' << keys << '\n';
}

void Print(Program& program, const SafeSendReport& report, const SendPlan* plan) {
    const ResourceTexts& texts = program.Model().texts;
    program.List(
        [&] {
            Json lines = Json::array(), left = Json::array();
            for (const auto& line : report.lines) lines.push_back(LineJson(line));
            if (plan != nullptr) {
                for (const PlannedLine& line : plan->Lines()) {
                    if (line.reason.empty()) continue;
                    left.push_back({{"key", Utf8(line.key)}, {"reason", Utf8(line.reason)}});
                }
            }
            return Json{{"success", report.Success()},
                        {"paused", report.Paused()},
                        {"sent", report.counts.sent},
                        {"refused", report.counts.refused},
                        {"unanswered", report.counts.unanswered},
                        {"unchanged", report.counts.unchanged},
                        {"notKnown", report.counts.notKnown},
                        {"notReadBack", report.counts.notReadBack},
                        {"lines", std::move(lines)},
                        {"notSent", std::move(left)}};
        },
        [&](std::ostream& out) {
            if (plan != nullptr) PrintKept(out, *plan);
            for (const auto& line : report.lines) {
                if (!line.green) out << Printable(line.line) << ": " << FateText(line, texts) << '\n';
            }
            for (const std::string& key : report.cannotGoBack)
                out << Printable(key) << ": the indicator did not have it before; it stays\n";
            out << report.InWords(texts) << '\n';
        });
}

// What was kept to go on with is said last.
void TellKept(Program& program) {
    const auto kept = PendingSend(program);
    if (!kept) return;
    program.Say("\"resume\" goes on with the " + Counted(kept->Left(), "line", "lines") + " that " +
                (kept->Left() == 1 ? "is" : "are") + " left" +
                (kept->backup.empty() ? "" : ", \"resume --restore\" puts back what was there"));
}

// One download at a time is kept.
void TellReplaced(Program& program) {
    const auto old = PendingSend(program);
    if (!old) return;
    program.Say("the download of " + old->document + " that was broken off is given up for this one" +
                (old->backup.empty() ? "" : "; what was there before it is in " + old->backup));
}

int End(Program& program, Safe& safe, const SafeSendReport& report, const SendPlan* plan) {
    safe.progress.Clear();
    Print(program, report, plan);
    TellKept(program);
    program.StopIfCancelled();
    if (!report.trouble.empty()) throw Error(code::kLink, "Calyx.CSafeSend.Send", report.trouble);
    return report.Success() && report.cannotGoBack.empty() ? kDone : kFindings;
}

}  // namespace

int SendChanged(Program& program, Link& link, const CIndicator& document, const std::string& file,
                const DownloadOptions& options, const std::optional<std::string>& backup) {
    Safe safe(program, link);
    const Held* held = safe.sending.Prepare(LocalTime("%Y-%m-%d %H%M%S"));
    program.StopIfCancelled();
    if (backup) WriteUpload(*program.Model().files, program.Model().texts, *backup, held->text);
    safe.progress.Clear();
    program.Say("what the indicator holds is kept in " + safe.sending.Backup());
    TellReplaced(program);
    const SendPlan plan = safe.sending.Preview(document, options);
    return End(program, safe, safe.sending.Send(plan, options, file), &plan);
}

DownloadReport SendAll(Program& program, Link& link, const CIndicator& document, const std::string& file,
                       const DownloadOptions& options, const std::optional<std::string>& backup,
                       Progress& progress) {
    const TargetVersion target = program.Model().target;
    SendRecord record{.where = link.Comm().Where(),
                      .document = file,
                      .backup = backup ? TextOf(std::filesystem::absolute(PathOf(*backup))) : std::string(),
                      .target = target,
                      .timeoutMs = options.timeoutMs,
                      .haltOnError = options.haltOnError,
                      .steps = PlanDownload(document, options, target.Gated()),
                      .fates = {}};
    TellReplaced(program);
    SendJournal journal(*program.Model().files, program.Model().texts, SendJournalFile(program));
    try {
        journal.Begin(record);
    } catch (const Error& error) {
        program.Say(error.Description() + " The download goes on, but cannot be resumed.");
    }
    DownloadProgress shown(program, progress);
    JournaledEvents events(journal, shown);
    CDownload download(link.Comm(), program.App().cancel, events);
    DownloadReport report = download.RunSteps(record.steps, options, program.Model().texts);
    progress.End(report.status);
    using End = DownloadReport::End;
    if (report.end != End::Lost && report.end != End::Aborted) journal.Remove();
    TellKept(program);
    return report;
}

int ResumeSend(Program& program, Link& link, Rest rest) {
    Safe safe(program, link);
    if (rest == Rest::PutBack) return End(program, safe, safe.sending.RestorePending(), nullptr);
    return End(program, safe, safe.sending.Resume(), nullptr);
}

}  // namespace calyx::cli
