// Download: what goes in which order, and how a run ends.

#include "comm/download.h"

#include "tests/comm/scripted_link.h"

namespace calyx::test {
namespace {

using namespace download_option;
using Texts = std::vector<std::string>;
using End = DownloadReport::End;

constexpr std::string_view kBody =
    "HARDWARE=2,4,9,7,0,0,0,0,0,0,0,0,0,0\r\nSC.SRC#1=A,1\r\nSC.GRADS#1=5000\r\nSC.WVAL#1=10\r\n"
    "EDP.INPUT#3=VEXAL\r\nFB.SIZE#1=64\r\nSJ.CONFIG#3=8/0/0/0\r\nUID=GATE\r\nDIO.1#0=INPUT\r\n"
    "ALG.ALIAS#2=OUT\r\nPROMPT#1=Name\r\nGFMT.FMT=<G>\r\nSP.KIND#1=OFF\r\nWDGT#1=1,2,1,1\r\n"
    "DB.NAME.1#4=TRUCKS\r\n";

struct Shown : IDownloadEvents {
    Texts statuses, notices;
    std::string errors;
    int lastNumber = 0;
    void Status(const std::string& text) override { statuses.push_back(text); }
    void Line(const std::string&, int number, int total) override {
        EXPECT_EQ(number, ++lastNumber);
        EXPECT_LE(number, total);
    }
    void Errors(const std::string& text) override { errors = text; }
    void Notice(const std::string& title, const std::string& text) override {
        notices.push_back(title.empty() ? text : title);
    }
};

// A connected link, a document with a line of every step, and a download between them.
struct DownloadTest : testing::Test {
    ScriptedLink test;
    CIndicator document{test.context};
    Shown shown;
    CDownload download{*test.link, test.cancel, shown};
    DownloadOptions options;
    Target target;
    Texts failing;  // lines that are refused

    DownloadTest() {
        test.Connect();
        test.wire.device = [this](Wire& wire, const std::string& line) {
            const bool refuse = std::count(failing.begin(), failing.end(), line) > 0;
            wire.Answer(refuse ? "??\r\n" : "OK\r\n");
        };
        document.LoadText(std::string(kBody), "test");
    }
    DownloadReport Run() { return download.Run(document, options, target); }
    // What was sent of the body above, commands and lines of a program.
    std::string Sent() const {
        std::string sent;
        for (const std::string& line : test.wire.lines) {
            const bool parameter = line.find('=') != std::string::npos;
            if (!parameter || kBody.find("\r\n" + line + "\r\n") != std::string_view::npos)
                sent += line + "|";
        }
        return sent;
    }
    bool WasSent(const std::string& line) const {
        return std::count(test.wire.lines.begin(), test.wire.lines.end(), line) > 0;
    }
};

TEST_F(DownloadTest, StepsGoInTheirOrderWithProbesBetween) {
    options.mask = chkBase | chkCalibration | chkSetpoints | chkWidgets | chkSchemas | chkCODFile;
    options.programFile = " gate.cod ";
    test.context.memory.files["gate.cod"] = "-- line one\r\n   \r\n-- line two";
    const DownloadReport report = Run();
    EXPECT_EQ(Sent(),
              "KNIX|SC.SRC#1=A,1|SC.GRADS#1=5000|EDP.INPUT#3=VEXAL|FB.SIZE#1=64|SJ.CONFIG#3=8/0/0/0|UID=GATE|"
              "DIO.1#0=INPUT|ALG.ALIAS#2=OUT|PROMPT#1=Name|GFMT.FMT=<G>|SC.WVAL#1=10|SP.KIND#1=OFF|"
              "KNIX|WDGT.CLR|WDGT#1=1,2,1,1|KNIX|DB.DELALL|DB.NAME.1#4=TRUCKS|"
              "KNIX|-- line one|-- line two|KNIX|SJ.DOWNLOAD#3|");
    EXPECT_EQ(report.end, End::Complete);
    EXPECT_EQ(report.status, test.context.texts.Text(9522));
    EXPECT_EQ(report.accepted, report.total);
    EXPECT_TRUE(report.failed.empty());
    Texts withoutProbes = test.wire.lines;
    std::erase(withoutProbes, "KNIX");
    EXPECT_EQ(SendingOrder(document, options, target), withoutProbes);
    EXPECT_EQ(shown.statuses.size(), 16u);  // 15 steps and how it ended
    EXPECT_EQ(shown.statuses[3], "Sending Vexal Configuration");
}

TEST_F(DownloadTest, OptionsAndVersionChooseTheLines) {
    struct Case {
        unsigned mask;
        Target target;
        bool calibration, setpoint, widget, reset;
    };
    const Target old{.version = VersionBit("2.03.")};
    const Case cases[] = {
        {chkBase, {}, false, false, false, true},
        {chkBase | chkCalibration, {}, true, false, false, true},
        {chkCalibration, {}, false, false, false, false},
        {chkSetpoints | chkWidgets, {}, false, true, true, false},
        {chkBase, old, false, false, false, false},
        {chkBase, {.version = old.version, .cb2 = true}, false, false, false, true},
        {0, {}, false, false, false, false},
    };
    for (const Case& c : cases) {
        test.wire.lines.clear();
        shown.lastNumber = 0;
        options.mask = c.mask;
        target = c.target;
        EXPECT_EQ(Run().end, End::Complete);
        EXPECT_EQ(WasSent("SC.WVAL#1=10"), c.calibration) << c.mask;
        EXPECT_EQ(WasSent("SP.KIND#1=OFF"), c.setpoint) << c.mask;
        EXPECT_EQ(WasSent("WDGT#1=1,2,1,1"), c.widget) << c.mask;
        EXPECT_EQ(WasSent("SJ.DOWNLOAD#3"), c.reset) << c.mask;
        EXPECT_EQ(test.wire.lines.back(), c.reset ? "SJ.DOWNLOAD#3" : "KNIX");  // asked in every run
    }
}

TEST_F(DownloadTest, OutsideSetupModeNothingMoreIsSent) {
    failing = {"KNIX"};
    const DownloadReport report = Run();
    EXPECT_EQ(report.end, End::NotInSetupMode);
    EXPECT_EQ(report.status, test.context.texts.Text(9523));  // it has nothing, and so no part
    EXPECT_EQ(report.reason, test.context.texts.Text(1294));
    EXPECT_EQ(test.wire.lines, Texts{"KNIX"});
    EXPECT_EQ(shown.notices, Texts{test.context.texts.Text(1294)});
}

TEST_F(DownloadTest, RefusedLinesAreCountedAndDoNotStopIt) {
    failing = {"SC.GRADS#1=5000", "SP.KIND#1=OFF"};
    const DownloadReport report = Run();
    EXPECT_EQ(report.end, End::Complete);
    ASSERT_EQ(report.failed.size(), 2u);
    EXPECT_EQ(report.failed[1].line, "SP.KIND#1=OFF");
    EXPECT_EQ(report.accepted, report.total - 2);
    EXPECT_EQ(shown.errors, "Errors: 2");
    EXPECT_TRUE(WasSent("SJ.DOWNLOAD#3"));
}

TEST_F(DownloadTest, AStreamIsHeldBackWhereALineOfItsPortFailed) {
    document.LoadText("EDP.INPUT#1=SCALE\r\nEDP.INPUT#2=IND SC\r\nSC.SRC#2=A,1\r\n", "test");
    options.mask = chkBase;
    const std::vector<DownloadStep> steps = PlanDownload(document, options, target);
    struct Quiet : IDownloadEvents {
        std::string fates;
        void Done(LineFate fate) override { fates += static_cast<char>(fate); }
    } quiet;
    CDownload plain(*test.link, test.cancel, quiet);
    for (const auto& [refused, port] :
         {std::pair{"EDP.BAUD#2=115200", "2"}, {"STR.POS#1=SPACE", ""}, {"SC.GRADS#2=10000", ""}}) {
        SCOPED_TRACE(refused);
        test.wire.lines.clear();
        quiet.fates.clear();
        failing = {refused};
        const DownloadReport report = plain.RunSteps(steps, options, test.context.texts);
        EXPECT_EQ(report.end, End::Complete);
        EXPECT_TRUE(WasSent("STR.OK#1= ") && WasSent("EDP.ALIAS#3=Com3"));
        EXPECT_EQ(WasSent("STR.POS#2=SPACE"), *port == '\0');
        EXPECT_EQ(WasSent("EDP.SFMT#2=<002><P><W7.><U><M><S><CR><LF>"), *port == '\0');
        const auto held = std::count(report.fates.begin(), report.fates.end(), LineFate::HeldBack);
        EXPECT_EQ(held, *port == '\0' ? 0 : 14);
        EXPECT_EQ(report.accepted + held + 1, report.total);
        EXPECT_EQ(quiet.fates.size(), report.fates.size());
        ASSERT_EQ(report.failed.size(), *port == '\0' ? 1u : 2u);
        EXPECT_EQ(report.failed[0].line, refused);
        if (*port == '\0') continue;
        EXPECT_EQ(report.failed[1].reason, test.context.texts.Format(42010, {port}));

        // A run that is taken up again behind the refused line knows of it.
        const auto place = std::find(report.fates.begin(), report.fates.end(), LineFate::Refused);
        test.wire.lines.clear();
        failing.clear();
        const DownloadReport rest =
            plain.RunSteps(steps, options, test.context.texts, {report.fates.begin(), place + 1});
        EXPECT_EQ(rest.fates, report.fates);
        EXPECT_FALSE(WasSent("STR.POS#2=SPACE"));
        EXPECT_EQ(rest.failed.size(), 1u);
    }
}

TEST_F(DownloadTest, WhatEndsTheRun) {
    struct Case {
        const char* name;
        const char* line;  // the refused one
        unsigned mask;
        bool halt;
        const char* notSent;
    };
    const Case cases[] = {
        {"halt on errors", "SC.GRADS#1=5000", chkBase, true, "EDP.INPUT#3=VEXAL"},
        {"database that was not emptied", "DB.DELALL", chkSchemas, false, "DB.NAME.1#4=TRUCKS"},
        {"first refused program line", "-- one", chkCODFile, false, "-- two"},
    };
    test.context.memory.files["gate.cod"] = "-- one\r\n-- two\r\n";
    options.programFile = "gate.cod";
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        test.wire.lines.clear();
        shown.lastNumber = 0;
        failing = {c.line};
        options.mask = c.mask;
        options.haltOnError = c.halt;
        const DownloadReport report = Run();
        EXPECT_EQ(report.end, End::Failed);
        EXPECT_EQ(report.failed.size(), 1u);
        EXPECT_EQ(report.status.find("has accepted") != std::string::npos, report.accepted > 0)
            << report.status;
        EXPECT_EQ(test.wire.lines.back(), c.line);
        EXPECT_FALSE(WasSent(c.notSent));
    }
    test.wire.lines.clear();
    test.context.memory.files["empty.cod"] = "\r\n  \r\n";
    for (const auto& [file, number] : {std::pair{"missing.cod", code::kFileNotFound},
                                       {"folder/", code::kIsFolder},
                                       {"empty.cod", code::kFileNotReadable}}) {
        options.programFile = file;
        EXPECT_EQ(Raised([&] { Run(); }).Code(), number) << file;
    }
    EXPECT_TRUE(test.wire.lines.empty());  // found before anything is sent
}

TEST_F(DownloadTest, AbortEndsItAtTheLineInFlight) {
    test.wire.device = [this](Wire& wire, const std::string& line) {
        if (line == "EDP.INPUT#3=VEXAL") return download.Abort();
        wire.Answer("OK\r\n");
    };
    const DownloadReport report = Run();
    EXPECT_EQ(report.end, End::Aborted);
    EXPECT_TRUE(report.status.starts_with("The download was aborted. The indicator has accepted "))
        << report.status;
    EXPECT_EQ(test.wire.lines.back(), "EDP.INPUT#3=VEXAL");
    EXPECT_TRUE(report.failed.empty());  // the indicator has refused nothing

    test.wire.lines.clear();
    test.cancel = true;
    EXPECT_EQ(Run().end, End::Aborted);
    EXPECT_TRUE(test.wire.lines.empty());
}

TEST_F(DownloadTest, ALostLinkEndsItAtOnceWhateverTheLine) {
    options.mask = chkBase;
    const std::size_t all = SendingOrder(document, options, target).size() + 2;  // and two probes
    for (std::size_t last = 1; last < all; ++last) {
        test.Connect();
        test.wire.device = [=](Wire& wire, const std::string&) {
            wire.lines.size() < last ? wire.Answer("OK\r\n") : void(wire.open = false);
        };
        shown = {};
        const DownloadReport report = Run();
        EXPECT_EQ(report.end, End::Lost);
        EXPECT_EQ(test.wire.lines.size(), last);
        EXPECT_LE(report.failed.size(), 1u);
        EXPECT_TRUE(report.reason.starts_with("The connection to the indicator was lost.")) << report.reason;
        EXPECT_EQ(shown.notices, Texts{test.context.texts.Text(1283)});
    }
}

TEST_F(DownloadTest, WidgetsBeyondTheLimitAreToldOnce) {
    std::string body;
    for (int i = 1; i <= 130; ++i) body += "WDGT#" + std::to_string(i) + "=1,2,1,1\r\n";
    document.LoadText(body, "test");
    options.mask = chkWidgets;
    for (const auto& [prefix, notices] :
         {std::pair{"3.00.", Texts{"Widget Count #130"}}, {"3.05.", Texts{}}}) {
        shown = {};
        target.version = VersionBit(prefix);
        EXPECT_EQ(Run().total, notices.empty() ? 131 : 129);
        EXPECT_EQ(shown.notices, notices);
    }
}

}  // namespace
}  // namespace calyx::test
