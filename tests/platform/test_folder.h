#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <random>
#include <string>

#include "platform/file_store.h"
#include "platform/paths.h"

namespace calyx {

// A folder of a test's own, which goes with it.
class TestFolder {
  public:
    TestFolder() { std::filesystem::create_directories(path_); }
    ~TestFolder() { std::filesystem::remove_all(path_); }

    std::string Text() const { return FolderText(TextOf(path_)); }
    std::string File(const std::string& name) const { return Text() + name; }
    auto Count() const { return std::distance(std::filesystem::directory_iterator(path_), {}); }
    std::string Put(const std::string& name, std::string_view bytes) const {
        std::filesystem::create_directories(PathOf(File(name)).parent_path());
        FileStore().Replace(File(name), bytes);
        return File(name);
    }

  private:
    const std::filesystem::path path_ = std::filesystem::path(::testing::TempDir()) /
                                        ("calyx-test-" + std::to_string(std::random_device()()));
};

// The system's error code of what the call raises; none when it raises nothing.
template <class Call>
std::error_code FailureOf(Call&& call) {
    try {
        call();
    } catch (const std::system_error& failure) {
        return failure.code();
    }
    return {};
}

}  // namespace calyx
