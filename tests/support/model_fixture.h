#pragma once

#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>

#include "model/language/context.h"
#include "model/language/file_store.h"

namespace calyx::test {

inline std::string ReadFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    if (!in) throw std::runtime_error("cannot read " + path);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

// Files in memory, with a switch that makes every write fail.
class MemoryFiles : public IFileStore {
  public:
    std::map<std::string, std::string> files;
    bool full = false;

    Found Look(const std::string& path) const override {
        if (path.ends_with('/')) return Found::Folder;
        return files.contains(path) ? Found::File : Found::Nothing;
    }
    std::string Read(const std::string& path) const override { return files.at(path); }
    using IFileStore::Replace;
    void Replace(const std::string& path, std::string_view bytes, const LastLook& lastLook) override {
        if (full) throw std::system_error(std::make_error_code(std::errc::no_space_on_device));
        if (lastLook) lastLook();
        files[path] = bytes;
    }
    void Remove(const std::string& path) override { files.erase(path); }
};

// A context over the program's own texts and lists.
struct TestContext : ModelContext {
    MemoryFiles memory;

    explicit TestContext(const std::string& dataFolder) {
        texts.Read(ReadFile(dataFolder + "/texts/en.txt"));
        lists.Read(ReadFile(dataFolder + "/calyx.dat"), texts);
        files = &memory;
    }
    TestContext(const TestContext&) = delete;
};

}  // namespace calyx::test
