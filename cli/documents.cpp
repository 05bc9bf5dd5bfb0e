#include "cli/documents.h"

#include <algorithm>
#include <system_error>

#include "app/open_files.h"
#include "cli/exit.h"
#include "model/language/file_store.h"
#include "model/language/reason.h"
#include "platform/paths.h"

namespace calyx::cli {

void Opening::Declare(Options& options) {
    options.Flag(skipChecks, "--skip-checks", "opens files without checksum, or of other versions, as well");
}

CIndicator Opening::Open(Program& program, const std::string& file, ReadReport* report) const {
    CIndicator document(program.Model());
    ReadReport read = document.Load(file, skipChecks);
    if (report != nullptr) *report = std::move(read);
    return document;
}

CIndicator Opening::OpenForChange(Program& program, const std::string& file) const {
    ReadReport report;
    CIndicator document = Open(program, file, &report);
    const auto& notes = report.Notes();
    const auto lost = std::count_if(notes.begin(), notes.end(), [](const ReadNote& note) {
        using Kind = ReadNote::Kind;
        const bool leftOut = note.kind == Kind::NotUnderstood && note.became.empty();
        return leftOut || note.kind == Kind::TextLine || note.kind == Kind::UnknownKey ||
               note.kind == Kind::DuplicateKey || note.kind == Kind::NotWritten;
    });
    if (lost != 0) {
        program.Say(Counted(static_cast<std::size_t>(lost), "line", "lines") + " of " + file +
                    " cannot be kept; check lists them");
    }
    return document;
}

namespace {

[[noreturn]] void FailFile(Program& program, int number, const char* source,
                           std::initializer_list<std::string_view> arguments) {
    throw Error(number, source, program.Model().texts.Format(number, arguments));
}

}  // namespace

std::unique_ptr<FileLock> TurnFor(Program& program, const std::string& file) {
    constexpr std::chrono::seconds kMost(10);
    return TakeTurn(program.App().folders.userData, file, kMost);
}

void SaveChanged(CIndicator& document, const std::string& opened, const std::string& target) {
    const bool same = FileIdentity(opened) == FileIdentity(target);
    document.Save(target, false, same ? CIndicator::Over::WhatIsKnown : CIndicator::Over::Anything);
}

std::string ReadWhole(Program& program, const std::string& file) {
    constexpr const char* kSource = "Calyx.Cli.ReadWhole";
    try {
        if (program.Model().files->Look(file) == IFileStore::Found::Folder)
            FailFile(program, code::kIsFolder, kSource, {file});
        return program.Model().files->Read(file);
    } catch (const std::system_error& failure) {
        FailFile(program, code::kFileNotReadable, kSource, {file, Reason(failure)});
    }
}

bool IsFile(Program& program, const std::string& file) {
    try {
        return program.Model().files->Look(file) == IFileStore::Found::File;
    } catch (const std::system_error&) {
        return false;
    }
}

void NeedFree(Program& program, const std::string& file, std::string_view advice) {
    if (!IsFile(program, file)) return;
    throw UsageError(file + " exists already; " + std::string(advice));
}

void NeedPlace(Program& program, const std::string& file) {
    constexpr const char* kSource = "Calyx.Cli.NeedPlace";
    using Found = IFileStore::Found;
    const IFileStore& files = *program.Model().files;
    std::string reason = Reason(std::make_error_code(std::errc::no_such_file_or_directory));
    try {
        if (files.Look(file) == Found::Folder) FailFile(program, code::kIsFolder, kSource, {file});
        const std::string folder = TextOf(PathOf(file).parent_path());
        if (folder.empty() || files.Look(folder) == Found::Folder) return;
    } catch (const std::system_error& failure) {
        reason = Reason(failure);
    }
    FailFile(program, code::kFileNotWritten, kSource, {file, reason});
}

std::string Place::Heading(const ModelContext& context) const {
    if (section == nullptr) return "Unknown";
    std::string heading = context.texts.Text(section->Title());
    const std::string title = item == nullptr ? std::string() : section->ItemTitle(*item);
    return title.empty() ? heading : heading + ", " + title;
}

Place FindPlace(const CIndicator& document, std::string_view key) {
    Place place;
    for (const Section* section : document.Sections()) {
        if (!section->Owns(key)) continue;
        place.section = section;
        for (const Item* item : section->Items()) {
            const auto row = item->Find(key);
            // A choice on an editor page is no parameter of its own.
            if (row && item->Info(*row).more.use != Use::Page) return {section, item, *row};
        }
    }
    return place;
}

void Firmware::Declare(Options& options) {
    options.Text(prefix, "--firmware", "PREFIX", "as sent to this firmware version, \"3.07.\" or \"3.07\"");
    options.Flag(cb2, "--cb2", "the indicator has a CB2 board, which takes the lines of every version");
}

void Firmware::Apply(Program& program) const {
    TargetVersion& target = program.Model().target;
    target.cb2 = cb2;
    if (!prefix) return;
    if (prefix->empty()) throw UsageError("--firmware is empty; give a version, for example 3.07.");
    target.prefix = *prefix;
    if (!target.prefix.ends_with('.')) target.prefix += '.';
    WarnUnknown(program);
}

void WarnUnknown(Program& program) {
    const TargetVersion& target = program.Model().target;
    // A CB2 board takes the lines of every version.
    if (target.cb2 || VersionBit(target.prefix) != kUnknownVersion) return;
    program.Say(target.prefix +
                " is not a firmware version that this program knows (1.00. to 3.10.); lines that "
                "only some versions have are left out");
}

}  // namespace calyx::cli
