#include "cli/run.h"

#include <algorithm>
#include <filesystem>
#include <iomanip>
#include <ostream>
#include <sstream>

#include "app/startup.h"
#include "app/version.h"
#include "cli/command.h"
#include "cli/exit.h"
#include "cli/program.h"
#include "model/language/reason.h"
#include "platform/paths.h"

namespace calyx::cli {

namespace {

constexpr const char* kName = "calyx-cli";

// Options that every command takes, in front of its name or behind it.
struct Globals {
    std::optional<std::string> userDir, dataDir, language;
    bool json = false;

    void Declare(Options& options) {
        options.Group("", "Everywhere:");
        options.Text(userDir, "--user-dir", "DIR",
                     "settings, logs and the user's other files are in this folder");
        options.Text(dataDir, "--data-dir", "DIR",
                     "folder of calyx.dat and texts, instead of the installed one");
        options.Text(language, "--language", "CODE",
                     "language of texts and labels, as a file in the folder texts has it");
    }
};

const char* const kExitCodes =
    "Exit codes: 0 done; 1 done, with broken rules, differences or refused lines; 2 wrong usage; 3 an "
    "error,\n"
    "whose number stands on stderr; 130 stopped by Ctrl+C. Results go to stdout, messages to stderr.\n";

void PrintOverview(std::ostream& out, const Options& options,
                   const std::vector<std::unique_ptr<Command>>& commands) {
    out << kName << ' ' << ProgramVersion() << ": configurations of Merrin indicators, without a window\n\n"
        << options.Usage() << "\n\nCommands:\n";
    std::size_t width = 0;
    for (const auto& command : commands) width = std::max(width, command->Name().size());
    for (const auto& command : commands) {
        out << "  " << command->Name() << std::string(width - command->Name().size() + 2, ' ')
            << command->Help() << '\n';
    }
    out << "\n"
        << kName << " COMMAND --help tells more about a command.\n"
        << options.Table() << '\n'
        << kExitCodes;
}

void PrintHelp(std::ostream& out, const Command& command, const Options& options) {
    out << kName << ' ' << command.Name() << ": " << command.Help() << "\n\n"
        << options.Usage() << "\n\n"
        << options.Table();
    if (const std::string notes = command.Notes(); !notes.empty()) out << '\n' << notes;
}

// "error 10005 (0x80042715) in Calyx.CIndicator.Load: description", which scripts take apart; control
// characters become blanks.
std::string ErrorText(const Error& error) {
    std::ostringstream text;
    text << "error " << error.Code() << " (0x" << std::hex << std::uppercase << std::setw(8)
         << std::setfill('0') << error.Number() << ") in " << error.Source() << ": " << error.Description();
    std::string line = text.str();
    std::replace_if(
        line.begin(), line.end(), [](unsigned char c) { return c < ' ' || c == 0x7F; }, ' ');
    return line;
}

std::unique_ptr<AppContext> StartUp(const Globals& globals, Console& console) {
    modStartup::Options options;
    options.folders.userDir = globals.userDir.value_or("");
    options.folders.dataDir = globals.dataDir.value_or("");
    options.language = globals.language.value_or("");
    const auto standing = [&] {
        std::error_code unknown;
        return std::filesystem::exists(PathOf(options.folders.userDir), unknown);
    };
    const bool fresh = globals.userDir && !standing();
    auto app = modStartup::Main(options);
    if (fresh && standing())
        console.err << kName << ": made the folder " << Printable(*globals.userDir) << '\n';
    for (const Error& notice : app->notices) console.err << kName << ": " << ErrorText(notice) << '\n';
    return app;
}

// While it lives, Ctrl+C sets the flag.
class InterruptWatch {
  public:
    InterruptWatch(Console& console, std::atomic<bool>& flag) : console_(console) {
        console_.watchInterrupt(&flag);
    }
    ~InterruptWatch() { console_.watchInterrupt(nullptr); }
    InterruptWatch(const InterruptWatch&) = delete;
    InterruptWatch& operator=(const InterruptWatch&) = delete;

  private:
    Console& console_;
};

// Files whose checks failed can be opened without them, wherever a command opens files.
bool IsRefusedByChecks(int code) {
    return code == code::kChecksum || code == code::kNoChecksum || code == code::kFileRevision ||
           code == code::kIndicatorRevision;
}

int Fail(Console& console, const Error& error) {
    console.err << kName << ": " << ErrorText(error) << '\n';
    if (IsRefusedByChecks(error.Code())) console.err << kName << ": --skip-checks opens it all the same\n";
    return kError;
}

int RunWith(AppContext& app, Command& command, const Globals& globals, Console& console) {
    const InterruptWatch watch(console, app.cancel);
    try {
        Program program(console, app, globals.json);
        const int code = command.Run(program);
        if (!app.cancel) return code;
        console.err << kName << ": Ctrl+C came when all was done\n";
        return kInterrupted;
    } catch (const Error& error) {
        // What failed because it was stopped is no error of its own.
        if (app.cancel) throw Interrupted{};
        app.errorLog.Write(error);
        return Fail(console, error);
    }
}

int RunCommand(Command& command, const std::vector<std::string>& arguments, Globals& globals,
               Console& console) {
    Options options(std::string(kName).append(" ").append(command.Name()));
    command.Declare(options);
    globals.Declare(options);
    if (command.HasListing()) options.Flag(globals.json, "--json", "the listing as JSON");
    try {
        const bool json = globals.json;
        if (!options.Parse(arguments)) {
            PrintHelp(console.out, command, options);
            return kDone;
        }
        globals.json = globals.json || json;
        if (globals.json && !command.HasListing()) throw UsageError("there is no listing for --json");
        const auto app = StartUp(globals, console);
        return RunWith(*app, command, globals, console);
    } catch (const UsageError& wrong) {
        console.err << kName << ": " << wrong.what() << '\n' << options.Usage() << '\n';
        return kUsage;
    }
}

int Dispatch(const std::vector<std::string>& arguments, Console& console) {
    const auto commands = AllCommands();
    Globals globals;
    bool version = false;
    Options options(std::string(kName) + " COMMAND [ARGUMENTS]");
    options.StopAtFirstWord();
    globals.Declare(options);
    options.Flag(globals.json, "--json", "a listing as JSON");
    options.Flag(version, "--version", "prints the version of the program");
    try {
        if (!options.Parse(arguments)) {
            PrintOverview(console.out, options, commands);
            return kDone;
        }
        if (version) {
            console.out << kName << ' ' << ProgramVersion() << '\n';
            return kDone;
        }
        if (options.Rest().empty()) throw UsageError("no command was given; --help lists them");
        const std::string& name = options.Rest().front();
        const auto found =
            std::find_if(commands.begin(), commands.end(), [&](const auto& c) { return c->Name() == name; });
        if (found == commands.end()) throw UsageError("there is no command " + name + "; --help lists them");
        return RunCommand(**found, {options.Rest().begin() + 1, options.Rest().end()}, globals, console);
    } catch (const UsageError& wrong) {
        console.err << kName << ": " << wrong.what() << '\n' << options.Usage() << '\n';
        return kUsage;
    }
}

int Guarded(const std::vector<std::string>& arguments, Console& console) {
    try {
        return Dispatch(arguments, console);
    } catch (const Interrupted&) {
        console.err << kName << ": stopped by Ctrl+C\n";
        return kInterrupted;
    } catch (const Error& error) {
        return Fail(console, error);
    } catch (const std::exception& failure) {
        return Fail(console, Error(kUnforeseen, "Calyx.RunCli",
                                   std::string("Something went wrong that the program does not foresee: ") +
                                       failure.what()));
    }
}

}  // namespace

int RunCli(const std::vector<std::string>& arguments, Console& console) {
    const int code = Guarded(arguments, console);
    console.out.flush();
    if (console.out || code == kInterrupted) return code;
    // A reader that has seen enough and closed the pipe is no failure.
    const std::error_code why = console.outFailure();
    if (why == std::errc::broken_pipe) return code;
    return Fail(console, Error(code::kFileNotWritten, "Calyx.RunCli",
                               "The results cannot be written: " + Reason(why)));
}

}  // namespace calyx::cli
