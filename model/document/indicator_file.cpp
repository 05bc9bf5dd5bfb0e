// The document's file: the envelope around the sections' lines, its checks, and opening and saving.

#include <algorithm>
#include <functional>
#include <system_error>

#include "model/document/checksum.h"
#include "model/document/indicator.h"
#include "model/language/file_store.h"
#include "model/language/reason.h"
#include "model/language/text.h"

namespace calyx {

namespace {

constexpr std::string_view kBegin = "[BEGIN]";
constexpr std::string_view kEnd = "[END]";
constexpr int kDefaultVersion = 126;  // resource text

std::string_view FirstValue(const Dictionary& lines, std::string_view key) {
    const Dictionary::Entry* entry = lines.Peek(key);
    return entry == nullptr ? std::string_view{} : entry->value;
}

// The checksum of what stands between the marks. Positions count from 1 and 0 means not found, so a
// file without "[BEGIN]" is measured from position 0, and one whose "[END]" comes first has checksum 0.
std::int32_t BodyChecksum(std::string_view text) {
    const auto position = [](std::size_t found) { return static_cast<std::ptrdiff_t>(found + 1); };
    const std::ptrdiff_t begin = position(text.find(kBegin));
    const std::ptrdiff_t end = position(text.rfind(kEnd));
    const auto lead = static_cast<std::ptrdiff_t>(kBegin.size() + 2);
    const std::ptrdiff_t size = end - begin - lead;
    if (size < 0) return 0;
    return Checksum(text.substr(static_cast<std::size_t>(begin + lead - 1), static_cast<std::size_t>(size)));
}

// `ownerOf`: the name of the section that owns a key, empty for none.
void AddFileNotes(const Dictionary& lines, ReadReport& report,
                  const std::function<std::string(std::string_view key)>& ownerOf) {
    using Kind = ReadNote::Kind;
    for (const auto& text : lines.TextLines()) {
        if (text.text != kBegin && text.text != kEnd && !Trim(text.text).empty()) {
            report.Add({Kind::TextLine, {}, {}, std::string(text.text), {}, text.line});
        }
    }
    for (const auto& entry : lines.Duplicates()) {
        const std::string first(FirstValue(lines, entry.key));
        if (entry.value == first) continue;  // as a scale of several ranges writes them
        report.Add(
            {Kind::DuplicateKey, {}, std::string(entry.key), std::string(entry.value), first, entry.line});
    }
    for (const auto& entry : lines.Entries()) {
        if (entry.asked) continue;
        const bool ofTheEnvelope = EqualNoCase(entry.key, "@REVISION") || EqualNoCase(entry.key, "@CRC") ||
                                   EqualNoCase(entry.key, "@CODFile");
        if (ofTheEnvelope) continue;
        report.Add({Kind::UnknownKey,
                    ownerOf(entry.key),
                    std::string(entry.key),
                    std::string(entry.value),
                    {},
                    entry.line});
    }
}

// What cannot even be looked at is told when it is read.
bool IsMissing(const IFileStore& files, const std::string& filename) {
    try {
        return files.Look(filename) == IFileStore::Found::Nothing;
    } catch (const std::system_error&) {
        return false;
    }
}

}  // namespace

Dictionary CIndicator::LoadDictionary(const std::string& filename) const {
    try {
        switch (context_->files->Look(filename)) {
            case IFileStore::Found::Nothing:
                Fail(code::kFileNotFound, "LoadDictionary", {filename});
            case IFileStore::Found::Folder:
                Fail(code::kIsFolder, "LoadDictionary", {filename});
            case IFileStore::Found::File:
                break;
        }
        return Dictionary(context_->files->Read(filename));
    } catch (const std::system_error& error) {
        Fail(code::kFileNotReadable, "LoadDictionary", {filename, Reason(error)});
    }
}

CIndicator::CrcCheck CIndicator::doFileCRCCheck(const Dictionary& lines) const {
    const std::string_view stored = FirstValue(lines, "@CRC");
    if (Trim(stored).empty()) return CrcCheck::None;
    const auto number = ReadInteger(stored);
    return number && number->value == BodyChecksum(lines.Text()) ? CrcCheck::Equal : CrcCheck::Differs;
}

bool CIndicator::doRevisionCheck(const Dictionary& lines) const {
    const std::string_view revision = FirstValue(lines, "@REVISION");
    return Trim(revision).empty() || VersionPrefix(revision) == VersionPrefix(context_->programVersion);
}

bool CIndicator::doIndicatorRevisionCheck(const Dictionary& lines) const {
    return VersionIsAccepted(FirstValue(lines, "VERSION"));
}

bool CIndicator::VersionIsAccepted(std::string_view version) const {
    if (Trim(version).empty()) return true;
    const std::string own(VersionPrefix(context_->programVersion));
    const std::string_view prefix = VersionPrefix(version);
    return prefix == "V" + own || prefix == own;
}

// What a rejected file says stays readable: these two are set before the checks.
void CIndicator::ReadVersions(const Dictionary& lines) {
    const auto orDefault = [&](std::string_view value) {
        return Trim(value).empty() ? context_->texts.Text(kDefaultVersion) : std::string(value);
    };
    fileVersion_ = orDefault(FirstValue(lines, "@REVISION"));
    indicatorVersion_ = orDefault(FirstValue(lines, "VERSION"));
}

void CIndicator::CheckFile(const Dictionary& lines, const std::string& filename) const {
    const auto failIndicator = [&] {
        Fail(code::kIndicatorRevision, "Load",
             {filename, FirstValue(lines, "VERSION"), context_->programVersion});
    };
    switch (doFileCRCCheck(lines)) {
        case CrcCheck::Differs:
            Fail(code::kChecksum, "Load", {filename});
        case CrcCheck::None:
            if (!doIndicatorRevisionCheck(lines)) failIndicator();
            Fail(code::kNoChecksum, "Load", {filename});
        case CrcCheck::Equal:
            break;
    }
    if (!doRevisionCheck(lines)) {
        Fail(code::kFileRevision, "Load",
             {filename, FirstValue(lines, "@REVISION"), context_->programVersion});
    }
    if (!doIndicatorRevisionCheck(lines)) failIndicator();
}

ReadReport CIndicator::Load(const std::string& filename, bool skipChecks) {
    return As("Calyx.CIndicator.Load", [&] {
        if (IsMissing(*context_->files, filename)) Fail(code::kFileNotFound, "Load", {filename});
        Dictionary lines = LoadDictionary(filename);
        ReadVersions(lines);
        if (!skipChecks) CheckFile(lines, filename);
        ReadReport report = TakeSections(lines, filename);
        onFile_ = std::make_shared<const std::string>(std::move(lines).ReleaseText());
        return report;
    });
}

ReadReport CIndicator::LoadText(std::string text, const std::string& filename) {
    return As("Calyx.CIndicator.Load", [&] {
        Dictionary lines(std::move(text));
        ReadVersions(lines);
        return TakeSections(lines, filename);
    });
}

ReadReport CIndicator::TakeSections(Dictionary& lines, const std::string& filename) {
    ReadReport report;
    DocumentSections s(*context_);
    for (Section* section : InBodyOrder(s)) {
        section->Initialize();
        if (section == &s.junctionBoxes) {
            s.junctionBoxes.RestoreState(lines, report, BoxPorts(s));
        } else {
            section->RestoreState(lines, report);
        }
    }
    s.customParms.DropOwned(
        [&](std::string_view key) {
            const auto all = InBodyOrder(s);
            return std::any_of(all.begin(), all.end(), [&](const Section* section) {
                return section != &s.customParms && section->Owns(key);
            });
        },
        lines, report);
    s.general.SetVersion(indicatorVersion_);
    s.general.MarkSaved();
    AddFileNotes(lines, report, [&](std::string_view key) {
        for (const Section* section : InBodyOrder(s)) {
            if (section->Owns(key)) return std::string(section->Name());
        }
        return std::string();
    });
    // All is read: from here on nothing fails.
    sections_.emplace(std::move(s));
    isNew_ = false;
    filename_ = filename;
    onFile_.reset();
    codFilename_ = FirstValue(lines, "@CODFile");
    return report;
}

std::string CIndicator::Envelope(std::string_view body) const {
    std::string text;
    text.reserve(body.size() + 200);
    text.append("@REVISION=").append(context_->programVersion).append("\r\n@CRC=");
    AppendInteger(text, Checksum(body));
    text.append("\r\n@CODFile=").append(codFilename_).append("\r\n\r\n").append(kBegin).append("\r\n");
    return text.append(body).append(kEnd);
}

std::string CIndicator::FileText() const {
    return Envelope(Body());
}

void CIndicator::CheckKnown(const std::string& filename) const {
    if (!onFile_) return;
    try {
        const IFileStore::Found found = context_->files->Look(filename);
        if (found == IFileStore::Found::Nothing) Fail(code::kFileGone, "CheckKnown", {filename});
        if (found == IFileStore::Found::Folder) Fail(code::kIsFolder, "CheckKnown", {filename});
        if (context_->files->Read(filename) != *onFile_) Fail(code::kFileChanged, "CheckKnown", {filename});
    } catch (const std::system_error& error) {
        Fail(code::kFileUnknown, "CheckKnown", {filename, Reason(error)});
    }
}

std::string CIndicator::WriteCRCFile(const std::string& filename, std::string_view body, Over over) const {
    std::string text = Envelope(body);
    IFileStore::LastLook lastLook;
    if (over == Over::WhatIsKnown) {
        CheckKnown(filename);  // before anything is written into a folder that may be gone, too
        lastLook = [&] { CheckKnown(filename); };
    }
    try {
        if (context_->files->Look(filename) == IFileStore::Found::Folder)
            Fail(code::kIsFolder, "WriteCRCFile", {filename});
        context_->files->Replace(filename, text, lastLook);
    } catch (const std::system_error& error) {
        Fail(code::kFileNotWritten, "WriteCRCFile", {filename, Reason(error)});
    }
    return text;
}

void CIndicator::Save(const std::string& filename, bool asCopy, Over over) {
    As("Calyx.CIndicator.Save", [&] {
        NeedDocument("Save");
        // The name is taken over once the file stands: a failed save leaves the document as it was.
        std::string written = WriteCRCFile(filename, Body(), over);
        if (!asCopy || filename == filename_)
            onFile_ = std::make_shared<const std::string>(std::move(written));
        if (asCopy) return;
        isNew_ = false;
        filename_ = filename;
        fileVersion_ = context_->programVersion;
        for (Section* section : Sections()) section->MarkSaved();
    });
}

void CIndicator::ForgetFile() {
    isNew_ = true;
    filename_ = kNewFile;
    onFile_.reset();
}

void CIndicator::GenerateImportFile(const std::string& filename) {
    As("Calyx.CIndicator.GenerateImportFile", [&] {
        NeedDocument("GenerateImportFile");
        try {
            context_->files->Replace(filename, ImportFileText());
        } catch (const std::system_error& error) {
            Fail(code::kFileNotWritten, "GenerateImportFile", {filename, Reason(error)});
        }
    });
}

}  // namespace calyx
