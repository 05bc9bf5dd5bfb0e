#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "cli/run.h"
#include "model/language/text.h"
#include "platform/file_store.h"
#include "tests/platform/test_folder.h"

namespace calyx::cli {

struct Ran {
    int code;
    std::string out, err;
};

// What a command line must end with.
struct Expected {
    std::string line;  // see CliTest::Run
    int code;
    std::string out, err;  // stand in the streams
};

inline void PrintTo(const Expected& expected, std::ostream* out) {
    *out << expected.line;
}

// Runs the program in this process, with a folder of its own for files and settings.
class CliTest : public ::testing::Test {
  protected:
    Ran Run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"--user-dir", File("user"), "--data-dir", CALYX_DATA_DIR});
        std::ostringstream out, err;
        std::istringstream in(input);
        Console console{.out = out, .err = err, .in = in};
        console.inIsTerminal = terminal;
        console.watchInterrupt = watchInterrupt;
        const int code = RunCli(arguments, console);
        return {code, out.str(), err.str()};
    }
    // Words separated by blanks; "~x" is the file x of the folder, "@x" the sample x.
    Ran Run(const std::string& line) {
        std::vector<std::string> arguments;
        for (const std::string_view word : Split(line, ' ')) {
            if (word.empty()) continue;
            const std::string rest(word.substr(1));
            arguments.push_back(word[0] == '~'   ? File(rest)
                                : word[0] == '@' ? std::string(CALYX_DATA_DIR) + "/samples/" + rest + ".mrn"
                                                 : std::string(word));
        }
        return Run(std::move(arguments));
    }
    std::string Out(const std::string& line) { return Run(line).out; }

    void Expect(const std::vector<Expected>& rows) {
        for (const Expected& row : rows) {
            const Ran ran = Run(row.line);
            EXPECT_EQ(ran.code, row.code) << row.line << '\n' << ran.out << ran.err;
            EXPECT_NE(ran.out.find(row.out), std::string::npos) << row.line << '\n' << ran.out;
            EXPECT_NE(ran.err.find(row.err), std::string::npos) << row.line << '\n' << ran.err;
        }
    }

    std::string File(const std::string& name) const { return folder.File(name); }
    std::string Read(const std::string& name) const { return FileStore().Read(File(name)); }
    bool Exists(const std::string& name) const {
        return FileStore().Look(File(name)) != IFileStore::Found::Nothing;
    }
    void Put(const std::string& name, std::string_view bytes) const { folder.Put(name, bytes); }

    TestFolder folder;
    std::string input;      // standard input
    bool terminal = false;  // standard input is one
    std::function<void(std::atomic<bool>*)> watchInterrupt = [](std::atomic<bool>*) {};
};

inline bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

}  // namespace calyx::cli
