#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <functional>

#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

namespace fs = std::filesystem;

class PosixFiles : public ::testing::Test {
  protected:
    // Runs the body in a process of its own; the number of the error that it raised, 0 for none.
    static int InChild(const std::function<void()>& body) {
        const pid_t child = fork();
        if (child == 0) _exit(FailureOf(body).value());
        int status = 0;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    static mode_t Mode(const std::string& file) {
        struct stat status {};
        stat(file.c_str(), &status);
        return status.st_mode & 07777;
    }

    TestFolder folder_;
    FileStore files_;
};

// The process may open no file for a while. Sanitizers need files to look at an exception.
class NoMoreFiles {
  public:
    NoMoreFiles() {
        getrlimit(RLIMIT_NOFILE, &before_);
        const rlimit none{0, before_.rlim_max};
        setrlimit(RLIMIT_NOFILE, &none);
    }
    ~NoMoreFiles() { setrlimit(RLIMIT_NOFILE, &before_); }

  private:
    rlimit before_{};
};

TEST_F(PosixFiles, AFailureAtAnyStepLeavesTheOldFileWhole) {
    const std::string file = folder_.Put("a", "old");
    const std::string bytes(300'000, 'n');
    // A disk that is full after some bytes looks like this: the first write is cut, the next fails.
    for (const rlim_t room : {rlim_t{0}, rlim_t{1}, rlim_t{4096}, rlim_t{299'999}}) {
        EXPECT_EQ(InChild([&] {
                      signal(SIGXFSZ, SIG_IGN);
                      const rlimit limit{room, room};
                      setrlimit(RLIMIT_FSIZE, &limit);
                      files_.Replace(file, bytes);
                  }),
                  EFBIG)
            << room;
    }
    EXPECT_EQ(InChild([&] {
                  const NoMoreFiles none;
                  files_.Replace(file, bytes);
              }),
              EMFILE);
    EXPECT_EQ(files_.Read(file), "old");
    EXPECT_EQ(folder_.Count(), 1) << "no temporary file stays";
}

TEST_F(PosixFiles, AKillLeavesOneWholeVersion) {
    const std::string versions[] = {std::string(200'000, 'a'), std::string(300'000, 'b')};
    const std::string file = folder_.Put("a", versions[0]);
    for (int round = 0; round < 40; ++round) {
        int started[2];
        ASSERT_EQ(pipe(started), 0);
        const pid_t child = fork();
        if (child == 0) {
            for (int i = 0;; ++i) {
                files_.Replace(file, versions[i % 2]);
                if (i == 0 && write(started[1], "x", 1) != 1) _exit(1);
            }
        }
        char ready = 0;
        ASSERT_EQ(read(started[0], &ready, 1), 1);
        usleep(static_cast<useconds_t>(round * 97 % 1500));  // another moment each time
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(started[0]);
        close(started[1]);
        const std::string bytes = files_.Read(file);
        ASSERT_TRUE(bytes == versions[0] || bytes == versions[1])
            << "round " << round << ": " << bytes.size();
    }
    files_.Replace(file, "whatever a kill leaves behind is not in the way");
    EXPECT_EQ(files_.Read(file).size(), 47u);
}

TEST_F(PosixFiles, PermissionsAreKeptAndNewFilesFollowTheUmask) {
    const std::string file = folder_.Put("a", "old");
    for (const mode_t mode : {0600u, 0640u, 0664u, 0755u}) {
        ASSERT_EQ(chmod(file.c_str(), mode), 0);
        files_.Replace(file, "new");
        EXPECT_EQ(Mode(file), mode);
    }
    const mode_t before = umask(027);
    files_.Replace(folder_.File("b"), "new");
    umask(before);
    EXPECT_EQ(Mode(folder_.File("b")), 0640u);

    if (geteuid() == 0) {  // only root may give a file away
        ASSERT_EQ(chown(file.c_str(), 1234, 2345), 0);
        files_.Replace(file, "new");
        struct stat status {};
        ASSERT_EQ(stat(file.c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, 1234u);
        EXPECT_EQ(status.st_gid, 2345u);
    }
}

TEST_F(PosixFiles, WriteProtectedFilesAndFoldersAreRefused) {
    const std::string file = folder_.Put("a", "old");
    ASSERT_EQ(chmod(file.c_str(), 0444), 0);
    ASSERT_EQ(chmod(folder_.Text().c_str(), 0777), 0);
    const auto asNobody = [&](const std::string& path) {
        return InChild([&] {
            if (geteuid() == 0 && seteuid(65534) != 0) return;  // root may write everywhere
            files_.Replace(path, "new");
        });
    };
    EXPECT_EQ(asNobody(file), EACCES) << "the rename alone would have been allowed";
    ASSERT_EQ(chmod(folder_.Text().c_str(), 0555), 0);
    EXPECT_EQ(asNobody(folder_.File("b")), EACCES);
    if (geteuid() == 0) {  // the last step fails: who may write the file may not rename over another's
        ASSERT_EQ(chmod(folder_.Text().c_str(), 01777), 0);
        ASSERT_EQ(chmod(file.c_str(), 0666), 0);
        EXPECT_EQ(asNobody(file), EPERM);
    }
    ASSERT_EQ(chmod(folder_.Text().c_str(), 0755), 0);
    EXPECT_EQ(files_.Read(file), "old");
    EXPECT_EQ(folder_.Count(), 1);
}

TEST_F(PosixFiles, LinksStayLinks) {
    const std::string file = folder_.Put("below/a", "old");
    fs::create_symlink("below/a", folder_.File("link"));
    fs::create_symlink(folder_.File("link"), folder_.File("second"));
    fs::create_symlink("below/b", folder_.File("dangling"));
    fs::create_symlink("loop", folder_.File("loop"));

    files_.Replace(folder_.File("second"), "new");
    EXPECT_EQ(files_.Read(file), "new");
    files_.Replace(folder_.File("dangling"), "made");
    EXPECT_EQ(files_.Read(folder_.File("below/b")), "made");
    EXPECT_EQ(FailureOf([&] { files_.Replace(folder_.File("loop"), "new"); }),
              std::errc::too_many_symbolic_link_levels);
    for (const char* link : {"link", "second", "dangling", "loop"}) {
        EXPECT_TRUE(fs::is_symlink(folder_.File(link))) << link;
    }
    EXPECT_EQ(folder_.Count(), 5);
}

TEST_F(PosixFiles, DevicesAreWrittenStraightAndNeverReplaced) {
    EXPECT_EQ(FailureOf([&] { files_.Replace("/dev/full", "new"); }), std::errc::no_space_on_device);
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
    EXPECT_EQ(FailureOf([&] { files_.Read("/dev/zero"); }), std::errc::file_too_large);
}

TEST_F(PosixFiles, NothingWaitsForTheOtherEndOfAPipe) {
    const std::string fifo = folder_.File("fifo");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    const auto inTime = [](const std::function<void()>& body) {
        return InChild([&] {
            alarm(20);  // a wait ends the process, which shows as -1
            body();
        });
    };
    EXPECT_EQ(inTime([&] { files_.Read(fifo); }), EOPNOTSUPP);
    EXPECT_EQ(inTime([&] { files_.Replace(fifo, "x"); }), ENXIO);

    // What the caller of the program hands in is read to its end.
    EXPECT_EQ(inTime([&] {
                  int ends[2];
                  if (pipe(ends) != 0 || dup2(ends[0], 0) < 0 || write(ends[1], "abc", 3) != 3) _exit(1);
                  close(ends[1]);
                  if (files_.Read("/dev/stdin") != "abc") _exit(2);
              }),
              0);
}

TEST_F(PosixFiles, PathsAreMadeInADeletedWorkingFolder) {
    EXPECT_EQ(InChild([&] {
                  const std::string gone = folder_.File("gone");
                  fs::create_directory(gone);
                  fs::current_path(gone);
                  fs::remove(gone);
                  if (FolderText("/abc") != "/abc/" || FolderText("abc") != "abc/") _exit(1);
              }),
              0);
}

TEST_F(PosixFiles, ANameMayBeAnyBytes) {
    const std::string file = folder_.File("\xE4\xFF.mrn");
    files_.Replace(file, "x");
    EXPECT_EQ(TextOf(PathOf(file)), file);
    EXPECT_TRUE(fs::exists(PathOf(file)));
}

}  // namespace
}  // namespace calyx
