#include "cli/safe_transfer.h"

#include <filesystem>

#include "cli/exit.h"
#include "cli/text.h"
#include "cli/transfer.h"
#include "comm/link_texts.h"
#include "platform/paths.h"

namespace calyx::cli {

namespace {

using Fate = PlannedLine::Fate;

std::string JournalFile(Program& program) {
    return program.App().folders.userData + "send.journal";
}

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
                  {BackupFolder(program), JournalFile(program)}) {}
};

std::string FateText(const SafeSendReport::Line& line, const ResourceTexts& texts) {
    if (line.fate == LineFate::Refused) return texts.Text(link_text::kLineRefused);
    if (line.fate == LineFate::Unanswered) return texts.Text(link_text::kLineUnanswered);
    if (line.fate == LineFate::Waiting) return "not sent";
    return line.held ? "the indicator holds " + Quoted(*line.held) : "not found in the indicator";
}

Json LineJson(const SafeSendReport::Line& line) {
    return {{"line", Utf8(line.line)},
            {"accepted", line.fate == LineFate::Accepted},
            {"good", line.green},
            {"held", line.held ? Json(Utf8(*line.held)) : Json()}};
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
            if (plan != nullptr) {
                for (const PlannedLine& line : plan->Lines()) {
                    const bool worth = line.fate == Fate::NotKnown || line.fate == Fate::NotChosen ||
                                       line.fate == Fate::OnlyThere;
                    if (worth) out << Printable(line.key) << ": " << line.reason << '\n';
                }
            }
            for (const auto& line : report.lines) {
                if (!line.green) out << Printable(line.line) << ": " << FateText(line, texts) << '\n';
            }
            for (const std::string& key : report.cannotGoBack)
                out << Printable(key) << ": the indicator did not have it before; it stays\n";
            out << report.InWords(texts) << '\n';
        });
}

int End(Program& program, Safe& safe, const SafeSendReport& report, const SendPlan* plan) {
    safe.progress.Clear();
    Print(program, report, plan);
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
    const SendPlan plan = safe.sending.Preview(document, options);
    return End(program, safe, safe.sending.Send(plan, options, file), &plan);
}

int ResumeSend(Program& program, Link& link, Rest rest) {
    Safe safe(program, link);
    if (rest == Rest::PutBack) return End(program, safe, safe.sending.RestorePending(), nullptr);
    return End(program, safe, safe.sending.Resume(), nullptr);
}

std::optional<SendRecord> PendingSend(Program& program) {
    return SendJournal(*program.Model().files, program.Model().texts, JournalFile(program)).Find();
}

void ForgetSend(Program& program) {
    SendJournal(*program.Model().files, program.Model().texts, JournalFile(program)).Remove();
}

}  // namespace calyx::cli
