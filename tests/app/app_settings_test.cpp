#include "app/app_settings.h"

#include <gtest/gtest.h>

#include <set>

#include "app/error_codes.h"
#include "platform/file_settings_store.h"
#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

using Root = ISettingsStore::Root;

class AppSettings : public ::testing::Test {
  protected:
    AppSettings() {
        texts_.Read("20004=Setting {1} is {2}.\n20103=Unread: {1}\n20104=Unsaved: {1}\n20105=rights\n");
    }

    CAppSettings Fresh(const std::string& version = "3.10.0") {
        return {store_, texts_, version, folder_.Text(),
                [this](const Error& error) { errors_.push_back(error); }};
    }
    static std::vector<SettingRow> AllRows() {
        std::vector<SettingRow> rows(ProductSettingRows().begin(), ProductSettingRows().end());
        rows.insert(rows.end(), FurtherSettingRows().begin(), FurtherSettingRows().end());
        return rows;
    }
    // The words of the failure; "saved" when there was none.
    static std::string FailedSave(CAppSettings& settings) {
        try {
            settings.Save();
        } catch (const Error& error) {
            EXPECT_EQ(error.Code(), code::kSettingsUnsaved);
            EXPECT_EQ(error.Source(), "Calyx.CAppSettings.Save");
            return error.Description();
        }
        return "saved";
    }
    static std::string Key(const SettingRow& row) {
        return "SOFTWARE\\Calyx\\Calyx\\3.10.0\\" + std::string(row.subKey);
    }
    void Store(std::string_view property, std::string_view value) {
        const SettingRow* row = FindSettingRow(property);
        ASSERT_NE(row, nullptr) << property;
        store_.Set(row->root, Key(*row), row->value, value);
    }

    TestFolder folder_;
    FileStore files_;
    FileSettingsStore store_{files_, folder_.File("user.ini"), folder_.File("machine.ini")};
    ResourceTexts texts_;
    std::vector<Error> errors_;
};

TEST_F(AppSettings, AFreshUserGetsTheProductsDefaults) {
    CAppSettings settings = Fresh();
    settings.Load();
    constexpr const char* kTypes[] = {"Boolean", "Integer", "Long", "Text", "TextList"};
    std::string listing;
    for (const SettingRow& row : ProductSettingRows()) {
        for (const std::string_view field : {row.property, row.value, row.subKey,
                                             std::string_view(row.root == Root::User ? "User" : "Machine"),
                                             std::string_view(kTypes[static_cast<int>(row.type)])}) {
            listing += std::string(field) + '|';
        }
        listing += settings.Text(row) + '\n';
    }
    EXPECT_EQ(listing, files_.Read(CALYX_SOURCE_DIR "/tests/app/product_settings.txt"));
    EXPECT_EQ(static_cast<const Settings&>(settings), StandardSettings());
    EXPECT_TRUE(errors_.empty());
    EXPECT_EQ(folder_.Count(), 0) << "loading stores nothing";
}

TEST_F(AppSettings, EverySettingSurvivesSavingAndLoading) {
    CAppSettings settings = Fresh();
    std::vector<std::string> expected;
    int number = 100;
    for (const SettingRow& row : AllRows()) {
        const std::string some = std::to_string(++number);
        expected.push_back(row.type == SettingType::Boolean    ? (row.standard == "True" ? "False" : "True")
                           : row.type == SettingType::Text     ? " \\ " + some + "\r\n\xE4="
                           : row.type == SettingType::TextList ? "C:\\a%7Cb|%25" + some
                                                               : '-' + some);
        ASSERT_TRUE(settings.Set(row, expected.back())) << row.property;
    }
    settings.Save();

    FileSettingsStore stored(files_, folder_.File("user.ini"), folder_.File("machine.ini"));
    CAppSettings loaded(stored, texts_, "3.10.0", folder_.Text(), [](const Error& error) { throw error; });
    loaded.Load();
    std::set<std::string> places;
    for (std::size_t i = 0; i < expected.size(); ++i) {
        const SettingRow row = AllRows()[i];
        EXPECT_EQ(loaded.Text(row), expected[i]) << row.property;
        EXPECT_EQ(stored.Get(row.root, Key(row), row.value), expected[i]) << row.property;
        EXPECT_TRUE(places.insert(Key(row) + '|' + std::string(row.value)).second) << row.property;
    }
    EXPECT_EQ(loaded.BarGroup[6], -112);
    EXPECT_EQ(loaded.RecentFiles.front(), "C:\\a|b");

    CAppSettings other(stored, texts_, "3.10.1", folder_.Text(), nullptr);
    other.Load();
    EXPECT_EQ(static_cast<const Settings&>(other), StandardSettings())
        << "another version has its own settings";
}

TEST_F(AppSettings, WhatDoesNotConvertKeepsItsDefaultAndIsRecorded) {
    const struct {
        const char *property, *stored, *text;
        bool converts;
    } cases[] = {
        {"ViewToolbar", "False", "False", true},
        {"ViewToolbar", " false ", "False", true},
        {"ViewToolbar", "0", "True", false},
        {"LogComm", "OFF", "False", false},
        {"LogComm", "", "False", false},

        {"TCPPort", "32767", "32767", true},
        {"TCPPort", "-32768", "-32768", true},
        {"TCPPort", " +5 ", "5", true},
        {"TCPPort", "32768", "10001", false},
        {"TCPPort", "-32769", "10001", false},
        {"TCPPort", "", "10001", false},
        {"TCPPort", "12x", "10001", false},
        {"TCPPort", "1.5", "10001", false},

        {"CommDelayTime", "2147483647", "2147483647", true},
        {"CommDelayTime", "2147483648", "100", false},

        {"IPAddress", "", "", true},
        {"RecentFiles", "", "", true},
        {"RecentFiles", "a||b|", "a|b", true},
    };
    for (const auto& one : cases) {
        errors_.clear();
        Store(one.property, one.stored);
        CAppSettings settings = Fresh();
        settings.Load();
        const std::string what = std::string(one.property) + " \"" + one.stored + '"';
        EXPECT_EQ(settings.Text(*FindSettingRow(one.property)), one.text) << what;
        ASSERT_EQ(errors_.size(), one.converts ? 0u : 1u) << what;
        Store(one.property, FindSettingRow(one.property)->standard);
        if (one.converts) continue;
        EXPECT_EQ(errors_[0].Code(), code::kSetting);
        EXPECT_EQ(errors_[0].Source(), "Calyx.CAppSettings.Load");
        EXPECT_EQ(errors_[0].Description(),
                  "Setting " + std::string(one.property) + " is \"" + one.stored + "\".");
    }
}

TEST_F(AppSettings, ARefusalIsToldWhenAMachineWideSettingWasChanged) {
    std::filesystem::create_directories(PathOf(folder_.File("machine.ini/x")));
    CAppSettings settings = Fresh();
    settings.IPAddress = "127.0.0.1";
    settings.Save();  // nobody misses defaults
    settings.CommDelayTime = 200;
    EXPECT_EQ(FailedSave(settings), "Unsaved: rights");

    CAppSettings loaded = Fresh();
    loaded.Load();
    EXPECT_EQ(loaded.IPAddress, "127.0.0.1");
    EXPECT_EQ(loaded.CommDelayTime, 100);
    ASSERT_EQ(errors_.size(), 1u) << "an unreadable store is recorded once, not for every setting";
    EXPECT_EQ(errors_[0].Code(), code::kSettingsUnread);
}

TEST_F(AppSettings, AUsersSettingsThatCannotBeSavedAreAnError) {
    std::filesystem::create_directories(PathOf(folder_.File("user.ini/x")));
    CAppSettings settings = Fresh();
    settings.IPAddress = "127.0.0.1";
    EXPECT_EQ(FailedSave(settings), "Unsaved: Is a directory");
    settings.Load();
    settings.IPAddress = "127.0.0.1";
    EXPECT_EQ(FailedSave(settings), "Unsaved: Is a directory")
        << "one that could not be read is not replaced";
    std::filesystem::remove_all(PathOf(folder_.File("user.ini")));
    EXPECT_EQ(FailedSave(settings), "Unsaved: Is a directory");
    EXPECT_EQ(files_.Look(folder_.File("user.ini")), IFileStore::Found::Nothing);
}

TEST_F(AppSettings, ProgramsThatRunAtOnceKeepEachOthersChanges) {
    FileSettingsStore otherStore(files_, folder_.File("user.ini"), folder_.File("machine.ini"));
    CAppSettings one = Fresh();
    CAppSettings other(otherStore, texts_, "3.10.0", folder_.Text(), nullptr);
    one.RecentFiles = {"both", "removed"};
    one.Save();
    one.Load();
    other.Load();

    other.IPAddress = "10.0.0.9";
    other.RecentFiles = {"theirs", "both", "removed"};
    other.Save();
    one.Theme = "dark";
    one.RecentFiles = {"mine", "both"};
    one.Save();
    EXPECT_EQ(one.RecentFiles, (std::vector<std::string>{"mine", "both", "theirs"}));

    CAppSettings later = Fresh();
    later.Load();
    EXPECT_EQ(later.IPAddress, "10.0.0.9") << "not written over with what was loaded before";
    EXPECT_EQ(later.Theme, "dark");
    EXPECT_EQ(later.RecentFiles, one.RecentFiles);
}

}  // namespace
}  // namespace calyx
