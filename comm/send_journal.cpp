#include "comm/send_journal.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "comm/link_texts.h"
#include "model/language/error.h"
#include "model/language/reason.h"
#include "model/language/text.h"

namespace calyx {

namespace {

// The file: heading, "name=value" lines, for each step a line "[needs probe parameters clears]status" and its
// lines behind ">", then "fates" and one character a line that is done. These words never change.
constexpr std::string_view kHeading = "Calyx send journal 1";
constexpr std::string_view kFates = "fates";

std::string Yes(bool value) {
    return value ? "1" : "0";
}

std::string Text(const SendRecord& record) {
    std::string text(kHeading);
    const auto add = [&text](std::string_view name, const std::string& value) {
        text.append("\n").append(name).append("=").append(value);
    };
    add("where", record.where);
    add("document", record.document);
    add("backup", record.backup);
    add("version", record.target.prefix);
    add("cb2", Yes(record.target.cb2));
    add("timeout", std::to_string(record.timeoutMs));
    add("halt", Yes(record.haltOnError));
    add("restores", Yes(record.restores));
    add("unchanged", std::to_string(record.unchanged));
    add("notknown", std::to_string(record.notKnown));
    for (const DownloadStep& step : record.steps) {
        text.append("\n[")
            .append(std::to_string(static_cast<int>(step.needs)))
            .append(" " + Yes(step.probe))
            .append(" " + Yes(step.parameters))
            .append(" " + step.clears)
            .append("]")
            .append(step.status);
        ForEachLine(step.lines, [&text](std::string_view line) {
            if (!Trim(line).empty()) text.append("\n>").append(line);
        });
    }
    text.append("\n").append(kFates).append("\n");
    for (const LineFate fate : record.fates) text += static_cast<char>(fate);
    return text;
}

void TakeValue(SendRecord& record, std::string_view name, std::string_view value) {
    const auto number = ReadInteger(value);
    if (name == "where") record.where = value;
    if (name == "document") record.document = value;
    if (name == "backup") record.backup = value;
    if (name == "version") record.target.prefix = value;
    if (name == "cb2") record.target.cb2 = value == "1";
    if (name == "timeout" && number) record.timeoutMs = number->value;
    if (name == "halt") record.haltOnError = value == "1";
    if (name == "restores") record.restores = value == "1";
    if (name == "unchanged" && number) record.unchanged = static_cast<std::size_t>(number->value);
    if (name == "notknown" && number) record.notKnown = static_cast<std::size_t>(number->value);
}

DownloadStep StepOf(std::string_view line) {
    DownloadStep step;
    const std::size_t end = line.find(']');
    const auto words = Split(line.substr(1, end - 1), ' ');
    if (end == std::string_view::npos || words.size() != 4 || words[0].size() != 1) return step;
    step.needs = words[0] == "3"   ? DownloadStep::Needs::WholePorts
                 : words[0] == "2" ? DownloadStep::Needs::EveryLine
                 : words[0] == "1" ? DownloadStep::Needs::FirstLine
                                   : DownloadStep::Needs::Nothing;
    step.probe = words[1] == "1";
    step.parameters = words[2] == "1";
    step.clears = words[3];
    step.status = line.substr(end + 1);
    return step;
}

bool IsFate(char c) {
    return c == static_cast<char>(LineFate::Accepted) || c == static_cast<char>(LineFate::Refused) ||
           c == static_cast<char>(LineFate::Unanswered) || c == static_cast<char>(LineFate::HeldBack);
}

std::optional<SendRecord> Read(const std::string& text) {
    if (!text.starts_with(kHeading)) return std::nullopt;
    SendRecord record;
    bool atFates = false;
    ForEachLine(std::string_view(text).substr(kHeading.size()), [&](std::string_view line) {
        if (atFates) {
            for (const char c : line) {
                if (IsFate(c)) record.fates.push_back(static_cast<LineFate>(c));
            }
        } else if (line == kFates) {
            atFates = true;
        } else if (line.starts_with('[')) {
            record.steps.push_back(StepOf(line));
        } else if (line.starts_with('>') && !record.steps.empty()) {
            record.steps.back().lines.append(line.substr(1)).append("\r\n");
        } else if (const auto equals = line.find('='); equals != std::string_view::npos) {
            TakeValue(record, line.substr(0, equals), line.substr(equals + 1));
        }
    });
    const bool whole = atFates && record.fates.size() <= CountLines(record.steps);
    return whole ? std::optional(std::move(record)) : std::nullopt;
}

}  // namespace

std::size_t SendRecord::Left() const {
    return CountLines(steps) - fates.size();
}

std::optional<SendRecord> SendJournal::Find() const {
    try {
        if (files_.Look(path_) != IFileStore::Found::File) return std::nullopt;
        return Read(files_.Read(path_));
    } catch (const std::system_error&) {
        return std::nullopt;
    }
}

void SendJournal::Begin(const SendRecord& record) {
    Rest();
    try {
        files_.Replace(path_, Text(record));
    } catch (const std::system_error& error) {
        throw Error(code::kFileNotWritten, "Calyx.SendJournal.Begin",
                    texts_.Format(code::kFileNotWritten, {path_, Reason(error)}));
    }
    GoOn();
}

void SendJournal::GoOn() {
    out_.close();
    out_.clear();
    out_.open(std::filesystem::path(std::u8string(path_.begin(), path_.end())),
              std::ios::binary | std::ios::app);
}

void SendJournal::Add(LineFate fate) {
    if (out_.is_open()) out_ << static_cast<char>(fate) << std::flush;
}

void SendJournal::Remove() {
    out_.close();
    try {
        files_.Remove(path_);
    } catch (const std::system_error&) {
        // It stays and is offered again; sending its lines once more changes nothing.
        return;
    }
}

}  // namespace calyx
