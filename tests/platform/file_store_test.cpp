#include "platform/file_store.h"

#include <gtest/gtest.h>

#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

using Found = IFileStore::Found;

class Files : public ::testing::Test {
  protected:
    TestFolder folder_;
    FileStore files_;
};

TEST_F(Files, EveryByteSurvivesReplacing) {
    std::string all;
    for (int c = 0; c < 256; ++c) all += static_cast<char>(c);
    std::string large;
    while (large.size() < 3'000'000) large += all;
    const std::string file = folder_.File("b\xC3\xA4 1.mrn");
    for (const std::string& bytes :
         {all, std::string(), large, std::string("\r\n\x1a\n", 4), std::string("end")}) {
        files_.Replace(file, bytes);
        EXPECT_TRUE(files_.Read(file) == bytes) << bytes.size();
    }
    EXPECT_EQ(folder_.Count(), 1) << "nothing but the file stays";
}

TEST_F(Files, TellsWhatAPathIs) {
    const std::string file = folder_.Put("a", "x");
    EXPECT_EQ(files_.Look(file), Found::File);
    EXPECT_EQ(files_.Look(folder_.Text()), Found::Folder);
    EXPECT_EQ(files_.Look(folder_.File("none")), Found::Nothing);
    EXPECT_EQ(files_.Look(folder_.File("none/below")), Found::Nothing);
    EXPECT_EQ(files_.Look(file + "/below"), Found::Nothing);
}

TEST_F(Files, FailuresCarryTheSystemsReasonAndChangeNothing) {
    const std::string file = folder_.Put("a", "old");
    std::filesystem::create_directories(PathOf(folder_.File("sub")));
    const std::string sub = folder_.File("sub"), missing = folder_.File("none/a"),
                      nul = folder_.File(std::string("a\0b", 3)),
                      longest = folder_.File(std::string(300, 'n'));
    const auto replace = [&](const std::string& path) {
        return FailureOf([&] { files_.Replace(path, "new"); });
    };
    const auto read = [&](const std::string& path) { return FailureOf([&] { files_.Read(path); }); };

    EXPECT_EQ(read(folder_.File("none")), std::errc::no_such_file_or_directory);
    EXPECT_EQ(read(sub), std::errc::is_a_directory);
    EXPECT_EQ(replace(sub), std::errc::is_a_directory);
    EXPECT_EQ(replace(missing), std::errc::no_such_file_or_directory);
    for (const std::string& path : {nul, longest}) {
        EXPECT_TRUE(replace(path));
        EXPECT_TRUE(read(path));
    }
    EXPECT_EQ(files_.Read(file), "old");
    EXPECT_EQ(folder_.Count(), 2) << "no temporary file stays";
}

TEST_F(Files, RemoveTakesAFileOnly) {
    const std::string file = folder_.Put("a", "x");
    files_.Remove(file);
    files_.Remove(file);
    EXPECT_EQ(folder_.Count(), 0);
    EXPECT_TRUE(FailureOf([&] { files_.Remove(folder_.Text()); }));
    EXPECT_EQ(files_.Look(folder_.Text()), Found::Folder);
}

}  // namespace
}  // namespace calyx
