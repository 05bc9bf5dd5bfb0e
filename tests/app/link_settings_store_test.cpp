#include "app/link_settings_store.h"

#include <gtest/gtest.h>

#include "app/error_codes.h"
#include "platform/file_settings_store.h"
#include "tests/platform/test_folder.h"

namespace calyx {
namespace {

class LinkStore : public ::testing::Test {
  protected:
    TestFolder folder_;
    FileStore files_;
    FileSettingsStore store_{files_, folder_.File("user.ini"), folder_.File("machine.ini")};
    ResourceTexts texts_;
    CAppSettings settings_{store_, texts_, "3.10.0", folder_.Text(), nullptr};
    std::vector<Error> errors_;
    LinkSettingsStore link_{settings_, texts_, [this](const Error& error) { errors_.push_back(error); }};
};

TEST_F(LinkStore, ReadsEveryFieldFromItsSetting) {
    int number = 100;
    for (const char* property :
         {"IndicatorPort", "IndicatorBaud", "IndicatorParity", "IndicatorDataBits", "IndicatorStopBits",
          "IPAddress", "TCPPort", "TargetAddress", "CommMethod", "CommDelayTime", "AutoDetectSearch"}) {
        ASSERT_TRUE(settings_.Set(*FindSettingRow(property), std::to_string(++number)));
    }
    settings_.LogComm = true;
    const LinkSettings link = link_.Load();
    EXPECT_EQ((std::vector{link.port, link.baud, link.parity, link.dataBits, link.stopBits, link.host}),
              (std::vector<std::string>{"101", "102", "103", "104", "105", "106"}));
    EXPECT_EQ((std::vector<int>{link.tcpPort, link.address, link.method, link.delayMs}),
              (std::vector{107, 108, 109, 110}));
    EXPECT_EQ(link.searchText, "111");
    EXPECT_TRUE(link.logging);
    EXPECT_FALSE(link.storedFirst);  // only on request
}

TEST_F(LinkStore, KeepsWhatAConnectFoundAndNothingElse) {
    const LinkSettings found{.method = 2,
                             .port = "COM7",
                             .baud = "19200",
                             .parity = "E",
                             .dataBits = "7",
                             .stopBits = "2",
                             .host = "10.0.0.9",
                             .tcpPort = 65535,
                             .address = 9,
                             .delayMs = 7,
                             .logging = true,
                             .searchText = "x"};
    link_.Store(found);

    CAppSettings later(store_, texts_, "3.10.0", folder_.Text(), nullptr);
    later.Load();
    const LinkSettings link = LinkSettingsStore(later, texts_, nullptr).Load();
    EXPECT_EQ((std::vector{link.port, link.baud, link.parity, link.dataBits, link.stopBits, link.host}),
              (std::vector<std::string>{"COM7", "19200", "E", "7", "2", "10.0.0.9"}));
    EXPECT_EQ(link.tcpPort, 65535) << "above what 16 bits with a sign hold";
    EXPECT_EQ((std::vector{link.method, link.address, link.delayMs}), (std::vector{0, 1, 100}));
    EXPECT_EQ(link.searchText, "Merrin");
    EXPECT_FALSE(link.logging);
}

TEST_F(LinkStore, KeepsWhatAPersonChose) {
    link_.Keep({.method = comm_method::kDetect, .port = "COM7", .address = 9, .storedFirst = true});
    CAppSettings later(store_, texts_, "3.10.0", folder_.Text(), nullptr);
    later.Load();
    EXPECT_FALSE(later.AutoDetectIndicatorSettings);
    const LinkSettings link = LinkSettingsStore(later, texts_, nullptr).Load();
    EXPECT_EQ((std::vector{link.method, link.address}), (std::vector{comm_method::kDetect, 9}));
    EXPECT_EQ(link.port, "COM7");
    EXPECT_TRUE(link.storedFirst);
}

TEST_F(LinkStore, OddSettingsAreRecordedAndDoNotStopTheLink) {
    for (const char* address : {"0", "256", "", "1a"}) {
        errors_.clear();
        settings_.TargetAddress = address;
        EXPECT_EQ(link_.Load().address, 1) << address;
        ASSERT_EQ(errors_.size(), 1u) << address;
        EXPECT_EQ(errors_[0].Code(), code::kSetting);
    }
    std::filesystem::create_directories(PathOf(folder_.File("user.ini/x")));
    link_.Store({.host = "10.0.0.9"});
    ASSERT_EQ(errors_.size(), 2u);
    EXPECT_EQ(errors_[1].Code(), code::kSettingsUnsaved);
    EXPECT_EQ(errors_[1].Chain(), std::vector<std::string>{"Calyx.CIndicatorComm.StoreSettings"});
}

}  // namespace
}  // namespace calyx
