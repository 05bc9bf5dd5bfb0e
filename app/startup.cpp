#include "app/startup.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <system_error>
#include <utility>

#include "app/error_codes.h"
#include "model/language/reason.h"
#include "platform/paths.h"

namespace calyx::modStartup {

namespace {

constexpr auto kSource = "modStartup.Main";
constexpr auto kMasterLanguage = "en";

using Found = IFileStore::Found;

// The words for a program file that cannot be used: English ones stand here as well, because the
// texts may be what is missing.
Error ProgramFileError(const ResourceTexts& texts, const std::string& path, const std::string& reason) {
    const std::string words = texts.Has(code::kProgramFile)
                                  ? texts.Format(code::kProgramFile, {path, reason})
                                  : "The program's file \"" + path + "\" cannot be used: " + reason +
                                        ". Install the program again, or name the folder that holds it with "
                                        "--data-dir or CALYX_DATA_DIR.";
    return Error(code::kProgramFile, kSource, words);
}

template <class Use>
void WithProgramFile(const AppContext& context, const std::string& path, Use&& use) {
    try {
        use(context.files.Read(path));
    } catch (const std::system_error& failure) {
        throw ProgramFileError(context.model.texts, path, Reason(failure));
    } catch (const std::runtime_error& defect) {
        throw ProgramFileError(context.model.texts, path, defect.what());
    }
}

std::string TextsFile(const AppContext& context, const std::string& language) {
    const std::string folder = FolderText(context.folders.application + "texts");
    return folder + language + ".txt";
}

void PrepareUserFolder(AppContext& context) {
    try {
        MakeFolder(context.folders.userData);
    } catch (const std::system_error& failure) {
        context.Record(Error(
            code::kUserFolder, kSource,
            context.model.texts.Format(code::kUserFolder, {context.folders.userData, Reason(failure)})));
    }
}

std::string HelpFile(const AppContext& context) {
    const std::string& folder = context.folders.application;
    for (const std::string& place : {folder, FolderText(folder + "1033")}) {
        std::string file = place + "calyxhelp.chm";
        std::error_code unreadable;  // counts as no help file
        if (std::filesystem::is_regular_file(PathOf(file), unreadable)) return file;
    }
    return {};
}

// The user's own file is never touched. Of a copy that fails Replace leaves nothing behind.
void CopyStreams(AppContext& context) {
    const std::string master = context.folders.application + "streams.ini";
    const std::string own = context.folders.userData + "streams.ini";
    try {
        if (context.files.Look(own) != Found::Nothing || context.files.Look(master) != Found::File) return;
        context.files.Replace(own, context.files.Read(master));
    } catch (const std::system_error&) {
        // Passed over on purpose: the stream editor then starts without saved formats.
    }
}

void ReadTexts(AppContext& context) {
    WithProgramFile(context, TextsFile(context, kMasterLanguage), [&](const std::string& file) {
        context.model.texts.Read(file);
        if (context.model.texts.Count() == 0) throw std::runtime_error("it holds no texts");
    });
}

bool IsLanguageCode(const std::string& code) {
    return std::all_of(code.begin(), code.end(), [](unsigned char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
               c == '_';
    });
}

std::string LanguageSetting(const AppContext& context) {
    return context.settings.Stored(*FindSettingRow("Language")).value_or("");
}

// A second language lies over English. It is known before the settings are loaded, since the list
// catalogue takes its words from the texts.
void ReadLanguage(AppContext& context, const std::string& asked) {
    const std::string language = asked.empty() ? LanguageSetting(context) : asked;
    if (language.empty() || language == kMasterLanguage) return;
    const std::string path = TextsFile(context, language);
    try {
        if (IsLanguageCode(language)) return context.model.texts.Read(context.files.Read(path));
    } catch (const std::system_error&) {
        // Recorded below, like a code that cannot be a file's name.
    }
    context.Record(
        Error(code::kNoLanguage, kSource, context.model.texts.Format(code::kNoLanguage, {language, path})));
}

void ReadLists(AppContext& context) {
    WithProgramFile(context, context.folders.application + "calyx.dat", [&](const std::string& file) {
        context.model.lists.Read(file, context.model.texts);
        if (context.model.lists.Names().empty()) throw std::runtime_error("it holds no lists");
    });
}

// The ticket editor works without them as well, only with less help.
void ReadTicketTokens(AppContext& context) {
    const std::string path = context.folders.application + "tickets.dat";
    const auto record = [&](const std::string& reason) {
        context.Record(Error(code::kNoTicketTokens, kSource,
                             context.model.texts.Format(code::kNoTicketTokens, {path, reason})));
    };
    try {
        TicketTokens tokens;
        tokens.Read(context.files.Read(path));
        context.ticketTokens = std::move(tokens);
    } catch (const std::system_error& failure) {
        record(Reason(failure));
    } catch (const std::runtime_error& defect) {
        record(defect.what());
    }
}

}  // namespace

std::unique_ptr<AppContext> Main(const Options& options) {
    auto context =
        std::make_unique<AppContext>(FindFolders(options.folders, options.environment), options.clock);
    context->errorLog.DeleteWhenLarge();  // before anything is written into it
    try {
        ReadTexts(*context);
        PrepareUserFolder(*context);
        context->helpFile = HelpFile(*context);
        CopyStreams(*context);
        ReadLanguage(*context, options.language);
        ReadLists(*context);
        ReadTicketTokens(*context);
    } catch (const Error& error) {
        context->Record(error);
        throw;
    }
    context->settings.Load();
    return context;
}

}  // namespace calyx::modStartup
