// The general features.

#include <gtest/gtest.h>

#include <vector>

#include "model/document/indicator.h"
#include "tests/support/golden.h"
#include "tests/support/members.h"

namespace calyx::test {
namespace {

class General : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CGeneral general{context};
    void SetUp() override { general.Initialize(); }
    void Set(const std::string& key, const std::string& value) {
        EXPECT_TRUE(general.Take({{key, std::nullopt, value}}, Section::Check::Strict).empty()) << key;
    }
    void Read(const std::string& lines) {
        Dictionary file(lines);
        ReadReport report;
        general.Initialize();
        general.RestoreState(file, report);
    }
};

TEST_F(General, LinesByVersion) {
    Set("GRAVADJ", "ON");
    Set("KLOCK.KZERO", "True");
    ExpectGolden("general-versions.txt", VersionMatrix(general));
}

TEST_F(General, TheWholeTextOfARichDocument) {
    CIndicator document(context);
    document.LoadText(ReadFile(std::string(CALYX_DATA_DIR) + "/samples/batching-plant.mrn"), "f");
    ExpectGolden("general-batching-plant.txt", document.General().StoreState());
}

TEST_F(General, KeyboardLockIsTwoWordsForOneNumber) {
    const auto words = [&] {
        const std::string text = general.GetTextOutput(true);
        return text.substr(text.find("KYBDLK="), text.find("GRAVADJ") - text.find("KYBDLK="));
    };
    struct Row {
        const char* file;
        int lock;
        const char* written;
    };
    const Row rows[] = {
        {"", 1, "KYBDLK=OFF\r\nZERONLY=OFF\r\n"},
        {"KYBDLK=ON\r\nZERONLY=OFF\r\n", 2, "KYBDLK=ON\r\nZERONLY=OFF\r\n"},
        {"KYBDLK=OFF\r\nZERONLY=ON\r\n", 3, "KYBDLK=OFF\r\nZERONLY=ON\r\n"},
        {"KYBDLK=ON\r\nZERONLY=ON\r\n", 3, "KYBDLK=OFF\r\nZERONLY=ON\r\n"},
        {"ZERONLY=OFF\r\n", 1, "KYBDLK=OFF\r\nZERONLY=OFF\r\n"},
    };
    for (const Row& row : rows) {
        Read(row.file);
        EXPECT_EQ(general.Values().keyboardLock, row.lock) << row.file;
        EXPECT_EQ(words(), row.written) << row.file;
    }
}

TEST_F(General, FixedFieldsAreWrittenTrimmedAndContactsAsTheyStand) {
    Read("ALERT.PHONE= 555 \r\nCONTACT.NAME1= Jo \r\nUID=  AB  \r\nTRUCK= MODE1 \r\nDATEFMT=ddmmyyyy\r\n");
    const std::string text = general.GetTextOutput(true);
    for (const char* line : {"ALERT.PHONE=555\r\n", "CONTACT.NAME1= Jo \r\n", "UID=AB\r\n", "TRUCK=MODE1\r\n",
                             "DATEFMT=MMDDYYYY\r\n"}) {
        EXPECT_NE(text.find(line), std::string::npos) << line;
    }
}

TEST_F(General, LastCalibrationIsReadAndNotWritten) {
    Read("LASTCAL=01312026\r\nNEXTCAL=01312027\r\n");
    EXPECT_EQ(general.Values().lastCal, (Date{2026, 1, 31}));
    EXPECT_EQ(general.StoreState().find("LASTCAL"), std::string::npos);
    EXPECT_NE(general.GetPrintOutput().find("01312026"), std::string::npos);
}

TEST_F(General, VersionIsInTheFileAndNeverSent) {
    general.SetVersion("3.10.00");
    EXPECT_TRUE(general.StoreState().starts_with("VERSION=3.10.00\r\nBATCHNG="));
    EXPECT_TRUE(general.GetTextOutput(true).starts_with("BATCHNG="));
}

TEST_F(General, EveryMemberHasARow) {
    ExpectARowForEveryMember(kGeneralTable);
    ExpectARowForEveryMember(kVersionTable);
    ExpectARowForEveryMember(kKeyLockTable, 1);  // whether the file has such lines
}

struct Recorder : ILineSender, IDownload {
    std::vector<std::string> sent;
    std::vector<std::string> failed;
    explicit Recorder(bool accepts = true, bool stops = false) : accept(accepts), stop(stops) {}
    bool accept, stop;
    bool SendLine(std::string_view line) override {
        sent.emplace_back(line);
        return accept;
    }
    bool ErrorAction(const std::string& line) override {
        failed.push_back(line);
        return stop;
    }
};

TEST_F(General, SendsItsGatedLinesAndAsksAfterEveryFailure) {
    context.target = {"1.00.", false};
    Recorder all;
    EXPECT_TRUE(general.SendToIndicator(all, all));
    EXPECT_EQ(all.sent.size(), 17u);
    EXPECT_EQ(all.sent.front(), "BATCHNG=OFF");
    Recorder refusing(false);
    EXPECT_TRUE(general.SendToIndicator(refusing, refusing));
    EXPECT_EQ(refusing.failed.size(), 17u);
    Recorder stopping(false, true);
    EXPECT_FALSE(general.SendToIndicator(stopping, stopping));
    EXPECT_EQ(stopping.sent.size(), 1u);
}

}  // namespace
}  // namespace calyx::test
