#include "platform/file_settings_store.h"

#include <system_error>
#include <utility>

#include "model/language/file_store.h"
#include "platform/paths.h"

namespace calyx {

FileSettingsStore::FileSettingsStore(IFileStore& files, std::string userFile, std::string machineFile)
    : files_(files) {
    Of(Root::User).file = std::move(userFile);
    Of(Root::Machine).file = std::move(machineFile);
}

std::string FileSettingsStore::FileText(const Part& part) const {
    return files_.Look(part.file) == IFileStore::Found::Nothing ? std::string() : files_.Read(part.file);
}

std::optional<std::string> FileSettingsStore::Get(Root root, std::string_view keyPath,
                                                  std::string_view name) {
    Part& part = Of(root);
    if (!part.text) {
        SettingsText text(FileText(part));
        for (const Value& value : part.planned) text.Set(value.keyPath, value.name, value.value);
        part.text = std::move(text);
    }
    return part.text->Get(keyPath, name);
}

void FileSettingsStore::Set(Root root, std::string_view keyPath, std::string_view name,
                            std::string_view value) {
    Part& part = Of(root);
    part.planned.push_back({std::string(keyPath), std::string(name), std::string(value)});
    if (part.text) part.text->Set(keyPath, name, value);
}

void FileSettingsStore::SavePart(Part& part) {
    const std::vector<Value> planned = std::exchange(part.planned, {});
    if (planned.empty()) return;
    part.text.reset();
    const std::string before = FileText(part);
    SettingsText text(before.empty()
                          ? "# Settings of Calyx. \\\\, \\r and \\n in a value stand for a backslash "
                            "and line ends.\n"
                          : before);
    for (const Value& value : planned) text.Set(value.keyPath, value.name, value.value);
    if (text.Text() != before) {
        MakeFolder(TextOf(PathOf(part.file).parent_path()));
        files_.Replace(part.file, text.Text());
    }
    part.text = std::move(text);
}

void FileSettingsStore::Refresh() {
    for (Part& part : parts_) part.text.reset();
}

bool FileSettingsStore::Save() {
    // Both plans end here, whatever becomes of them: what could not be written is not seen any more.
    std::exception_ptr failure;
    try {
        SavePart(Of(Root::User));
    } catch (const std::system_error&) {
        failure = std::current_exception();
    }
    bool machineWide = true;
    try {
        SavePart(Of(Root::Machine));
    } catch (const std::system_error&) {
        machineWide = false;
    }
    if (failure) std::rethrow_exception(failure);
    return machineWide;
}

}  // namespace calyx
