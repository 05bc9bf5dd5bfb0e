// Widgets from elsewhere: a screen of another configuration file, the clipboard.

#include <set>
#include <system_error>

#include "model/language/error.h"
#include "model/language/file_store.h"
#include "model/language/reason.h"
#include "model/language/text.h"
#include "model/widgets/widgets.h"

namespace calyx {

std::vector<std::string> CWidgets::ReadFileToArray(const std::string& filename) const {
    const auto fail = [&](int code, const std::string& why) {
        throw Error(code, "Calyx.CWidgets.ReadFileToArray", Context().texts.Format(code, {filename, why}));
    };
    const IFileStore& files = *Context().files;
    std::vector<std::string> lines;
    try {
        const auto found = files.Look(filename);
        if (found == IFileStore::Found::Nothing) fail(code::kFileNotFound, {});
        if (found == IFileStore::Found::Folder) fail(code::kIsFolder, {});
        ForEachLine(files.Read(filename), [&](std::string_view line) { lines.emplace_back(line); });
    } catch (const std::system_error& error) {
        fail(code::kFileNotReadable, Reason(error));
    }
    return lines;
}

Dictionary CWidgets::LoadDictionary(const std::string& filename) const {
    return As("Calyx.CWidgets.LoadDictionary", [&] {
        std::string text;
        for (const std::string& line : ReadFileToArray(filename)) text.append(line).append("\r\n");
        return Dictionary(std::move(text));
    });
}

std::vector<int> CWidgets::ImportScreen(const std::string& filename, int from, int to) {
    return As("Calyx.CWidgets.ImportScreen", [&] {
        NeedScreen(from, "ImportScreen");
        NeedScreen(to, "ImportScreen");
        return AddScreenWidgets(LoadDictionary(filename), from, to);
    });
}

std::vector<int> CWidgets::AddScreenWidgets(const Dictionary& lines, int from, int to) {
    NeedScreen(from, "AddScreenWidgets");
    NeedScreen(to, "AddScreenWidgets");
    Dictionary copy(lines.Text());
    ReadReport passedOver;
    CWidgets other(Context());
    other.RestoreState(copy, passedOver);
    return AddFrom(other, other.OnScreen(from), to);
}

std::string CWidgets::CopyText(const std::vector<int>& numbers) const {
    std::string text;
    int place = 0;
    for (const int number : numbers) {
        text.append(WidgetKey(++place)).append(1, '=').append(widget(number).Record()).append("\r\n");
    }
    return text;
}

std::vector<int> CWidgets::Paste(std::string_view text, int screen) {
    if (screen != 0) NeedScreen(screen, "Paste");
    Dictionary lines{std::string(text)};
    ReadReport passedOver;
    CWidgets other(Context());
    other.RestoreState(lines, passedOver);
    return AddFrom(other, other.Numbers(), screen);
}

std::vector<int> CWidgets::AddFrom(CWidgets& other, const std::vector<int>& numbers, int screen) {
    std::vector<int> added;
    for (const int number : numbers) {
        CWidget& one = other.widget(number);
        if (screen != 0) one.SetScreenNumber(screen);
        if (auto* named = dynamic_cast<CPlacedWidget*>(&one)) named->SetName(FreeName(named->Name()));
        added.push_back(Add(one));
    }
    return added;
}

// "lblA", "lblA2", "lblA3": the first that no widget here has, in 8 characters.
std::string CWidgets::FreeName(std::string_view name) const {
    constexpr std::size_t kWidth = 8;
    std::set<std::string> taken;
    for (const int number : Numbers()) taken.insert(Upper(widget(number).Values().name.Trimmed()));
    std::string free(name);
    const std::string_view base = name.substr(0, name.find_last_not_of("0123456789") + 1);
    for (int next = 2; !free.empty() && taken.contains(Upper(free)); ++next) {
        const std::string behind = std::to_string(next);
        free = std::string(base.substr(0, kWidth - behind.size())) + behind;
    }
    return free;
}

}  // namespace calyx
