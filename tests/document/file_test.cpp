// The file: envelope, checks, lenient reading, saving.

#include <gtest/gtest.h>

#include "model/document/checksum.h"
#include "model/document/indicator.h"
#include "tests/support/model_fixture.h"

namespace calyx::test {
namespace {

class File : public testing::Test {
  protected:
    TestContext context{CALYX_DATA_DIR};
    CIndicator document{context};

    std::string Saved(const std::vector<KeyValue>& lines = {}) {
        CIndicator fresh(context);
        fresh.Initialize();
        EXPECT_TRUE(fresh.Import(lines).refused.empty());
        return fresh.FileText();
    }
    // A file around a body whose checksum is right.
    static std::string Around(const std::string& body, const std::string& revision = "3.10.0") {
        return "@REVISION=" + revision + "\r\n@CRC=" + std::to_string(Checksum(body)) +
               "\r\n@CODFile=\r\n\r\n[BEGIN]\r\n" + body + "[END]";
    }
    // The code of the error that opening ends with; 0: opened.
    int Open(const std::string& text, bool skipChecks = false) {
        context.memory.files["file.mrn"] = text;
        try {
            document.Load("file.mrn", skipChecks);
            return 0;
        } catch (const Error& error) {
            EXPECT_EQ(error.Source(), "Calyx.CIndicator.Load");
            EXPECT_EQ(error.Number(), 0x80040000u + static_cast<unsigned>(error.Code()));
            EXPECT_FALSE(error.Description().starts_with('#'));
            return error.Code();
        }
    }
};

TEST_F(File, ChecksumIsTheKnownOneForEveryAlignment) {
    EXPECT_EQ(Checksum("123456789"), static_cast<std::int32_t>(0xCBF43926u));
    EXPECT_EQ(Checksum(""), 0);
    const std::string text = "The quick brown fox jumps over the lazy dog";
    EXPECT_EQ(Checksum(text), 0x414FA339);
    const std::string shifted = "xyz" + text;
    EXPECT_EQ(Checksum(std::string_view(shifted).substr(3)), 0x414FA339);
}

TEST_F(File, EnvelopeIsExact) {
    document.Initialize();
    document.SetCODFilename("gate.cod");
    EXPECT_THROW(document.SetCODFilename("x\r\nUID=1"), Error);
    EXPECT_THROW(document.SetCODFilename("a[BEGIN].cod"), Error);
    document.Save("out.mrn", false);
    const std::string body = document.Body();
    EXPECT_TRUE(body.starts_with("VERSION=3.10.00\r\nBATCHNG="));
    EXPECT_EQ(context.memory.files["out.mrn"], "@REVISION=3.10.0\r\n@CRC=" + std::to_string(Checksum(body)) +
                                                   "\r\n@CODFile=gate.cod\r\n\r\n[BEGIN]\r\n" + body +
                                                   "[END]");
}

TEST_F(File, ChecksInTheirOrder) {
    struct Row {
        const char* what;
        std::string text;
        int code;
    };
    const std::string good = Saved({{"UID", "GATE"}});
    std::string edited = good;
    edited.replace(edited.find("GATE"), 4, "GATF");
    std::string noCrc = good;
    noCrc.replace(noCrc.find("@CRC="), noCrc.find("@CODFile") - noCrc.find("@CRC="), "@CRC=\r\n");
    const Row rows[] = {
        {"as saved", good, 0},
        {"edited body", edited, 10005},
        {"empty checksum is none", noCrc, 10012},
        {"by hand, no version", "UID=GATE\r\n", 10012},
        {"by hand, good version", "version=V3.10.02\nUID=GATE\n", 10012},
        {"by hand, wrong version", "VERSION=V3.09.02\r\n", 15001},
        {"empty file", "", 10012},
        {"another program's file", std::string("PK\3\4\0\0=\0\xFF", 9), 10012},
        {"other revision", Around("VERSION=3.10.00\r\n", "3.09.7"), 15000},
        {"older revision text without a dot", Around("VERSION=3.10.00\r\n", "3"), 15000},
        {"blank revision passes", Around("VERSION=3.10.00\r\n", " "), 0},
        {"other indicator", Around("VERSION=V3.09.02\r\n"), 15001},
        {"revision before indicator", Around("VERSION=V3.09.02\r\n", "2.00.1"), 15000},
        {"indicator with V", Around("VERSION=V3.10.02\r\n"), 0},
        {"indicator without V", Around("VERSION=3.10.02\r\n"), 0},
        {"prefix in other case", Around("VERSION=v3.10.02\r\n"), 15001},
        {"no begin mark: measured from the start",
         "01234567BODY[END]\r\n@CRC=" + std::to_string(Checksum("BODY")) + "\r\n", 0},
        {"the last end mark counts", Around("CONTACT.ADDR1=[END]\r\nVERSION=3.10.00\r\n"), 0},
        {"end before begin has checksum 0", "@CRC=0\r\n[END]\r\n[BEGIN]\r\n", 0},
        {"checksum is no number", "@CRC=abc\r\n[BEGIN]\r\n[END]", 10005},
    };
    for (const Row& row : rows) EXPECT_EQ(Open(row.text), row.code) << row.what;
    EXPECT_EQ(Open(edited, true), 0);
    EXPECT_EQ(document.Value("UID"), "GATF");
}

TEST_F(File, ARejectedFileLeavesTheDocumentButTellsItsVersions) {
    ASSERT_EQ(Open(Saved({{"UID", "KEPT"}})), 0);
    EXPECT_EQ(Open("@REVISION=3.09.1\r\nVERSION=V2.00.01\r\n"), 15001);
    EXPECT_EQ(document.Value("UID"), "KEPT");
    EXPECT_EQ(document.Filename(), "file.mrn");
    EXPECT_FALSE(document.IsNew());
    EXPECT_EQ(document.FileVersion(), "3.09.1");
    EXPECT_EQ(document.IndicatorVersion(), "V2.00.01");
}

TEST_F(File, MissingFileAndFolder) {
    const auto code = [&](const char* path) {
        try {
            document.Load(path, true);
        } catch (const Error& error) {
            return error.Code();
        }
        return 0;
    };
    EXPECT_EQ(code("nowhere.mrn"), 10004);
    EXPECT_EQ(code("folder/"), 20003);
    EXPECT_FALSE(document.IsInitialised());
}

TEST_F(File, LinesAreReadAsTheyStand) {
    EXPECT_EQ(
        Open("CONTACT.COMPANY=  a=b \xE9 \r\nuid= \tX\ntruck=MODE1\rDATESEP=DASH\r\n=nothing\r\nUID=2\r\n",
             true),
        0);
    EXPECT_EQ(document.Value("CONTACT.COMPANY"), "  a=b \xE9 ");
    EXPECT_EQ(document.Value("UID"), "\tX");
    EXPECT_EQ(document.Value("TRUCK"), "MODE1");
    EXPECT_EQ(document.Value("DATESEP"), "DASH");
    EXPECT_NE(document.Body().find("CONTACT.COMPANY=  a=b \xE9 \r\n"), std::string::npos);
}

TEST_F(File, ReadReportTellsWhatWasPassedOverOrReplaced) {
    context.memory.files["f"] =
        "; a "
        "comment\r\n[BEGIN]\r\nUID=A\r\nUID=B\r\nTRUCK=MODE99\r\nDSPRATE=12abc\r\nCONSNUM=many\r\nNEXTCAL="
        "13452020\r\n"
        "ALERT.SERV=1234567890123456\r\nFOO.BAR=1\r\nLAT.LOC=50\r\nLASTCAL=01022026\r\n@FOO=1\r\nUID=A\r\n["
        "END]";
    const ReadReport report = document.Load("f", true);
    using Kind = ReadNote::Kind;
    struct Row {
        Kind kind;
        unsigned line;
        const char* key;
        const char* became;
    };
    const Row expected[] = {
        {Kind::ListValue, 5, "TRUCK", "OFF"},
        {Kind::PartlyRead, 6, "DSPRATE", "12"},
        {Kind::NotUnderstood, 7, "CONSNUM", "0"},
        {Kind::NotUnderstood, 8, "NEXTCAL", ""},
        {Kind::Cut, 9, "ALERT.SERV", "123456789012345"},
        {Kind::TextLine, 1, "", ""},
        {Kind::DuplicateKey, 4, "UID", "A"},
        {Kind::UnknownKey, 10, "FOO.BAR", ""},
        {Kind::NotWritten, 11, "LAT.LOC", ""},
        {Kind::UnknownKey, 13, "@FOO", ""},
    };
    ASSERT_EQ(report.Count(), std::size(expected));
    for (const Row& row : expected) {
        EXPECT_TRUE(std::any_of(report.Notes().begin(), report.Notes().end(), [&](const ReadNote& note) {
            return note.kind == row.kind && note.line == row.line && note.key == row.key &&
                   note.became == row.became;
        })) << row.line;
    }
    EXPECT_EQ(report.Notes().front().section, "general");

    // Of a card that is not there, of a part that has no such parameter, of nobody.
    const ReadReport unknown = document.LoadText("EDP.ALIAS#7=x\r\nSTR.FOO#1=x\r\nFOO=x\r\n", "f");
    ASSERT_EQ(unknown.Count(), 3u);
    EXPECT_EQ(
        unknown.Notes()[0].section + "|" + unknown.Notes()[1].section + "|" + unknown.Notes()[2].section,
        "hardware|hardware|");
}

TEST_F(File, SamplesOpenSaveAndStayByteEqual) {
    for (const char* name : {"truck-scale", "batching-plant", "checkweigher-line", "silo"}) {
        const std::string text = ReadFile(std::string(CALYX_DATA_DIR) + "/samples/" + name + ".mrn");
        ASSERT_EQ(Open(text, true), 0) << name;
        // No line is lost: every line of the sample that has a key stands in the document.
        const auto lines = document.Lines();
        for (KeyValue line : ReadLines(text)) {
            // A multiplier is written with its point, whole or not.
            if (line == KeyValue{"SC.SEC.MULT#1", "1000"}) line.value += '.';
            EXPECT_NE(std::find(lines.begin(), lines.end(), line), lines.end()) << name << ": " << line.key;
        }
        document.Save("copy.mrn", false);
        EXPECT_FALSE(document.IsDirty());
        CIndicator again(context);
        EXPECT_TRUE(again.Load("copy.mrn", false).Empty()) << name;
        EXPECT_EQ(again.FileText(), context.memory.files["copy.mrn"]) << name;
    }
}

TEST_F(File, SavingFailsWholeAndACopyKeepsTheName) {
    EXPECT_THROW(document.Save("x", false), Error);  // no document yet
    document.Initialize();
    EXPECT_TRUE(document.IsNew());
    EXPECT_EQ(document.Filename(), "[New File]");
    ASSERT_TRUE(document.Import({{"UID", "7"}}).refused.empty());
    document.Save("copy.mrn", true);
    EXPECT_TRUE(document.IsNew());
    EXPECT_TRUE(document.IsDirty());

    context.memory.full = true;
    try {
        document.Save("disk.mrn", false);
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.Code(), 20002);
        EXPECT_EQ(error.Chain(), std::vector<std::string>{"Calyx.CIndicator.Save"});
        EXPECT_NE(error.Description().find("disk.mrn"), std::string::npos);
    }
    EXPECT_TRUE(document.IsNew());
    EXPECT_TRUE(document.IsDirty());
    EXPECT_EQ(document.Filename(), "[New File]");
}

// A file that another program can get at while this one writes.
struct SharedFiles : MemoryFiles {
    std::function<void()> beforeReplace;
    bool locked = false;

    std::string Read(const std::string& path) const override {
        if (locked) throw std::system_error(std::make_error_code(std::errc::permission_denied));
        return MemoryFiles::Read(path);
    }
    using IFileStore::Replace;
    void Replace(const std::string& path, std::string_view bytes, const LastLook& lastLook) override {
        if (beforeReplace) beforeReplace();
        MemoryFiles::Replace(path, bytes, lastLook);
    }
};

TEST_F(File, WhatAnotherProgramWroteIsNotReplacedUnasked) {
    using Over = CIndicator::Over;
    SharedFiles files;
    context.files = &files;
    std::string& file = files.files["a"];
    const auto save = [&](Over over) {
        try {
            document.Save("a", false, over);
            return 0;
        } catch (const Error& error) {
            EXPECT_NE(error.Description().find("\"a\""), std::string::npos);
            return error.Code();
        }
    };
    file = Saved({{"UID", "1"}});
    const std::string others = Saved({{"UID", "2"}});
    document.Load("a", false);
    ASSERT_TRUE(document.Import({{"UID", "7"}}).refused.empty());
    document.Save("a", true, Over::WhatIsKnown);  // a copy over the file itself is known, too
    EXPECT_EQ(save(Over::WhatIsKnown), 0);
    EXPECT_EQ(save(Over::WhatIsKnown), 0);

    const auto untouched = [&](int code, const std::string& left) {
        ASSERT_TRUE(document.Import({{"UID", "8"}}).refused.empty());
        EXPECT_EQ(save(Over::WhatIsKnown), code);
        EXPECT_TRUE(document.IsDirty());
        EXPECT_EQ(files.files.contains("a") ? files.files["a"] : "gone", left);
    };
    const std::string mine = file;
    files.beforeReplace = [&] { files.files["a"] = others; };  // at the last moment
    untouched(42600, others);
    files.beforeReplace = nullptr;
    untouched(42600, others);
    files.files["a"] = mine;
    files.locked = true;
    untouched(42602, mine);
    files.locked = false;
    files.files.erase("a");
    untouched(42601, "gone");
    EXPECT_EQ(save(Over::Anything), 0);
    EXPECT_EQ(save(Over::WhatIsKnown), 0);
    context.files = &context.memory;
}

TEST_F(File, HugeAndOddInputIsReadOrRefusedNeverLost) {
    EXPECT_EQ(Open("CONTACT.COMPANY=" + std::string(1 << 20, 'x') + "\r\n", true), 0);
    EXPECT_EQ(document.Value("CONTACT.COMPANY")->size(), std::size_t{1} << 20);
    EXPECT_EQ(Open(std::string("CONTACT.ADDR1=a\0b\r\n", 19), true), 0);
    EXPECT_EQ(document.Value("CONTACT.ADDR1"), std::string("a\0b", 3));
    std::string many;
    for (int i = 0; i < 50000; ++i) many += "SP.KIND#" + std::to_string(i) + "=OFF\n";
    const ReadReport report = document.LoadText(many, "many");
    EXPECT_EQ(report.Count(), 50000u - 100u);  // each setpoint that there is not is told
}

}  // namespace
}  // namespace calyx::test
