#include "app/startup.h"

#include <gtest/gtest.h>

#include "app/error_codes.h"
#include "app/version.h"
#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

using Found = IFileStore::Found;

// A small application folder and a user's; neither holds more than a test puts there.
class Startup : public ::testing::Test {
  protected:
    Startup() {
        data_.Put("texts/en.txt",
                  "1=Off\n2=On\n20004={1} {2}\n20100=File {1}: {2}\n20101=No {1} in {2}\n20102=Folder {1}\n"
                  "40800=Tokens {1}: {2}\n");
        data_.Put("calyx.dat", "[A]\ntexts=1,2\nkeys=OFF,ON\ndefault=OFF\n");
        data_.Put("tickets.dat", "G=1,5\n");
    }
    std::unique_ptr<AppContext> Start(const std::string& language = "") const {
        return modStartup::Main({.folders = {.userDir = user_.File("made"), .dataDir = data_.Text()},
                                 .language = language,
                                 .environment = [](const std::string&) { return std::nullopt; }});
    }
    std::string Made(const std::string& name) const { return FolderText(user_.File("made")) + name; }

    TestFolder data_, user_;
    FileStore files_;
};

TEST_F(Startup, MakesAContextThatADocumentCanUse) {
    const auto context = Start(), other = Start();
    EXPECT_EQ(context->model.texts.Text(2), "On");
    ASSERT_NE(context->model.lists.List("A"), nullptr);
    EXPECT_EQ(context->model.files, &context->files);
    EXPECT_NE(context->model.files, other->model.files);
    EXPECT_EQ(context->settings.UserDataDir(), Made(""));
    EXPECT_EQ(files_.Look(Made("")), Found::Folder);
    EXPECT_EQ(context->helpFile, "");
    EXPECT_TRUE(context->notices.empty());
}

TEST_F(Startup, TheInstalledDataIsWhole) {
    const auto context = modStartup::Main({.folders = {.userDir = user_.Text(), .dataDir = CALYX_DATA_DIR}});
    EXPECT_TRUE(context->model.texts.Has(126));
    EXPECT_NE(context->model.lists.List("GEN.TRKMDS"), nullptr);
    EXPECT_TRUE(context->notices.empty());
    EXPECT_EQ(files_.Read(user_.File("streams.ini")), files_.Read(CALYX_DATA_DIR "/streams.ini"));
    for (const int code : {code::kProgramFile, code::kNoLanguage, code::kUserFolder, code::kSettingsUnread,
                           code::kSettingsUnsaved}) {
        EXPECT_TRUE(context->model.texts.Has(code)) << code;
    }
}

TEST_F(Startup, AMissingOrBrokenProgramFileIsNamed) {
    const std::string missing = FailureOf([&] { files_.Read(data_.File("none")); }).message();
    const struct {
        const char *file, *content;  // no content: no file
        std::string reason;
    } cases[] = {
        {"calyx.dat", nullptr, missing},
        {"calyx.dat", "", "it holds no lists"},
        {"calyx.dat", "[A]\ntexts=1\nkeys=OFF,ON\ndefault=OFF\n",
         "list catalogue, line 1: list A has not one text a key"},
        {"texts/en.txt", "\n# nothing\n", "it holds no texts"},
        {"texts/en.txt", nullptr, missing},
    };
    for (const auto& one : cases) {
        const std::string before = files_.Read(data_.File(one.file));
        files_.Remove(data_.File(one.file));
        if (one.content) data_.Put(one.file, one.content);
        try {
            Start();
            FAIL() << one.file;
        } catch (const Error& error) {
            EXPECT_EQ(error.Code(), code::kProgramFile);
            EXPECT_EQ(error.Source(), "modStartup.Main");
            const std::string path = TextOf(PathOf(data_.File(one.file)).make_preferred());
            EXPECT_NE(error.Description().find(path), std::string::npos) << error.Description();
            EXPECT_NE(error.Description().find(one.reason), std::string::npos) << error.Description();
            EXPECT_NE(files_.Read(Made("errorlog.txt")).find(ErrorLine(error)), std::string::npos);
        }
        data_.Put(one.file, before);
    }
    EXPECT_NO_THROW(Start());
}

TEST_F(Startup, WithoutTicketTokensItStarts) {
    EXPECT_NE(Start()->ticketTokens.Find("G"), nullptr);
    data_.Put("tickets.dat", "G=1,5\nN\n");
    auto context = Start();
    ASSERT_EQ(context->notices.size(), 1u);
    EXPECT_NE(context->notices[0].Description().find("line 2"), std::string::npos);
    EXPECT_TRUE(context->ticketTokens.All().empty()) << "half a list would mark the rest as unknown";
    files_.Remove(data_.File("tickets.dat"));
    context = Start();
    ASSERT_EQ(context->notices.size(), 1u);
    EXPECT_EQ(context->notices[0].Code(), code::kNoTicketTokens);
}

TEST_F(Startup, StreamsAreCopiedOnlyToAUserWhoHasNone) {
    Start();
    EXPECT_EQ(files_.Look(Made("streams.ini")), Found::Nothing) << "there is no master to copy";

    std::filesystem::create_directories(PathOf(data_.File("streams.ini")));
    EXPECT_TRUE(Start()->notices.empty()) << "a copy that fails is ignored";
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(PathOf(Made(""))), {}), 0);
    std::filesystem::remove(PathOf(data_.File("streams.ini")));

    data_.Put("streams.ini", "[master]\r\n");
    Start();
    EXPECT_EQ(files_.Read(Made("streams.ini")), "[master]\r\n");
    files_.Replace(Made("streams.ini"), "");
    Start();
    EXPECT_EQ(files_.Read(Made("streams.ini")), "") << "an empty one is the user's own";
}

TEST_F(Startup, TheHelpFileIsFoundInEitherPlace) {
    const std::string inner = data_.Put("1033/calyxhelp.chm", "help");
    EXPECT_EQ(PathOf(Start()->helpFile), PathOf(inner));
    const std::string outer = data_.Put("calyxhelp.chm", "help");
    EXPECT_EQ(PathOf(Start()->helpFile), PathOf(outer));
}

TEST_F(Startup, ASecondLanguageLiesOverEnglish) {
    data_.Put("texts/de.txt", "2=Ein\n");
    auto context = Start("de");
    EXPECT_EQ(context->model.texts.Text(1), "Off");
    EXPECT_EQ(context->model.texts.Text(2), "Ein");
    context->settings.Language = "de";
    context->settings.Save();
    EXPECT_EQ(Start()->model.texts.Text(2), "Ein") << "kept as a setting";
    EXPECT_EQ(Start("en")->model.texts.Text(2), "On") << "what is asked for counts before the setting";

    for (const char* language : {"fr", "../de", "de\n"}) {
        context = Start(language);
        ASSERT_EQ(context->notices.size(), 1u) << language;
        EXPECT_EQ(context->notices[0].Code(), code::kNoLanguage);
        EXPECT_EQ(context->model.texts.Text(2), "On");
    }
}

TEST_F(Startup, AUserFolderThatCannotBeMadeIsANoticeOnly) {
    user_.Put("made", "a file in the way");
    const auto context = Start();
    ASSERT_FALSE(context->notices.empty());
    EXPECT_EQ(context->notices[0].Code(), code::kUserFolder);
    EXPECT_NE(context->model.lists.List("A"), nullptr);
}

TEST_F(Startup, ALargeErrorLogStartsAfreshAndABadSettingIsLogged) {
    Start();
    files_.Replace(Made("errorlog.txt"), std::string(50'001, 'x'));
    files_.Replace(Made("settings.ini"),
                   "[SOFTWARE\\Calyx\\Calyx\\" + ProgramVersion() + "\\Settings]\nTCPPort=high\n");
    const auto context = Start();
    EXPECT_EQ(context->settings.TCPPort, 10001);
    ASSERT_EQ(context->notices.size(), 1u);
    const std::string log = files_.Read(Made("errorlog.txt"));
    EXPECT_NE(log.find("error 20004 (0x80044E24) in Calyx.CAppSettings.Load, line "), std::string::npos)
        << log;
    EXPECT_NE(log.find(" of app_settings.cpp: TCPPort \"high\"\r\n"), std::string::npos) << log;
    EXPECT_LT(log.size(), 200u);
}

TEST(Version, HasTwoDigitsInTheMiddle) {
    EXPECT_EQ(VersionText(3, 10, 0), "3.10.0");
    EXPECT_EQ(VersionText(3, 5, 12), "3.05.12");
    EXPECT_EQ(ProgramVersion(), "3.10.0");
}

}  // namespace
}  // namespace calyx
